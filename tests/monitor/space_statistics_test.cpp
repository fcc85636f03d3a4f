// The figures of the overview and the space change rate.
#include "monitor/space_statistics.h"

#include "base/errors.h"
#include "monitor/check_rig.h"
#include "rows/watch_columns.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

struct StatisticsRig : Rig {
    StatisticsRig() {
        addWatchColumns(list);
        form1.txtTime.setText("10");
    }
    /// A row whose free space was `before` and is `now`, without " KB".
    WatchRow change(const std::string& before, const std::string& now, bool ticked = true) {
        WatchRow added(row("C:\\", ticked));
        added.setPreviousFree(before);
        added.setFreeSpace(now + " KB");
        return added;
    }
    std::string rate() { return statistics.prcSpaceRateChange(list, form1.txtTime.Text()); }
};

TEST(SpaceRate, IsNotAvailableWithoutRows) {
    StatisticsRig rig;
    EXPECT_EQ(rig.rate(), "N/A");
    EXPECT_EQ(rig.host.yields, 0);
}

TEST(SpaceRate, YieldsBeforeEachRow) {
    StatisticsRig rig;
    for (int i = 0; i < 3; ++i) rig.row("C:\\", false);
    EXPECT_EQ(rig.rate(), "0");
    EXPECT_EQ(rig.host.yields, 3);
}

TEST(SpaceRate, AThousandKilobytesInTenSecondsAreShownAsZero) {
    StatisticsRig rig;
    rig.change("5000", "6000");
    EXPECT_EQ(rig.rate(), "0");
}

TEST(SpaceRate, AFirstIntervalOfOneSecondIsKept) {
    StatisticsRig rig;
    rig.form1.txtTime.setText("1");
    rig.change("1000000", "1010240");
    EXPECT_EQ(rig.rate(), "10");  // 10240 / 1 / 1024
    rig.form1.txtTime.setText("10");
    EXPECT_EQ(rig.rate(), "10");
}

TEST(SpaceRate, AFirstIntervalBelowOneSecondIsReadAgain) {
    StatisticsRig rig;
    rig.form1.txtTime.setText("0");
    rig.change("1000000", "1010240");
    EXPECT_EQ(rig.rate(), "10");
    rig.form1.txtTime.setText("10");
    EXPECT_EQ(rig.rate(), "1");
}

TEST(SpaceRate, IsDividedBy1024OnceMoreAndRoundedToAWholeNumber) {
    struct Case {
        const char* now;
        const char* rate;
    };
    // Change / 10 / 1024: 5119 gives 0.4999, 5120 gives 0.5, which is rounded away from zero.
    for (const Case& each : {Case{"1005119", "0"}, Case{"1005120", "1"}, Case{"1010240", "1"},
                             Case{"1015359", "1"}, Case{"1015360", "2"}, Case{"2000000", "98"},
                             Case{"994881", "0"}, Case{"994880", "-1"}, Case{"0", "-98"}}) {
        StatisticsRig rig;
        rig.change("1000000", each.now);
        EXPECT_EQ(rig.rate(), each.rate) << each.now;
    }
}

TEST(SpaceRate, IsRoundedToTwoDecimalsFirst) {
    StatisticsRig rig;
    rig.form1.txtTime.setText("3");
    rig.change("0", "1535");  // 511.666... becomes 511.67, still below 512
    EXPECT_EQ(rig.rate(), "0");
    StatisticsRig above;
    above.form1.txtTime.setText("1000");
    above.change("0", "511995");  // 511.995 becomes 512
    EXPECT_EQ(above.rate(), "1");
}

TEST(SpaceRate, HasNoDigitGroups) {
    StatisticsRig rig;
    rig.form1.txtTime.setText("1");
    rig.change("0", "2,000,000,000");
    EXPECT_EQ(rig.rate(), "1953125");
}

TEST(SpaceRate, ARateTooSmallForItsTwoDecimalsIsZero) {
    StatisticsRig rig;
    rig.form1.txtTime.setText("1000");
    rig.change("0", "1");  // 0.001
    EXPECT_EQ(rig.rate(), "0");
}

