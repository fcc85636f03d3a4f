// The limit of the alert list: applied when the spinner turns, from the bottom.
#include "alerts/alert_rig.h"

namespace velmora::tests {
namespace {

// Rows "1" (at the bottom) to `count` (at the top), and the box set to `limit`.
struct Filled : AlertRig {
    Filled(int count, const std::string& limit) {
        raiseMany(count);
        form1.txtAmt.setText(limit);
    }
    void expectNewest(int from, int kept) {
        ASSERT_EQ(list.Count(), kept);
        for (int i = 1; i <= kept; ++i) ASSERT_EQ(text(i), std::to_string(from - i + 1));
    }
};

TEST(AlertLimit, IsFiftyByDesignInStepsOfOneUpToAThousand) {
    AlertRig rig;
    EXPECT_EQ(rig.form1.txtAmt.Text(), "50");
    EXPECT_EQ(rig.form1.lblE.Caption(), "Limit Alerts to:");
    EXPECT_EQ(rig.form1.UpDown3.Max(), 1000);
    rig.form1.UpDown3.userUp();
    EXPECT_EQ(rig.form1.txtAmt.Text(), "51");
    rig.form1.txtAmt.setText("1000");
    rig.form1.UpDown3.userUp();
    EXPECT_EQ(rig.form1.txtAmt.Text(), "1000");
}

TEST(AlertLimit, SixtyRowsWithALimitOfFiftyKeepTheTopFifty) {
    Filled rig(60, "49");
    rig.form1.UpDown3.userUp();
    EXPECT_EQ(rig.form1.txtAmt.Text(), "50");
    rig.expectNewest(60, 50);
}

TEST(AlertLimit, LoweringItBelowTheRowCountRemovesTheOldestOnly) {
    Filled rig(50, "50");
    rig.form1.UpDown3.userDown();
    rig.expectNewest(50, 49);
    rig.form1.UpDown3.userDown();
    rig.expectNewest(50, 48);
}

TEST(AlertLimit, RaisingItRemovesNothing) {
    Filled rig(20, "30");
    rig.form1.UpDown3.userUp();
    rig.expectNewest(20, 20);
}

TEST(AlertLimit, ALimitEqualToTheRowCountRemovesNothing) {
    Filled rig(20, "21");
    rig.form1.UpDown3.userDown();
    rig.expectNewest(20, 20);
}

TEST(AlertLimit, TheListGrowsPastItUntilTheSpinnerTurns) {
    Filled rig(60, "50");
    EXPECT_EQ(rig.list.Count(), 60);
    rig.form1.txtAmt.setText("10");
    rig.raise("61", "Medium");
    EXPECT_EQ(rig.list.Count(), 61);
    rig.form1.UpDown3.userDown();
    rig.expectNewest(61, 9);
}

TEST(AlertLimit, ALimitOfZeroEmptiesTheList) {
    Filled rig(5, "1");
    rig.form1.UpDown3.userDown();
    EXPECT_EQ(rig.list.Count(), 0);
}

TEST(AlertLimit, CountersStillCountTheRemovedAlerts) {
    Filled rig(60, "2");
    rig.form1.UpDown3.userDown();
    EXPECT_EQ(rig.raised(), 60);
}

TEST(AlertLimit, ATextThatIsNoNumberIsATypeMismatchAndRemovesNothing) {
    for (const char* text : {"many", "", "5 0 x"}) {
        Filled rig(60, text);
        EXPECT_EQ(errorOf([&] { rig.form1.UpDown3.Change(); }), 13) << text;
        EXPECT_EQ(rig.list.Count(), 60);
        EXPECT_EQ(rig.form1.txtAmt.Text(), text);
    }
}

TEST(AlertLimit, AFractionIsComparedUnroundedAndRoundedForTheCut) {
    Filled rig(51, "50.5");
    rig.form1.UpDown3.Change();
    rig.expectNewest(51, 50);
    Filled same(50, "50.5");
    same.form1.UpDown3.Change();
    same.expectNewest(50, 50);
}

TEST(AlertLimit, ALimitBeyondThirtyTwoBitsIsJustAHighOne) {
    Filled rig(5, "3000000000");
    rig.form1.UpDown3.Change();
    rig.expectNewest(5, 5);
}

TEST(AlertLimit, ANegativeLimitOnlyEmptiesTheList) {
    Filled rig(5, "-3");
    rig.form1.UpDown3.Change();
    EXPECT_EQ(rig.list.Count(), 0);
}

TEST(AlertLimit, AnyListCanBeCut) {
    AlertRig rig;
    ListView& other = rig.form1.ListView1;
    other.Add("D:\\");
    other.Add("E:\\");
    AlertList::prcLVLimit(2, other);
    ASSERT_EQ(other.Count(), 2);
    EXPECT_EQ(other.ListItems(2).Text(), "D:\\");
    AlertList::prcLVLimit(2, other);
    AlertList::prcLVLimit(3, other);
    EXPECT_EQ(other.Count(), 2);
}

TEST(AlertLimit, ASurplusOfSixteenBitsIsCutAndOneMoreOverflows) {
    AlertRig rig;
    ListView& list = rig.form1.ListView1;
    while (list.Count() < 32768) list.Add();
    EXPECT_EQ(errorOf([&] { AlertList::prcLVLimit(0, list); }), 6);
    EXPECT_EQ(list.Count(), 32768);
    AlertList::prcLVLimit(1, list);
    EXPECT_EQ(list.Count(), 1);
}

TEST(AlertLimit, ASurplusIsCountedFromANegativeLimit) {
    AlertRig rig;
    ListView& list = rig.form1.ListView1;
    EXPECT_EQ(errorOf([&] { AlertList::prcLVLimit(-32767, list); }), 6);
    EXPECT_EQ(errorOf([&] { AlertList::prcLVLimit(-2147483647 - 1, list); }), 6);
    EXPECT_EQ(list.Count(), 1);
    AlertList::prcLVLimit(-32766, list);
    EXPECT_EQ(list.Count(), 0);
}

}  // namespace
}  // namespace velmora::tests
