#include "monitor/watch_list_commands.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "monitor/rig.h"

namespace velmora::tests {
namespace {

constexpr int everyButton[] = {watch_button::add, watch_button::remove, watch_button::clear,
                               watch_button::selectDrive, watch_button::refresh};

struct WatchListCommandsTest : testing::Test {
    WatchListCommandsTest() { rig.load(); }
    void click(int label) { button(rig, label).userClick(); }
    static Label& button(Rig& rig, int label) {
        return rig.form1.lblDP[static_cast<std::size_t>(label)];
    }
    std::vector<std::string> paths() {
        std::vector<std::string> all;
        for (int i = 1; i <= rig.list.Count(); ++i) all.push_back(rig.list.ListItems(i).Text());
        return all;
    }
    void rows(const std::vector<std::string>& texts) {
        for (const std::string& text : texts) rig.row(text);
    }

    using Paths = std::vector<std::string>;
    Rig rig;
};

using WhileCheckingTest = WatchListCommandsTest;
using RemoveTest = WatchListCommandsTest;
using ClearTest = WatchListCommandsTest;
using SelectDriveTest = WatchListCommandsTest;
using ListEventsTest = WatchListCommandsTest;
using AddByFileDialogTest = WatchListCommandsTest;

TEST_F(WhileCheckingTest, EveryCommandAsksFirstAndEndsOnNo) {
    rig.forms.globals.bChecking = true;
    rig.list.setEnabled(false);
    rows({"C:\\", "D:\\"});
    rig.list.ListItems(1).setSelected(true);
    for (const int label : everyButton) {
        rig.clearRecords();
        rig.host.answers = {BoxAnswer::no};
        click(label);
        ASSERT_EQ(rig.host.boxes.size(), 1u) << label;
        EXPECT_EQ(rig.host.boxes[0].text,
                  "The program is still checking. Performing this action may cause errors.\r\n"
                  "Do you wish to continue?");
        EXPECT_EQ(rig.host.boxes[0].buttons, BoxButtons::yesNo);
        EXPECT_EQ(rig.host.boxes[0].title, "Velmora");
        EXPECT_EQ(rig.calls, std::vector<std::string>{}) << label;
        EXPECT_EQ(rig.host.dialogs, std::vector<std::string>{}) << label;
        EXPECT_EQ(rig.machine.log.count(), 0) << label;
    }
    EXPECT_FALSE(rig.list.Enabled());
    EXPECT_TRUE(rig.form1.Timer1.Enabled());
    EXPECT_EQ(rig.list.Count(), 2);
}

TEST_F(WhileCheckingTest, YesGoesOn) {
    rig.forms.globals.bChecking = true;
    rows({"C:\\", "D:\\"});
    rig.list.ListItems(1).setSelected(true);
    rig.list.setEnabled(false);  // as the check leaves it between two rows
    rig.host.answers = {BoxAnswer::yes};
    click(watch_button::remove);
    EXPECT_EQ(paths(), Paths{"D:\\"});
    EXPECT_TRUE(rig.list.Enabled());
}

TEST_F(WhileCheckingTest, TheButtonsThatRepeatTheLabelsAskToo) {
    rig.forms.globals.bChecking = true;
    rows({"A:\\"});
    rig.list.userSelect({1});
    rig.host.answers = {BoxAnswer::no, BoxAnswer::no};
    rig.form1.cmdLVRemove.userClick();
    rig.form1.cmdClear.userClick();
    EXPECT_EQ(rig.host.boxes.size(), 2u);
    EXPECT_EQ(rig.list.Count(), 1);
}

TEST_F(WhileCheckingTest, NothingIsAskedOutsideACheck) {
    rows({"C:\\"});
    click(watch_button::remove);
    EXPECT_EQ(rig.host.boxes.size(), 0u);
}

TEST_F(WatchListCommandsTest, EveryCommandEnablesTheList) {
    for (const int label : everyButton) {
        rig.list.setEnabled(false);
        click(label);
        EXPECT_TRUE(rig.list.Enabled()) << label;
    }
}

TEST_F(RemoveTest, RemovesEverySelectedRow) {
    rows({"A:\\", "B:\\", "C:\\", "D:\\", "E:\\"});
    rig.list.userSelect({1, 2, 4, 5});
    click(watch_button::remove);
    EXPECT_EQ(paths(), Paths{"C:\\"});
}

TEST_F(RemoveTest, RemovesFromTheLastRowToTheFirst) {
    rows({"A:\\", "B:\\", "C:\\"});
    rig.list.userSelect({1, 3});
    std::vector<int> removed;
    rig.list.RowRemoved.connect([&](int index) { removed.push_back(index); });
    click(watch_button::remove);
    EXPECT_EQ(removed, (std::vector<int>{3, 1}));
}

TEST_F(RemoveTest, WithoutASelectionNothingIsRemoved) {
    rows({"A:\\"});
    click(watch_button::remove);
    EXPECT_EQ(rig.list.Count(), 1);
}

TEST_F(RemoveTest, TheButtonDoesWhatTheLabelDoes) {
    rows({"A:\\", "B:\\"});
    rig.list.userSelect({2});
    rig.form1.cmdLVRemove.userClick();
    EXPECT_EQ(paths(), Paths{"A:\\"});
}

TEST_F(RemoveTest, RemovesTenThousandRows) {
    for (int i = 0; i < 10000; ++i) rig.row("C:\\").setSelected(true);
    click(watch_button::remove);
    EXPECT_EQ(rig.list.Count(), 0);
}

TEST_F(ClearTest, AnEmptyListIsReported) {
    click(watch_button::clear);
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text, "No drives listed to clear.");
    EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::information);
    EXPECT_EQ(rig.host.boxes[0].buttons, BoxButtons::ok);
    EXPECT_EQ(rig.calls, std::vector<std::string>{});
}

