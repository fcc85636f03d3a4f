// The specified programs and their buttons.
#include "alerts/lists/lists_rig.h"

#include "base/errors.h"
#include "rows/listed_program.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

struct ProgramListTest : testing::Test, ListsRig {
    ListView& rows = programRows;
    ComboBox& box = form1.cboProg;

    void click(int index) { form1.Label5[static_cast<std::size_t>(index)].userClick(); }
    Texts cells(int index) {
        const ListItem& item = rows.ListItems(index);
        const ConstListedProgram row(item);
        return {row.path(), item.Text(), row.action(), row.location(), row.type()};
    }
    void listed(const std::string& path) {
        file(path);
        box.setText(path);
        click(program_button::add);
        forget();
    }
};

TEST_F(ProgramListTest, AddTakesTheTextOfTheBox) {
    file("C:\\data\\tool.exe");
    box.setText("C:\\data\\tool.exe");
    click(program_button::add);
    EXPECT_EQ(cells(1),
              (Texts{"C:\\data\\tool.exe", "tool.exe", "Execute", "C:\\data", "EXE File"}));
    EXPECT_EQ(box.ListCount(), 0);
    EXPECT_EQ(box.Text(), "C:\\data\\tool.exe");
}

TEST_F(ProgramListTest, AddOfATextThatNamesNoFileSaysSo) {
    for (const char* text : {"C:\\gone.exe", "C:\\data", " "}) {
        box.setText(text);
        click(program_button::add);
    }
    EXPECT_EQ(said(), Texts(3, "File does not exists."));
    EXPECT_EQ(host.boxes[0].icon, BoxIcon::critical);
    EXPECT_EQ(rows.Count(), 0);
}

TEST_F(ProgramListTest, AddOfAnEmptyTextDoesNothing) {
    click(program_button::add);
    form1.cmdPAdd.userClick();
    EXPECT_EQ(order, Texts{});
    EXPECT_EQ(rows.Count(), 0);
    EXPECT_EQ(box.ListCount(), 0);
}

TEST_F(ProgramListTest, AProgramMayBeListedTwice) {
    listed("C:\\tool.exe");
    click(program_button::add);
    EXPECT_EQ(rows.Count(), 2);
}

TEST_F(ProgramListTest, AProgramThatCannotBeReadIsListed) {
    file("C:\\tool.exe");
    box.setText("C:\\tool.exe");
    machine.log.failCall(2, error::permissionDenied);
    click(program_button::add);
    EXPECT_EQ(cells(1), (Texts{"C:\\tool.exe", "tool.exe", "Execute", "", ""}));
}

TEST_F(ProgramListTest, TheOlderAddButtonMakesTheTextAnEntry) {
    file("C:\\tool.exe");
    box.setText("C:\\tool.exe");
    form1.cmdPAdd.userClick();
    ASSERT_EQ(box.ListCount(), 1);
    EXPECT_EQ(box.List(0), "C:\\tool.exe");
    EXPECT_EQ(rows.Count(), 0);
}

TEST_F(ProgramListTest, TheOlderAddButtonTakesNoTextThatNamesNoFile) {
    box.setText("C:\\gone.exe");
    form1.cmdPAdd.userClick();
    EXPECT_EQ(box.ListCount(), 0);
    EXPECT_EQ(said(), Texts{"File does not exists."});
}

TEST_F(ProgramListTest, RemoveRemovesTheSelectedRow) {
    for (const char* path : {"C:\\a.exe", "C:\\b.exe"}) listed(path);
    click(program_button::remove);
    EXPECT_EQ(rows.Count(), 2);
    rows.userSelect({1});
    click(program_button::remove);
    EXPECT_EQ(tagsOf(rows), Texts{"C:\\b.exe"});
    EXPECT_TRUE(host.boxes.empty());
    rows.Clear();
    click(program_button::remove);
    EXPECT_EQ(said(), Texts{"No item listed."});
}

TEST_F(ProgramListTest, ClearAllRemovesTheRows) {
    for (const char* path : {"C:\\a.exe", "C:\\b.exe"}) listed(path);
    click(program_button::clear);
    EXPECT_EQ(rows.Count(), 0);
}

TEST_F(ProgramListTest, RunStartsTheSelectedProgramAndWritesToTheJournal) {
    for (const char* path : {"C:\\a.exe", "C:\\b.exe"}) listed(path);
    rows.userSelect({2});
    form1.txtAlert.setText("older");
    click(program_button::run);
    ASSERT_EQ(machine.executed.size(), 1u);
    const fake::FakeExecution& run = machine.executed[0];
    EXPECT_EQ(run.verb, "open");
    EXPECT_EQ(run.file, "C:\\b.exe");
    EXPECT_EQ(run.owner, "Form1");
    EXPECT_EQ(run.parameters, "");
    EXPECT_EQ(run.directory, "");
    EXPECT_EQ(run.showCommand, 1);
    EXPECT_EQ(journal(), " - Specified Program Executed: \r\nC:\\b.exe\r\n\r\n . \r\nolder");
    EXPECT_EQ(rows.Count(), 2);
    EXPECT_TRUE(alertRows().empty());
}