TEST(SpaceRate, CountsTheTickedRowsThatHaveAnEarlierValue) {
    StatisticsRig rig;
    rig.form1.txtTime.setText("1");
    rig.change("1,000,000", "1,002,048");
    rig.change("0", "1,024");
    rig.change("0", "1,000,000", false);
    rig.change("", "1,000,000");
    EXPECT_EQ(rig.rate(), "3");
}

TEST(SpaceRate, ChangesOfSeveralRowsCancelEachOther) {
    StatisticsRig rig;
    rig.change("0", "1000000");
    rig.change("1000000", "0");
    EXPECT_EQ(rig.rate(), "0");
}

TEST(SpaceRate, ARowThatIsNotAvailableHasNoValues) {
    for (const char* text :
         {"N/A, drive not ready", "N/A, drive not ready.", "N/A check drive or media", "n/a"}) {
        StatisticsRig rig;
        rig.form1.txtTime.setText("1");
        rig.change("0", "1024");
        rig.change("1000000", "0").setFreeSpace(text);
        EXPECT_EQ(rig.rate(), "1") << text;
    }
}

TEST(SpaceRate, ItsDivisorIsTheIntervalAtTheFirstUse) {
    StatisticsRig rig;
    rig.change("0", "20480");
    EXPECT_EQ(rig.rate(), "2");
    rig.form1.txtTime.setText("1");
    EXPECT_EQ(rig.rate(), "2");
}

TEST(SpaceRate, WithoutRowsTheDivisorIsNotFixedYet) {
    StatisticsRig rig;
    rig.rate();
    rig.form1.txtTime.setText("20");
    rig.change("0", "20480");
    EXPECT_EQ(rig.rate(), "1");
}

TEST(SpaceRate, AnIntervalOfZeroDividesByOneUntilThereIsOne) {
    StatisticsRig rig;
    rig.form1.txtTime.setText("0");
    rig.change("0", "20480");
    EXPECT_EQ(rig.rate(), "20");
    rig.form1.txtTime.setText("10");
    EXPECT_EQ(rig.rate(), "2");
}

TEST(SpaceRate, TheSecondsPassedAreNotUsed) {
    StatisticsRig rig;
    rig.change("0", "20480");
    EXPECT_EQ(rig.statistics.prcSpaceRateChange(rig.list, "1"), "2");
    EXPECT_EQ(rig.statistics.prcSpaceRateChange(rig.list, "no number"), "2");
}

TEST(SpaceRate, FiguresThatAreNoNumbersAreATypeMismatch) {
    StatisticsRig before;
    before.change("soon", "5");
    EXPECT_EQ(errorOf([&] { before.rate(); }), error::typeMismatch);
    StatisticsRig now;
    now.change("5", "soon");
    EXPECT_EQ(errorOf([&] { now.rate(); }), error::typeMismatch);
    StatisticsRig interval;
    interval.form1.txtTime.setText("soon");
    interval.change("5", "6");
    EXPECT_EQ(errorOf([&] { interval.rate(); }), error::typeMismatch);
}

TEST(SpaceRate, AChangeBeyond32BitsStopsAtTheGreatestNumber) {
    StatisticsRig rig;
    rig.form1.txtTime.setText("1");
    rig.change("0", "5,000,000,000");
    EXPECT_EQ(rig.rate(), "2097152");  // 2147483647 / 1024
    StatisticsRig lost;
    lost.form1.txtTime.setText("1");
    lost.change("5,000,000,000", "0");
    EXPECT_EQ(lost.rate(), "-2097152");
}

TEST(SpaceRate, RowsRemovedInAYieldAreLeftOut) {
    StatisticsRig rig;
    rig.form1.txtTime.setText("1");
    for (int i = 0; i < 4; ++i) rig.change("0", "1024");
    rig.host.onYield = [&](int n) {
        if (n == 2) {
            rig.list.Remove(4);
            rig.list.Remove(3);
        }
    };
    EXPECT_EQ(rig.rate(), "3");  // the last row was counted before it went
    rig.host.yields = 0;
    rig.host.onYield = [&](int) { rig.list.Clear(); };
    EXPECT_EQ(rig.rate(), "0");
}