TEST_F(ClearTest, YesPausesTheWatchAndClearsTheRows) {
    rows({"A:\\", "B:\\"});
    rig.host.answers = {BoxAnswer::yes};
    rig.host.onBox = [this](const Box&) { rig.calls.push_back("box"); };
    // Its own handler starts the watch or pauses it.
    rig.form1.cmdPause.Changed.connect([this] { rig.calls.push_back("cmdPause"); });
    rig.list.RowsReset.connect([this] { rig.calls.push_back("cleared"); });
    click(watch_button::clear);
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text,
              "Clearing the listed drives with pause Velmora timer. Proceed?");
    EXPECT_EQ(rig.host.boxes[0].buttons, BoxButtons::yesNo);
    EXPECT_EQ(rig.calls, (std::vector<std::string>{"drop", "box", "restore", "cmdPause",
                                                   "modifyIcon Form1", "cleared"}));
    EXPECT_EQ(rig.list.Count(), 0);
}

TEST_F(ClearTest, AFailedQuestionPutsTheWindowInFrontAgain) {
    rows({"A:\\"});
    rig.host.onBox = [](const Box&) { throw RuntimeError(error::outOfMemory); };
    click(watch_button::clear);
    EXPECT_EQ(rig.calls, (std::vector<std::string>{"drop", "restore"}));
    EXPECT_EQ(rig.list.Count(), 1);
    EXPECT_EQ(rig.alertTexts(), Paths{"Drive/Path Button Error Button Index:2 | Out of memory"});
}

TEST_F(ClearTest, NoOnlyRestoresStayOnTop) {
    rows({"A:\\"});
    rig.host.answers = {BoxAnswer::no};
    click(watch_button::clear);
    EXPECT_EQ(rig.calls, (std::vector<std::string>{"drop", "restore"}));
    EXPECT_EQ(rig.list.Count(), 1);
}

TEST_F(ClearTest, TheButtonDoesWhatTheLabelDoes) {
    rows({"A:\\"});
    rig.host.answers = {BoxAnswer::yes};
    rig.form1.cmdClear.userClick();
    EXPECT_EQ(rig.list.Count(), 0);
}

TEST_F(SelectDriveTest, ShowsTheSelectedRowInTheDriveView) {
    rows({"C:\\", "D:\\data"});
    rig.list.userSelect({2});
    WatchRow row(rig.list.ListItems(2));
    row.setFreeSpace("25 KB");
    row.setTotalSize("100 KB");
    FrmIndDri& view = rig.forms.frmIndDri;
    view.ListView1.RowsReset.connect([this] { rig.calls.push_back("figures"); });
    click(watch_button::selectDrive);
    EXPECT_EQ(rig.calls, (std::vector<std::string>{"drive view D:\\data", "figures"}));
    EXPECT_EQ(view.ListView1.ListItems(1).SubItems(1), "100 KB");
}

TEST_F(SelectDriveTest, WithoutASelectionEndsWithAnAlertAndNoBox) {
    rows({"C:\\"});
    click(watch_button::selectDrive);
    EXPECT_EQ(rig.calls, std::vector<std::string>{});
    EXPECT_EQ(rig.host.boxes.size(), 0u);
    EXPECT_EQ(rig.alertTexts(), Paths{"Drive/Path Button Error Button Index:3 | Object required"});
}

TEST_F(WatchListCommandsTest, RefreshMeasuresTheRowsThatAreThere) {
    rig.drive("C:", 10, 20);
    rows({"C:\\data"});
    click(watch_button::refresh);
    EXPECT_EQ(paths(), Paths{"C:\\"});
    EXPECT_EQ(WatchRow(rig.list.ListItems(1)).freeSpace(), "10 KB");
}

