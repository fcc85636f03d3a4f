// The buttons of the specified files, the menu over their list, and the box beside it.
#include "alerts/lists/lists_rig.h"

#include "base/errors.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

struct FileButtonsTest : testing::Test, ListsRig {
    void click(int index) { form1.lblSF[static_cast<std::size_t>(index)].userClick(); }
    void threeRows() {
        for (const char* tag : {"C:\\a", "C:\\b", "C:\\c"}) listedFile(tag);
    }
};

const std::string browsed = "browse: Choose File/Folder ";

TEST_F(FileButtonsTest, AddAndBrowseAskForFiles) {
    for (const int index : {file_button::add, file_button::browse}) {
        file("C:\\data\\a.txt");
        host.paths = {"C:\\data\\a.txt"};
        click(index);
        EXPECT_EQ(tags(), Texts{"C:\\data\\a.txt"}) << index;
        list.Clear();
    }
}

TEST_F(FileButtonsTest, TheWatchIsPausedWhileTheDialogIsOpen) {
    for (const int index : {file_button::add, file_button::browse}) {
        form1.cmdPause.setCaption("Pause Watch");
        order.clear();
        host.paths = {"C:\\gone"};
        click(index);
        EXPECT_EQ(order, (Texts{"watch: Start Watch", browsed, "FileExists C:\\gone",
                                "FolderExists C:\\gone", "watch: Pause Watch"}));
    }
}

TEST_F(FileButtonsTest, APausedWatchStaysPaused) {
    form1.cmdPause.setCaption("Start Watch");
    click(file_button::add);
    EXPECT_EQ(host.dialogs.size(), 1u);
    EXPECT_EQ(order, Texts{browsed});
}

TEST_F(FileButtonsTest, AWatchStartedMeanwhileIsNotPausedAgain) {
    form1.cmdPause.setCaption("Pause Watch");
    host.paths = {"C:\\gone"};
    machine.onCall = [this](const std::string&) { form1.cmdPause.setCaption("Pause Watch"); };
    click(file_button::add);
    EXPECT_EQ(order, (Texts{"watch: Start Watch", browsed}));
    EXPECT_EQ(form1.cmdPause.Caption(), "Pause Watch");
}

TEST_F(FileButtonsTest, TheWatchGoesOnAlsoWhenAddingFails) {
    form1.cmdPause.setCaption("Pause Watch");
    form1.cboFile.setText("C:\\a");
    machine.log.failCall(1, error::deviceIo);
    EXPECT_EQ(errorOf([&] { click(file_button::add); }), error::deviceIo);
    EXPECT_EQ(form1.cmdPause.Caption(), "Pause Watch");
}

TEST_F(FileButtonsTest, RemoveRemovesTheSelectedRow) {
    threeRows();
    list.userSelect({2});
    click(file_button::remove);
    EXPECT_EQ(tags(), (Texts{"C:\\a", "C:\\c"}));
    EXPECT_EQ(machine.files.size(), 3u);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(FileButtonsTest, RemoveWithNoSelectionChangesNothing) {
    threeRows();
    click(file_button::remove);
    EXPECT_EQ(list.Count(), 3);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(FileButtonsTest, RemoveOnAnEmptyListSaysSo) {
    click(file_button::remove);
    EXPECT_EQ(said(), Texts{"No item listed."});
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::ok);
    EXPECT_EQ(host.boxes[0].icon, BoxIcon::none);
}

TEST_F(FileButtonsTest, ClearAllRemovesTheRowsAndNoFile) {
    threeRows();
    form1.cboFile.AddItem("C:\\a");
    click(file_button::clear);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(machine.files.size(), 3u);
    EXPECT_EQ(form1.cboFile.ListCount(), 1);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(FileButtonsTest, TheLabelsClickTheirCommandButtons) {
    Texts clicked;
    form1.cmdMove.Click.connect([&] { clicked.push_back("cmdMove"); });
    form1.cmdMoveAll.Click.connect([&] { clicked.push_back("cmdMoveAll"); });
    form1.cmdDelete.Click.connect([&] { clicked.push_back("cmdDelete"); });
    form1.cmdDeleteAll.Click.connect([&] { clicked.push_back("cmdDeleteAll"); });
    for (const int index : {file_button::move, file_button::deleteFile, file_button::deleteAll,
                            file_button::moveAll}) {
        click(index);
    }
    EXPECT_EQ(clicked, (Texts{"cmdMove", "cmdDelete", "cmdDeleteAll", "cmdMoveAll"}));
    EXPECT_EQ(said(),
              (Texts{"No file listed.", "No item listed.", "No item listed.", "No item listed."}));
}

TEST_F(FileButtonsTest, TheOlderAddButtonDoesNothing) {
    form1.cboFile.setText("C:\\a");
    file("C:\\a");
    form1.Command2.userClick();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(order, Texts{});
}

TEST_F(FileButtonsTest, AttributesOpenThePropertiesOfTheSelectedRow) {
    threeRows();
    list.userSelect({2});
    click(file_button::attributes);
    form1.mnuFileAttr.userClick();
    ASSERT_EQ(machine.executed.size(), 2u);
    for (const ShellExecuteInfo& sheet : machine.executed) {
        EXPECT_EQ(sheet.verb, "properties");
        EXPECT_EQ(sheet.file, "C:\\b");
        EXPECT_EQ(sheet.owner, "Form1");
    }
}

TEST_F(FileButtonsTest, AttributesWithNoSelectionDoNothing) {
    click(file_button::attributes);
    threeRows();
    click(file_button::attributes);
    form1.mnuFileAttr.userClick();
    EXPECT_EQ(order, Texts{});
}

TEST_F(FileButtonsTest, TheRightButtonPopsUpTheMenuOverRows) {
    int shown = 0;
    form1.mnuLst.PoppedUp.connect([&] { ++shown; });
    list.RightClick();
    EXPECT_EQ(shown, 0);
    threeRows();
    list.RightClick();
    EXPECT_EQ(shown, 1);
}

TEST_F(FileButtonsTest, OnePathDroppedOnTheBoxBecomesItsText) {
    form1.cboFile.userDrop({"C:\\a"});
    EXPECT_EQ(form1.cboFile.Text(), "C:\\a");
    EXPECT_EQ(form1.cboFile.ListCount(), 0);
}

TEST_F(FileButtonsTest, SeveralPathsDroppedOnTheBoxBecomeEntries) {
    form1.cboFile.setText("kept");
    form1.cboFile.userDrop({"C:\\a", "C:\\gone"});
    EXPECT_EQ(form1.cboFile.Text(), "kept");
    ASSERT_EQ(form1.cboFile.ListCount(), 2);
    EXPECT_EQ(form1.cboFile.List(0), "C:\\a");
    EXPECT_EQ(form1.cboFile.List(1), "C:\\gone");
    EXPECT_EQ(list.Count(), 0);
}

}  // namespace
}  // namespace velmora::tests