TEST_F(ProgramListTest, RunOfAMissingProgramWritesToTheJournal) {
    listed("C:\\a.exe");
    machine.files.clear();
    rows.userSelect({1});
    click(program_button::run);
    EXPECT_TRUE(machine.executed.empty());
    EXPECT_EQ(
        journal(),
        " - Specified Program Execution Failed (File Does Not Exist): \r\nC:\\a.exe\r\n\r\n . "
        "\r\n");
    EXPECT_EQ(rows.Count(), 1);
}

TEST_F(ProgramListTest, TheShellsAnswerIsIgnored) {
    listed("C:\\a.exe");
    rows.userSelect({1});
    machine.executes = false;
    click(program_button::run);
    EXPECT_EQ(journal(), " - Specified Program Executed: \r\nC:\\a.exe\r\n\r\n . \r\n");
}

TEST_F(ProgramListTest, RunWithoutRowsSaysSoAndWithoutSelectionDoesNothing) {
    click(program_button::run);
    EXPECT_EQ(said(), Texts{"No listed item."});
    listed("C:\\a.exe");
    click(program_button::run);
    EXPECT_EQ(order, Texts{});
    EXPECT_EQ(journal(), "");
}

TEST_F(ProgramListTest, BrowsePutsTheChosenFileIntoTheBox) {
    host.paths = {"C:\\data\\tool.exe"};
    click(program_button::browse);
    EXPECT_EQ(box.Text(), "C:\\data\\tool.exe");
    ASSERT_EQ(host.fileDialogs.size(), 1u);
    EXPECT_EQ(host.fileDialogs[0].Filter, "All Files (*.*)|*.*");
    EXPECT_EQ(host.fileDialogs[0].Flags & file_dialog::allowMultiselect, 0);
    EXPECT_EQ(host.dialogs, Texts{"Choose File/Folder |c:\\"});
    click(program_button::browse);  // dismissed
    EXPECT_EQ(box.Text(), "C:\\data\\tool.exe");
    EXPECT_EQ(rows.Count(), 0);
}

TEST_F(ProgramListTest, ASingleDroppedPathIsPutIntoTheBox) {
    file("C:\\tool.exe");
    rows.userDrop({"C:\\tool.exe"});
    EXPECT_EQ(box.Text(), "C:\\tool.exe");
    EXPECT_EQ(rows.Count(), 0);
    rows.userDrop({"C:\\gone"});
    EXPECT_EQ(box.Text(), "C:\\gone");
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(ProgramListTest, OfSeveralDroppedPathsTheFilesGetRows) {
    file("C:\\data\\a.exe");
    file("E:\\b.exe");
    rows.userDrop({"C:\\data\\a.exe", "C:\\gone", "C:\\data", "E:\\b.exe"});
    ASSERT_EQ(rows.Count(), 2);
    EXPECT_EQ(cells(1),
              (Texts{"C:\\data\\a.exe", "C:\\data\\a.exe", "Execute", "C:\\data", "EXE File"}));
    EXPECT_EQ(cells(2), (Texts{"E:\\b.exe", "E:\\b.exe", "Execute", "E:\\", "EXE File"}));
    EXPECT_EQ(box.Text(), "");
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(ProgramListTest, PathsDroppedOnTheBoxBehaveAsOnTheFilesBox) {
    box.userDrop({"C:\\a"});
    EXPECT_EQ(box.Text(), "C:\\a");
    EXPECT_EQ(box.ListCount(), 0);
    box.userDrop({"C:\\b", "C:\\c"});
    EXPECT_EQ(box.Text(), "C:\\a");
    ASSERT_EQ(box.ListCount(), 2);
    EXPECT_EQ(box.List(1), "C:\\c");
}

TEST_F(ProgramListTest, AClickOnAColumnSorts) {
    for (const char* path : {"C:\\a.exe", "C:\\c.exe", "C:\\b.exe"}) listed(path);
    rows.userClickPart(1);
    EXPECT_EQ(tagsOf(rows), (Texts{"C:\\c.exe", "C:\\b.exe", "C:\\a.exe"}));
    rows.userClickPart(1);
    EXPECT_EQ(tagsOf(rows), (Texts{"C:\\a.exe", "C:\\b.exe", "C:\\c.exe"}));
}

}  // namespace
}  // namespace velmora::tests