TEST_F(WatchListCommandsTest, AnErrorIsRecordedWithTimeRatingAndDescription) {
    rig.drive("C:", 10, 20);
    rows({"C:\\"});
    rig.machine.log.failCall(2, error::permissionDenied);
    click(watch_button::refresh);
    const ConstAlertRow alert(rig.form1.LVAlert.ListItems(1));
    EXPECT_EQ(alert.rating(), "Medium");
    EXPECT_EQ(alert.time(), "20260314 15:09:26");
    EXPECT_EQ(alert.text(), "Drive/Path Button Error Button Index:4 | Permission denied");
    EXPECT_EQ(rig.host.boxes.size(), 0u);
}

TEST_F(WatchListCommandsTest, NoErrorOfACallLeavesACommand) {
    for (const int label : {watch_button::add, watch_button::refresh}) {
        for (int n = 1; n <= 8; ++n) {
            Rig fresh;
            fresh.load();
            fresh.drive("C:", 10, 20);
            fresh.row("C:\\");
            fresh.host.paths = {"C:\\new"};
            fresh.machine.log.failCall(n, error::outOfMemory);
            EXPECT_EQ(errorOf([&] { button(fresh, label).userClick(); }), 0) << n;
            EXPECT_EQ(fresh.host.boxes.size(), 0u) << n;
        }
    }
}

TEST_F(WatchListCommandsTest, AnErrorWhileRecordingTheErrorIsSilent) {
    rig.form1.chkAutoSave.setValue(1);
    rig.machine.files[rig.form1.lblLog.Caption()] = "";
    rig.machine.lockedFiles[rig.form1.lblLog.Caption()] = error::permissionDenied;
    EXPECT_EQ(errorOf([this] { click(watch_button::selectDrive); }), 0);
    EXPECT_EQ(rig.alertTexts().size(), 1u);
}

TEST_F(AddByFileDialogTest, AsksInTheProgramsFolderAndAddsTheNameAlone) {
    rig.drive("C:", 10, 20);
    rig.host.paths = {"C:\\data\\my file.txt"};
    rig.form1.cmdLVAdd.userClick();
    EXPECT_EQ(rig.host.dialogs, Paths{"Folder/Path |C:\\Program Files\\Velmora"});
    EXPECT_EQ(paths(), Paths{"C:\\data\\my file.txt"});
    const ConstWatchRow row(rig.list.ListItems(1));
    EXPECT_EQ(row.freeSpace(), "");
    EXPECT_EQ(row.totalSize(), "");
    EXPECT_FALSE(row.watched());
    EXPECT_EQ(rig.machine.log.count(), 0);
}

TEST_F(AddByFileDialogTest, ADismissedDialogAddsNothing) {
    rig.form1.cmdLVAdd.userClick();
    EXPECT_EQ(rig.list.Count(), 0);
    EXPECT_TRUE(rig.form1.Timer1.Enabled());
}

TEST_F(ListEventsTest, ATickMakesTheRowBold) {
    ListItem& row = rig.row("C:\\", false);
    rig.list.userTick(1, true);
    EXPECT_TRUE(row.Bold());
    EXPECT_TRUE(row.ListSubItems(row.SubItemCount()).Bold());
    rig.list.userTick(1, false);
    EXPECT_FALSE(row.Bold());
}

TEST_F(ListEventsTest, ATickDuringACheckDoesNotChangeTheBoldFace) {
    ListItem& row = rig.row("C:\\", false);
    rig.forms.globals.bChecking = true;
    rig.list.userTick(1, true);
    EXPECT_TRUE(row.Checked());
    EXPECT_FALSE(row.Bold());
}

TEST_F(ListEventsTest, TheFirstClickOnAColumnSortsDescendingAndTheNextAscending) {
    rows({"B:\\", "C:\\", "A:\\"});
    rig.list.userClickPart(1);
    EXPECT_EQ(paths(), (Paths{"C:\\", "B:\\", "A:\\"}));
    EXPECT_EQ(rig.list.SortKey(), 0);
    EXPECT_TRUE(rig.list.Sorted());
    rig.list.userClickPart(1);
    EXPECT_EQ(paths(), (Paths{"A:\\", "B:\\", "C:\\"}));
}

TEST_F(ListEventsTest, AnotherColumnReversesThePresentOrderToo) {
    rows({"A:\\", "B:\\"});
    WatchRow(rig.list.ListItems(1)).setFreeSpace("2 KB");
    WatchRow(rig.list.ListItems(2)).setFreeSpace("1 KB");
    rig.list.userClickPart(1);
    rig.list.userClickPart(2);
    EXPECT_EQ(rig.list.SortKey(), 1);
    EXPECT_EQ(rig.list.SortOrder(), 0);
    EXPECT_EQ(paths(), (Paths{"B:\\", "A:\\"}));
}

TEST_F(ListEventsTest, TheRightButtonShowsTheMenuOfAListWithRows) {
    int shown = 0;
    rig.form1.mnuLstV.PoppedUp.connect([&] { ++shown; });
    rig.list.RightClick();
    EXPECT_EQ(shown, 0);
    rig.row("C:\\");
    rig.list.RightClick();
    EXPECT_EQ(shown, 1);
}

}  // namespace
}  // namespace velmora::tests
