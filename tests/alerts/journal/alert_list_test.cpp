// What an alert changes: the list, the counters, the duplicate stamp, the tray.
#include "alerts/alert_rig.h"

namespace velmora::tests {
namespace {

TEST(AlertList, ItsColumnsAreRatingTimeActionAndOneThatStaysEmpty) {
    AlertRig rig;
    ASSERT_EQ(rig.list.ColumnCount(), 4);
    const char* captions[] = {"Rating", "Time/Date", "Action Taken", "Alerts"};
    for (int i = 1; i <= 4; ++i) EXPECT_EQ(rig.list.ColumnHeaders(i).Text, captions[i - 1]);
}

TEST(AlertList, BeginsEmptyWithNothingCounted) {
    AlertRig rig;
    EXPECT_EQ(rig.list.Count(), 0);
    EXPECT_EQ(rig.raised(), 0);
    EXPECT_EQ(rig.high(), 0);
    EXPECT_FALSE(rig.blinks());
}

TEST(AlertList, AnAlertIsARowOfRatingTimeAndText) {
    AlertRig rig;
    rig.alerts.prcAlertInfo("03/14/26 15:09:26", "Medium", "some text", {}, nullptr);
    ASSERT_EQ(rig.list.Count(), 1);
    const ListItem& row = rig.list.ListItems(1);
    EXPECT_EQ(row.Text(), "Medium");
    EXPECT_EQ(row.SubItems(1), "03/14/26 15:09:26");
    EXPECT_EQ(row.SubItems(2), "some text");
    EXPECT_EQ(row.SubItems(3), "");
    EXPECT_EQ(row.Tag(), "");
    EXPECT_EQ(row.ListSubItems(1).ReportIcon(), "");
}

TEST(AlertList, TheNewestAlertIsOnTop) {
    AlertRig rig;
    rig.raiseMany(3);
    EXPECT_EQ(rig.texts(), "3 2 1");
}

TEST(AlertList, TextsKeepLineBreaksAndQuotes) {
    AlertRig rig;
    const std::string text = "Files modified: \"a b\"\r\n.\r\n'c', d | \xC3\xA4\r\n";
    rig.raise(text, "High", &rig.row);
    EXPECT_EQ(rig.text(1), text);
    EXPECT_EQ(rig.stamp(), text);
}

TEST(AlertList, AnEmptyTextIsAnAlertToo) {
    AlertRig rig;
    rig.raise("");
    EXPECT_EQ(rig.list.Count(), 1);
    EXPECT_EQ(rig.raised(), 1);
}

TEST(AlertList, TwoIdenticalAlertsOnOneRowAddOneAndCountOnce) {
    AlertRig rig;
    rig.raise("A", "High", &rig.row);
    rig.raise("A", "High", &rig.row);
    EXPECT_EQ(rig.texts(), "A");
    EXPECT_EQ(rig.raised(), 1);
    EXPECT_EQ(rig.high(), 1);
}

TEST(AlertList, TwoIdenticalAlertsWithoutARowAddTwoAndCountTwice) {
    AlertRig rig;
    rig.raise("A");
    rig.raise("A");
    EXPECT_EQ(rig.texts(), "A A");
    EXPECT_EQ(rig.raised(), 2);
    EXPECT_EQ(rig.high(), 2);
}

TEST(AlertList, OnlyTheFirstTextOfARowIsDroppedWhenRepeated) {
    AlertRig rig;
    for (const char* text : {"A", "B", "A", "B"}) rig.raise(text, "High", &rig.row);
    EXPECT_EQ(rig.texts(), "B B A");
    EXPECT_EQ(rig.raised(), 3);
    EXPECT_EQ(rig.stamp(), "A");
}

TEST(AlertList, ADifferentTextIsAddedEveryTimeAndKeepsTheStamp) {
    AlertRig rig;
    rig.raise("A", "High", &rig.row);
    for (int i = 0; i < 3; ++i) rig.raise("B", "High", &rig.row);
    EXPECT_EQ(rig.texts(), "B B B A");
    EXPECT_EQ(rig.stamp(), "A");
}

TEST(AlertList, StampsAreComparedExactly) {
    AlertRig rig;
    for (const char* text : {"A", "a", "A ", " A"}) rig.raise(text, "High", &rig.row);
    EXPECT_EQ(rig.raised(), 4);
}

TEST(AlertList, ARepeatIsDroppedWithAnyRatingAndTime) {
    AlertRig rig;
    rig.raise("A", "Medium", &rig.row);
    rig.alerts.prcAlertInfo("another time", "High", "A", {1, 1, 0, 1}, &rig.row);
    EXPECT_EQ(rig.raised(), 1);
    EXPECT_FALSE(rig.blinks());
}

TEST(AlertList, ARepeatIsNeitherLoggedNorBlinked) {
    AlertRig rig;
    rig.raise("A", "High", &rig.row);
    rig.keepLog();
    rig.forms.sysWorkSystray.tmrSystray.setEnabled(false);
    rig.raise("A", "High", &rig.row);
    EXPECT_EQ(rig.log(), "");
    EXPECT_FALSE(rig.blinks());
    EXPECT_EQ(rig.machine.log.count(), 0);
}

TEST(AlertList, EveryRowHasItsOwnStamp) {
    AlertRig rig;
    ListItem& other = rig.form1.ListView1.Add("D:\\");
    rig.raise("A", "High", &rig.row);
    rig.raise("A", "High", &other);
    EXPECT_EQ(rig.texts(), "A A");
}

TEST(AlertList, AnAlertWithoutARowTouchesNoStamp) {
    AlertRig rig;
    rig.raise("A");
    EXPECT_EQ(rig.stamp(), "");
    rig.raise("A", "High", &rig.row);
    EXPECT_EQ(rig.texts(), "A A");
}

TEST(AlertList, AfterTheStampIsClearedTheSameTextIsAddedAgain) {
    AlertRig rig;
    rig.raise("A", "High", &rig.row);
    WatchRow(rig.row).setFirstAlert("");
    EXPECT_EQ(rig.stamp(), "");
    rig.raise("A", "High", &rig.row);
    EXPECT_EQ(rig.texts(), "A A");
    EXPECT_EQ(rig.stamp(), "A");
}

TEST(AlertList, AnEmptyFirstTextSetsNoStamp) {
    AlertRig rig;
    rig.raise("", "High", &rig.row);
    rig.raise("A", "High", &rig.row);
    EXPECT_EQ(rig.stamp(), "A");
    EXPECT_EQ(rig.raised(), 2);
}

TEST(AlertList, OnlyTheExactRatingHighIsCountedAsHigh) {
    AlertRig rig;
    for (const char* rating : {"High", "high", "HIGH", "High ", "Medium", ""})
        rig.raise("x", rating);
    EXPECT_EQ(rig.raised(), 6);
    EXPECT_EQ(rig.high(), 1);
}

TEST(AlertList, LowerCaseHighBlinksTheTrayButDoesNotCount) {
    AlertRig rig;
    rig.raise("x", "high");
    EXPECT_TRUE(rig.blinks());
    EXPECT_EQ(rig.high(), 0);
    EXPECT_EQ(rig.raised(), 1);
}

TEST(AlertList, MediumLeavesTheTrayAsItIs) {
    AlertRig rig;
    rig.raise("x", "Medium");
    EXPECT_FALSE(rig.blinks());
    rig.raise("x", "High");
    rig.raise("x", "Medium");
    EXPECT_TRUE(rig.blinks());
}

TEST(AlertList, OnlyAFourthFlagOfOneForcesTheBlinking) {
    AlertRig rig;
    rig.raise("x", "Medium", nullptr, {1, 1, 1, 0});
    rig.raise("x", "Medium", nullptr, {1, 1, 1, 2});
    EXPECT_FALSE(rig.blinks());
    rig.raise("x", "Medium", nullptr, {0, 0, 0, 1});
    EXPECT_TRUE(rig.blinks());
    EXPECT_EQ(rig.high(), 0);
}

TEST(AlertList, ACounterThatOverflowsIsErrorSixWithTheRowAlreadyThere) {
    AlertRig rig;
    rig.forms.globals.lngAlertsRaised = 2147483647;
    EXPECT_EQ(errorOf([&] { rig.raise("x"); }), 6);
    EXPECT_EQ(rig.texts(), "x");
    EXPECT_EQ(rig.raised(), 2147483647);
    EXPECT_EQ(rig.high(), 0);
    EXPECT_FALSE(rig.blinks());
}

TEST(AlertList, AHighCounterThatOverflowsIsErrorSixAfterTheFirstWasCounted) {
    AlertRig rig;
    rig.forms.globals.lngHighRatedAlerts = 2147483647;
    rig.raise("y", "Medium");
    EXPECT_EQ(errorOf([&] { rig.raise("x"); }), 6);
    EXPECT_EQ(rig.texts(), "x y");
    EXPECT_EQ(rig.raised(), 2);
}

TEST(AlertList, AListenerSeesTheFinishedRowOnce) {
    AlertRig rig;
    std::string seen;
    rig.alerts.Raised.connect([&](const ListItem& row) {
        seen += row.Text() + "|" + row.SubItems(1) + "|" + row.SubItems(2) + ";";
    });
    rig.raise("A", "High", &rig.row);
    rig.raise("A", "High", &rig.row);
    EXPECT_EQ(seen, "High|20260314 15:09|A;");
}

TEST(AlertList, ThePreparingOperationDoesNothing) {
    AlertRig rig;
    rig.alerts.prcAlertInfoPre();
    EXPECT_EQ(rig.list.Count(), 0);
    EXPECT_EQ(rig.raised(), 0);
}

TEST(AlertList, AClickOnAColumnReversesTheOrderWhicheverWasSortedBefore) {
    AlertRig rig;
    for (const char* text : {"b", "C", "a"}) rig.raise(text);
    EXPECT_EQ(rig.list.SortOrder(), 0);
    EXPECT_FALSE(rig.list.Sorted());
    rig.list.ColumnClick(3);
    EXPECT_EQ(rig.list.SortKey(), 2);
    EXPECT_EQ(rig.list.SortOrder(), 1);
    EXPECT_TRUE(rig.list.Sorted());
    EXPECT_EQ(rig.texts(), "C b a");
    rig.list.ColumnClick(1);
    EXPECT_EQ(rig.list.SortKey(), 0);
    EXPECT_EQ(rig.list.SortOrder(), 0);
    rig.list.ColumnClick(3);
    EXPECT_EQ(rig.list.SortOrder(), 1);
}

TEST(AlertList, TimesOfSeveralFormsSortAsText) {
    AlertRig rig;
    for (const char* time : {"2026/03/14 15:09:26", "03/15/26 15:09:26", "20260314 15:09"}) {
        rig.alerts.prcAlertInfo(time, "High", time, {}, nullptr);
    }
    rig.list.ColumnClick(2);
    rig.list.ColumnClick(2);
    EXPECT_EQ(rig.texts(), "03/15/26 15:09:26 2026/03/14 15:09:26 20260314 15:09");
}

TEST(AlertList, ANewAlertIsOnTopOfASortedListToo) {
    AlertRig rig;
    rig.raiseMany(3);
    rig.list.ColumnClick(3);
    rig.raise("0");
    EXPECT_EQ(rig.text(1), "0");
}

TEST(AlertList, AClickOnAMissingColumnIsIgnored) {
    AlertRig rig;
    rig.raiseMany(2);
    rig.list.ColumnClick(9);
    EXPECT_EQ(rig.texts(), "2 1");
}

TEST(AlertList, NoSecondIconIsAddedWhileTheProgramsOwnIsInUse) {
    AlertRig rig;
    rig.form1.cmdAddIcon.Click();
    EXPECT_TRUE(rig.notifyArea.sent.empty());
}

TEST(AlertList, TheAlertIconIsAddedToTheTray) {
    AlertRig rig;
    rig.form1.chkSystray.setDesignValue(0);
    rig.form1.cmdAddIcon.Click();
    ASSERT_EQ(rig.notifyArea.sent.size(), 1u);
    const auto& [message, data] = rig.notifyArea.sent[0];
    EXPECT_EQ(message, NotifyMessage::add);
    EXPECT_EQ(data.tip, "Alert!");
    EXPECT_EQ(data.flags, 7u);
    EXPECT_EQ(data.callbackMessage, 512u);
    EXPECT_EQ(data.window, "Form1");
    EXPECT_EQ(data.icon, "tray 1");
}

TEST(ListSorting, TheSpecifiedFilesSortByTheSameRoutine) {
    AlertRig rig;
    rig.form1.LVFile.Add("a");
    rig.form1.LVFile.Add("b");
    rig.form1.LVFile.userClickPart(1);
    EXPECT_EQ(rig.form1.LVFile.ListItems(1).Text(), "b");
    EXPECT_EQ(rig.form1.LVFile.SortOrder(), 1);
}

}  // namespace
}  // namespace velmora::tests
