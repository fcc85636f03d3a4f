// What the figures of a watched row mean, and the state of the whole watch in a line.
#include "monitor/row_usage.h"

#include "monitor/check_rig.h"
#include "monitor/watch_summary.h"
#include "rows/watch_columns.h"

namespace velmora::tests {
namespace {

struct UsageRig : Rig {
    UsageRig() {
        addWatchColumns(list);
        form1.txtSpace.setText("1000");
        form1.Timer1.setEnabled(true);
    }
    /// A ticked row that a check has reached.
    WatchRow add(const std::string& path, const std::string& free,
                 const std::string& total = "10,000 KB") {
        WatchRow added(row(path));
        added.setFreeSpace(free);
        added.setTotalSize(total);
        added.setLastChecked("03/14 15:09:26");
        added.item().setChecked(true);
        return added;
    }
    RowUsage usage(const WatchRow& row) { return usageOf(row, form1, platform.regional); }
    WatchSummary summary() { return summaryOf(forms, platform.regional); }
};

using Mood = WatchSummary::Mood;

TEST(RowUsageTest, SharesAreThoseOfTheWhole) {
    UsageRig rig;
    const RowUsage usage = rig.usage(rig.add("C:\\", "2,500 KB"));
    EXPECT_EQ(usage.freeKB, 2500);
    EXPECT_EQ(usage.totalKB, 10'000);
    EXPECT_EQ(usage.triggerKB, 1000);
    EXPECT_DOUBLE_EQ(*usage.usedShare(), 0.75);
    EXPECT_DOUBLE_EQ(*usage.shareAtTrigger(), 0.9);
}

TEST(RowUsageTest, TheLeastMinimumHasAShareAndNoMinimumHasNone) {
    UsageRig rig;
    WatchRow row = rig.add("C:\\", "2,500 KB");
    rig.form1.chkDrive.setValue(1);
    row.setTrigger("1");
    EXPECT_DOUBLE_EQ(rig.usage(row).shareAtTrigger().value_or(0), 0.9999);
    EXPECT_EQ(rig.usage(row).state, RowState::fine);
    for (const char* none : {"0", "", "much"}) {
        row.setTrigger(none);
        EXPECT_FALSE(rig.usage(row).shareAtTrigger()) << none;
    }
}

TEST(RowUsageTest, SharesStayWithinTheWhole) {
    UsageRig rig;
    const WatchRow row = rig.add("C:\\", "12,000 KB");
    EXPECT_EQ(*rig.usage(row).usedShare(), 0);
    rig.form1.txtSpace.setText("20000");
    EXPECT_EQ(*rig.usage(row).shareAtTrigger(), 0);
}

TEST(RowUsageTest, AMinimumOfNothingIsReachedNowhere) {
    UsageRig rig;
    const WatchRow row = rig.add("C:\\", "500 KB");
    rig.form1.txtSpace.setText("0");
    EXPECT_FALSE(rig.usage(row).shareAtTrigger());
    rig.form1.txtSpace.setText("1");
    EXPECT_TRUE(rig.usage(row).shareAtTrigger());
}

TEST(RowUsageTest, WithoutASizeThereIsNoShare) {
    UsageRig rig;
    for (const char* total : {"", "0 KB", "N/A"}) {
        const RowUsage usage = rig.usage(rig.add("C:\\", "500 KB", total));
        EXPECT_FALSE(usage.totalKB) << total;
        EXPECT_FALSE(usage.usedShare()) << total;
        EXPECT_FALSE(usage.shareAtTrigger()) << total;
    }
    for (const char* free : {"", "N/A check drive or media", "much"}) {
        EXPECT_FALSE(rig.usage(rig.add("C:\\", free)).usedShare()) << free;
    }
}

TEST(RowUsageTest, TheMinimumIsOneForAllOrTheRowsOwnInKBOrPercent) {
    UsageRig rig;
    WatchRow row = rig.add("C:\\", "500 KB");
    row.setTrigger("25");
    EXPECT_EQ(rig.usage(row).triggerKB, 1000);
    rig.form1.OpDriv[1].choose();
    rig.form1.txtSpace.setText("10");
    EXPECT_EQ(rig.usage(row).triggerKB, 1000);
    rig.form1.txtSpace.setText("5");
    EXPECT_EQ(rig.usage(row).triggerKB, 500);
    rig.form1.chkDrive.setValue(1);
    row.setTrigger("25");
    EXPECT_EQ(rig.usage(row).triggerKB, 2500);
    row.setTrigger("none");
    EXPECT_FALSE(rig.usage(row).triggerKB);
}

TEST(RowUsageTest, TheStateFollowsFreeSpaceAndMinimum) {
    UsageRig rig;
    const auto state = [&](const char* free) { return rig.usage(rig.add("C:\\", free)).state; };
    EXPECT_EQ(state("999 KB"), RowState::shortOfSpace);
    EXPECT_EQ(state("1,000 KB"), RowState::nearShortage);
    EXPECT_EQ(state("1,249 KB"), RowState::nearShortage);
    EXPECT_EQ(state("1,250 KB"), RowState::fine);
    EXPECT_EQ(state("N/A, drive not ready"), RowState::unavailable);
    EXPECT_EQ(state(""), RowState::notChecked);
}

TEST(RowUsageTest, NothingIsFineThatIsntKnownToBe) {
    UsageRig rig;
    WatchRow row = rig.add("C:\\", "5,000 KB");
    EXPECT_EQ(rig.usage(row).state, RowState::fine);
    row.setStateIcon(state_icon::alert);
    EXPECT_EQ(rig.usage(row).state, RowState::shortOfSpace);
    row.setStateIcon(state_icon::ok);
    for (const char* minimum : {"0", "-5"}) {
        rig.form1.txtSpace.setText(minimum);
        EXPECT_EQ(rig.usage(row).state, RowState::noMinimum) << minimum;
    }
    row.setLastChecked("");
    EXPECT_EQ(rig.usage(row).state, RowState::notChecked);
    row.item().setChecked(false);
    EXPECT_EQ(rig.usage(row).state, RowState::notWatched);
}

TEST(RowUsageTest, EachStateHasItsWords) {
    EXPECT_STREQ(wordsFor(RowState::notWatched), "not watched");
    EXPECT_STREQ(wordsFor(RowState::notChecked), "not checked yet");
    EXPECT_STREQ(wordsFor(RowState::unavailable), "not available");
    EXPECT_STREQ(wordsFor(RowState::noMinimum), "without a minimum");
    EXPECT_STREQ(wordsFor(RowState::shortOfSpace), "short of space");
    EXPECT_STREQ(wordsFor(RowState::nearShortage), "near its minimum");
    EXPECT_STREQ(wordsFor(RowState::fine), "ok");
}

TEST(WatchSummaryTest, WithoutATickNothingIsWatched) {
    UsageRig rig;
    rig.add("C:\\", "5,000 KB").item().setChecked(false);
    EXPECT_EQ(rig.summary().text, "Nothing is watched yet: tick a drive");
    EXPECT_EQ(rig.summary().mood, Mood::neutral);
    EXPECT_EQ(rig.summary().watched, 0);
    rig.form1.Timer1.setEnabled(false);
    EXPECT_EQ(rig.summary().text, "Nothing is watched yet: tick a drive");
}

TEST(WatchSummaryTest, AllFineOnlyWhereAllIs) {
    UsageRig rig;
    rig.add("C:\\", "5,000 KB");
    rig.add("D:\\", "5,000 KB");
    rig.add("E:\\", "5,000 KB").item().setChecked(false);
    EXPECT_EQ(rig.summary().text, "2 watched, all fine");
    EXPECT_EQ(rig.summary().mood, Mood::good);
    EXPECT_EQ(rig.summary().watched, 2);
}

TEST(WatchSummaryTest, CountsWhatIsWrongTheWorstFirst) {
    UsageRig rig;
    rig.add("C:\\", "5,000 KB");
    rig.add("D:\\", "1,100 KB");
    EXPECT_EQ(rig.summary().text, "1 of 2 near its minimum");
    EXPECT_EQ(rig.summary().mood, Mood::warning);
    rig.add("E:\\", "N/A, drive not ready");
    EXPECT_EQ(rig.summary().text, "1 of 3 not available, 1 near its minimum");
    EXPECT_EQ(rig.summary().mood, Mood::warning);
    rig.add("F:\\", "10 KB");
    rig.add("G:\\", "10 KB");
    EXPECT_EQ(rig.summary().text, "2 of 5 short of space, 1 not available, 1 near its minimum");
    EXPECT_EQ(rig.summary().mood, Mood::bad);
}

TEST(WatchSummaryTest, NamesThePathsOfWhatIsMostSerious) {
    UsageRig rig;
    rig.add("C:\\", "5,000 KB");
    EXPECT_EQ(rig.summary().paths, "");
    rig.add("D:\\", "1,100 KB");
    EXPECT_EQ(rig.summary().paths, "D:\\");
    rig.add("E:\\", "N/A, drive not ready");
    EXPECT_EQ(rig.summary().paths, "E:\\");
    rig.add("F:\\", "10 KB");
    rig.add("G:\\", "10 KB");
    rig.add("H:\\", "10 KB");
    EXPECT_EQ(rig.summary().paths, "F:\\, G:\\, H:\\");
    rig.add("I:\\", "10 KB");
    EXPECT_EQ(rig.summary().paths, "F:\\, G:\\, H:\\ and 1 more");
    rig.form1.Timer1.setEnabled(false);
    EXPECT_EQ(rig.summary().paths, "F:\\, G:\\, H:\\ and 1 more");
}

TEST(WatchSummaryTest, ARowThatWasNotCheckedIsNotFine) {
    UsageRig rig;
    rig.add("C:\\", "5,000 KB").setLastChecked("");
    EXPECT_EQ(rig.summary().text, "1 watched, not checked yet");
    EXPECT_EQ(rig.summary().mood, Mood::neutral);
    rig.add("D:\\", "5,000 KB");
    EXPECT_EQ(rig.summary().text, "2 watched, 1 not checked yet");
    EXPECT_EQ(rig.summary().mood, Mood::neutral);
    rig.add("E:\\", "10 KB");
    EXPECT_EQ(rig.summary().text, "1 of 3 short of space, 1 not checked yet");
    EXPECT_EQ(rig.summary().mood, Mood::bad);
}

TEST(WatchSummaryTest, APausedWatchSaysSoFirst) {
    UsageRig rig;
    rig.add("C:\\", "5,000 KB");
    rig.form1.Timer1.setEnabled(false);
    EXPECT_EQ(rig.summary().text, "Paused");
    EXPECT_EQ(rig.summary().mood, Mood::warning);
    rig.add("D:\\", "10 KB");
    EXPECT_EQ(rig.summary().text, "Paused, 1 of 2 short of space");
    // The timer is off while a check runs.
    rig.forms.globals.bChecking = true;
    EXPECT_EQ(rig.summary().text, "1 of 2 short of space");
}

TEST(WatchSummaryTest, TheTimerDecidesAndNotTheCaptionOfTheButton) {
    UsageRig rig;
    rig.add("C:\\", "5,000 KB");
    rig.form1.cmdPause.setCaption(watch_caption::pause);
    rig.form1.Timer1.setEnabled(false);
    EXPECT_EQ(rig.summary().text, "Paused");
    rig.form1.cmdPause.setCaption(watch_caption::start);
    rig.form1.Timer1.setEnabled(true);
    EXPECT_EQ(rig.summary().text, "1 watched, all fine");
}

}  // namespace
}  // namespace velmora::tests