TEST(Statistics, TheOverviewShowsCountersRowsAndRate) {
    StatisticsRig rig;
    rig.change("0", "1,024,000");
    rig.change("", "5");
    rig.change("", "5", false);
    rig.forms.globals.lngHighRatedAlerts = 3;
    rig.forms.globals.lngAlertsRaised = 1234;
    rig.forms.globals.lngTimesChecked = 56;
    rig.statistics.prcUpdateStatistics();
    EXPECT_EQ(rig.form1.lblHighRatedAlerts.Caption(), "3");
    EXPECT_EQ(rig.form1.lblAlertsRaised.Caption(), "1234");
    EXPECT_EQ(rig.form1.lblDriveOnMonitor.Caption(), "2");
    EXPECT_EQ(rig.form1.lblSpaceChangeRate.Caption(), "100");
    EXPECT_EQ(rig.form1.lblTimesMonitor.Caption(), "56");
}

TEST(Statistics, WithoutRowsNoneIsWatchedAndTheRateIsNotAvailable) {
    StatisticsRig rig;
    rig.statistics.prcUpdateStatistics();
    EXPECT_EQ(rig.form1.lblDriveOnMonitor.Caption(), "0");
    EXPECT_EQ(rig.form1.lblSpaceChangeRate.Caption(), "N/A");
    EXPECT_EQ(rig.form1.lblHighRatedAlerts.Caption(), "0");
    EXPECT_EQ(rig.form1.lblAlertsRaised.Caption(), "0");
    EXPECT_EQ(rig.form1.lblTimesMonitor.Caption(), "0");
}

TEST(Statistics, TheOverviewShowsTheCountedAlerts) {
    StatisticsRig rig;
    for (const char* each : {rating::high, rating::medium, rating::high}) {
        rig.alerts.prcAlertInfo("now", each, "text", {}, nullptr);
    }
    rig.statistics.prcUpdateStatistics();
    EXPECT_EQ(rig.form1.lblHighRatedAlerts.Caption(), "2");
    EXPECT_EQ(rig.form1.lblAlertsRaised.Caption(), "3");
}

TEST(StatisticsTimer, FiresEverySixSeconds) {
    Rig rig;
    EXPECT_EQ(rig.form1.tmrStat.Interval(), 6000);
    EXPECT_TRUE(rig.form1.tmrStat.Enabled());
}

TEST(StatisticsTimer, UpdatesTheOverviewThatIsShown) {
    StatisticsRig rig;
    rig.form1.frmSp[4].setVisible(true);
    rig.form1.tmrStat.Tick();
    EXPECT_EQ(rig.form1.lblTimesMonitor.Caption(), "0");
    EXPECT_EQ(rig.host.yields, 1);
}

TEST(StatisticsTimer, DoesNothingForAHiddenOverview) {
    StatisticsRig rig;
    rig.form1.frmSp[4].setVisible(false);
    for (std::size_t i = 0; i < 4; ++i) rig.form1.frmSp[i].setVisible(true);
    rig.form1.tmrStat.Tick();
    EXPECT_EQ(rig.form1.lblTimesMonitor.Caption(), "");
    EXPECT_EQ(rig.host.yields, 1);
}

TEST(StatisticsTimer, DoesNothingDuringACheck) {
    StatisticsRig rig;
    rig.form1.frmSp[4].setVisible(true);
    rig.forms.globals.bChecking = true;
    rig.form1.tmrStat.Tick();
    EXPECT_EQ(rig.form1.lblTimesMonitor.Caption(), "");
}

TEST(StatisticsTimer, UsesTheStateAfterItsYield) {
    StatisticsRig rig;
    rig.form1.frmSp[4].setVisible(true);
    rig.host.onYield = [&](int) { rig.forms.globals.bChecking = true; };
    rig.form1.tmrStat.Tick();
    EXPECT_EQ(rig.form1.lblTimesMonitor.Caption(), "");
}

}  // namespace
}  // namespace velmora::tests
