// The action that picks another row as the target of a move.
#include "alerts/actions/action_rig.h"
#include "rows/watch_row.h"

namespace velmora::tests {
namespace {

struct AutoMoveTest : testing::Test, ActionRig {
    /// The short row has a text that is a number, as no path has.
    void useNumber(const std::string& text = "5") { shortRowWatches(text); }
    int autoMove() { return errorOf(act::autoMove); }
};

TEST_F(AutoMoveTest, WithoutAnotherRowNothingHappens) {
    listFile("C:\\a");
    EXPECT_EQ(autoMove(), 0);
    EXPECT_EQ(machine.log.count(), 0);
    EXPECT_EQ(alertCount(), 0);
    EXPECT_EQ(listed(), "C:\\a");
}

TEST_F(AutoMoveTest, RowsThatAreUnavailableAreNoTargets) {
    watch("D:\\", "N/A");
    watch("E:\\", "Path n/a now");
    EXPECT_EQ(autoMove(), 0);
    EXPECT_EQ(host.yields, 0);
}

TEST_F(AutoMoveTest, APathIsNoNumberAndFailsBeforeAnythingIsTouched) {
    watch("D:\\");
    listFile("C:\\a");
    listFile("D:\\a");
    EXPECT_EQ(autoMove(), error::typeMismatch);
    EXPECT_EQ(machine.log.count(), 0);
    EXPECT_EQ(host.yields, 0);
    EXPECT_EQ(files.Count(), 2);
    EXPECT_EQ(alertCount(), 0);
}

TEST_F(AutoMoveTest, TheLastAvailableRowOfTheListIsTheTarget) {
    useNumber();
    watch("D:\\");
    watch("E:\\");
    watch("F:\\", "N/A");
    listFile("E:\\a");
    EXPECT_EQ(autoMove(), 0);
    // Files of the target's own root are handled; they are moved to the specified path.
    EXPECT_EQ(machine.log.countOf("MoveFileA E:\\a > D:\\a"), 1);
    EXPECT_TRUE(exists("D:\\a"));
    EXPECT_EQ(listed(), "");
    EXPECT_EQ(alert(1), medium("Auto Moved File: E:\\a to D:\\ Size: 3\r\n.\r\n"));
    EXPECT_EQ(host.yields, 1);
}

TEST_F(AutoMoveTest, TheOrderOfTheListDecidesNotTheFreeSpace) {
    useNumber();
    watch("E:\\", "9,000,000 KB");
    watch("D:\\", "1 KB");
    listFile("E:\\a");
    EXPECT_EQ(autoMove(), 0);
    EXPECT_EQ(listed(), "E:\\a");
}

TEST_F(AutoMoveTest, TheShortRowItselfIsNoTarget) {
    watch("7");
    watch("E:\\");
    watch("5");
    list.ListItems(2).setText("E:\\");
    shortOf(4);
    listFile("E:\\a");
    EXPECT_EQ(autoMove(), 0);
    EXPECT_EQ(listed(), "");
}

TEST_F(AutoMoveTest, ANumberBeyondSixteenBitsIsAnOverflow) {
    useNumber("32768");
    watch("D:\\");
    EXPECT_EQ(autoMove(), error::overflow);
    EXPECT_EQ(host.yields, 0);
}

TEST_F(AutoMoveTest, TheThresholdIsReadAgainFromTheBox) {
    useNumber();
    watch("D:\\");
    form1.txtSpace.setText("777");
    EXPECT_EQ(autoMove(), 0);
    EXPECT_EQ(shortage->lngMinSpace, 777);
}

TEST_F(AutoMoveTest, TheThresholdIsReadAgainFromTheRowWithTheSecondOption) {
    useNumber();
    watch("D:\\");
    WatchRow(list.ListItems(1)).setTrigger("55");
    form1.OpDriv[1].choose();
    EXPECT_EQ(autoMove(), 0);
    EXPECT_EQ(shortage->lngMinSpace, 55);
}

TEST_F(AutoMoveTest, AnEmptyThresholdIsAnErrorAfterTheMove) {
    useNumber();
    watch("E:\\");
    form1.OpDriv[1].choose();
    form1.chkSeq.setValue(1);
    listFile("E:\\a");
    EXPECT_EQ(autoMove(), error::typeMismatch);
    EXPECT_TRUE(exists("D:\\a"));
}

TEST_F(AutoMoveTest, ATargetRemovedDuringTheYieldDoesNotMatter) {
    useNumber();
    WatchRow(watch("E:\\")).setTrigger("100");
    form1.OpDriv[1].choose();
    WatchRow(list.ListItems(1)).setTrigger("55");
    listFile("E:\\a");
    host.onYield = [this](int) { list.Remove(2); };
    EXPECT_EQ(autoMove(), 0);
    EXPECT_TRUE(exists("D:\\a"));
}

TEST_F(AutoMoveTest, AShortRowRemovedDuringTheYieldIsAnError) {
    useNumber();
    watch("E:\\");
    form1.OpDriv[1].choose();
    listFile("D:\\a");
    host.onYield = [this](int) { list.Clear(); };
    EXPECT_EQ(autoMove(), error::indexOutOfBounds);
}

TEST_F(AutoMoveTest, AListedRowRemovedDuringTheYieldIsAnErrorAndNoOtherIsUsed) {
    useNumber();
    watch("E:\\");
    listFile("E:\\a");
    listFile("E:\\b");
    host.onYield = [this](int) { files.Remove(1); };
    EXPECT_EQ(autoMove(), error::indexOutOfBounds);
    EXPECT_TRUE(exists("E:\\a") && exists("E:\\b"));
    EXPECT_EQ(listed(), "E:\\b");
}

}  // namespace
}  // namespace velmora::tests
