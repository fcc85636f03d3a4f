// Which actions exclude each other, and what ticking one asks for.
#include "alerts/actions/action_list_rules.h"

#include <gtest/gtest.h>

#include "fake/fake_host.h"
#include "forms/forms.h"
#include "rows/watch_columns.h"
#include "rows/watch_row.h"

namespace velmora::tests {
namespace {

struct ActionListRulesTest : testing::Test {
    fake::FakeHost host;
    Forms forms;
    Form1& form1 = forms.form1;
    ListBox& list = forms.form1.lstAct;
    ActionListRules rules{forms.form1, forms.frmNotify, host};

    ActionListRulesTest() { addWatchColumns(form1.ListView1); }
    void watch(const std::string& freeSpace) {
        WatchRow(form1.ListView1.Add("C:\\")).setFreeSpace(freeSpace);
    }
    std::string ticked() {
        std::string all;
        for (int i = 0; i < list.ListCount(); ++i) {
            if (list.Selected(i)) all += (all.empty() ? "" : " ") + std::to_string(i);
        }
        return all;
    }
    /// The texts of the boxes, with a bar between.
    std::string boxes() {
        std::string all;
        for (const Box& box : host.boxes) all += (all.empty() ? "" : "|") + box.text;
        return all;
    }
};

constexpr const char* noMove = "The 'Move Specified files' option will be de-selected";
constexpr const char* noDelete = "The 'Delete Specified files' option will be de-selected";
constexpr const char* noRecycle =
    "The 'Send Specified files to Recycle Bin' option will be de-selected";
constexpr const char* twoRows =
    "You must have two or more listed drive/path(s) that are functionally ready to select this "
    "option.";

TEST_F(ActionListRulesTest, MovingDeletingAndRecyclingExcludeEachOtherInPairs) {
    const struct {
        int first;
        int second;
        const char* message;
    } cases[] = {
        {act::remove, act::move, noDelete}, {act::recycle, act::move, noRecycle},
        {act::move, act::remove, noMove},   {act::recycle, act::remove, noRecycle},
        {act::move, act::recycle, noMove},  {act::remove, act::recycle, noDelete},
    };
    for (const auto& each : cases) {
        list.userTick(each.first, true);
        EXPECT_EQ(boxes(), "");
        list.userTick(each.second, true);
        EXPECT_EQ(boxes(), each.message);
        EXPECT_EQ(ticked(), std::to_string(each.second));
        list.userTick(each.second, false);
        EXPECT_EQ(ticked(), "");
        host.boxes.clear();
    }
}

TEST_F(ActionListRulesTest, TheMessageComesBeforeTheOtherIsUnticked) {
    list.userTick(act::move, true);
    std::string during;
    host.onBox = [&](const Box&) { during = ticked(); };
    list.userTick(act::remove, true);
    EXPECT_EQ(during, "1 2");
    EXPECT_EQ(ticked(), "2");
}

TEST_F(ActionListRulesTest, BothOthersAreUntickedEachWithItsMessage) {
    // Ticked before the rules were there.
    Forms before;
    for (const int entry : {act::move, act::remove, act::recycle})
        before.form1.lstAct.setSelected(entry, true);
    ActionListRules late{before.form1, before.frmNotify, host};
    before.form1.lstAct.setSelected(act::recycle, false);
    EXPECT_EQ(boxes(), "");
    before.form1.lstAct.setSelected(act::recycle, true);
    EXPECT_EQ(boxes(), std::string(noMove) + "|" + noDelete);
    EXPECT_FALSE(before.form1.lstAct.Selected(act::move) ||
                 before.form1.lstAct.Selected(act::remove));
}

TEST_F(ActionListRulesTest, UntickingSaysNothing) {
    for (int entry = 0; entry < list.ListCount(); ++entry) {
        if (entry != act::autoMove && entry != act::mail) list.setSelected(entry, true);
    }
    host.boxes.clear();
    for (int entry = 0; entry < list.ListCount(); ++entry) list.userTick(entry, false);
    EXPECT_EQ(boxes(), "");
}

TEST_F(ActionListRulesTest, EntriesWithoutARuleAreTickedSilently) {
    for (const int entry : {act::alert, act::sound, act::emptyBin, act::run, act::cleaner,
                            act::pause, act::progressDialog})
        list.userTick(entry, true);
    EXPECT_EQ(ticked(), "0 5 6 7 9 10 11");
    EXPECT_EQ(boxes(), "");
    EXPECT_FALSE(forms.frmNotify.Visible());
}

TEST_F(ActionListRulesTest, AutoMoveIsRefusedWithOneRowOnly) {
    watch("1,000 KB");
    list.userTick(act::autoMove, true);
    EXPECT_EQ(boxes(), twoRows);
    EXPECT_EQ(ticked(), "");
}

TEST_F(ActionListRulesTest, AutoMoveIsRefusedWithoutAnyRow) {
    list.userTick(act::autoMove, true);
    EXPECT_EQ(boxes(), twoRows);
    EXPECT_EQ(ticked(), "");
}

TEST_F(ActionListRulesTest, RowsThatAreUnavailableDoNotCount) {
    watch("1,000 KB");
    watch("N/A");
    watch("not n/a yet");
    list.userTick(act::autoMove, true);
    EXPECT_EQ(boxes(), twoRows);
    EXPECT_EQ(ticked(), "");
    host.boxes.clear();
    watch("5 KB");
    list.userTick(act::autoMove, true);
    EXPECT_EQ(boxes(), "");
    EXPECT_EQ(ticked(), "4");
}

TEST_F(ActionListRulesTest, TickingTheMailOffersItsSettings) {
    host.answers = {BoxAnswer::yes};
    list.userTick(act::mail, true);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, "Please review your email settings. Open Notification Settings?");
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::yesNo);
    EXPECT_TRUE(forms.frmNotify.Visible());
    EXPECT_EQ(ticked(), "8");
}

TEST_F(ActionListRulesTest, RefusingTheMailSettingsKeepsTheTick) {
    list.userTick(act::mail, true);
    EXPECT_FALSE(forms.frmNotify.Visible());
    EXPECT_EQ(ticked(), "8");
    list.userTick(act::mail, false);
    EXPECT_EQ(host.boxes.size(), 1u);
}

TEST_F(ActionListRulesTest, TheSpecifiedPathIsOpenWhileMovingIsTicked) {
    list.userTick(act::alert, true);
    EXPECT_FALSE(form1.txtDrive.Enabled());
    list.userTick(act::move, true);
    EXPECT_TRUE(form1.txtDrive.Enabled());
    list.userTick(act::remove, true);
    EXPECT_FALSE(form1.txtDrive.Enabled());
}

TEST_F(ActionListRulesTest, AClickWithMovingTickedUnticksDeleting) {
    Forms before;
    for (const int entry : {act::move, act::remove, act::recycle})
        before.form1.lstAct.setSelected(entry, true);
    ActionListRules late{before.form1, before.frmNotify, host};
    before.form1.lstAct.Click();
    EXPECT_TRUE(before.form1.lstAct.Selected(act::move));
    EXPECT_FALSE(before.form1.lstAct.Selected(act::remove));
    EXPECT_TRUE(before.form1.lstAct.Selected(act::recycle));
    EXPECT_EQ(boxes(), "");
}

TEST_F(ActionListRulesTest, AClickWithDeletingAloneKeepsIt) {
    list.setSelected(act::remove, true);
    list.Click();
    EXPECT_EQ(ticked(), "2");
    EXPECT_FALSE(form1.txtDrive.Enabled());
}

TEST_F(ActionListRulesTest, TakenTicksAreClicksThoseThatGoFirst) {
    rules.take({{act::remove, true}, {act::sound, true}});
    EXPECT_EQ(ticked(), "2 5");
    std::string fired;
    list.ItemCheck.connect([&](int index) { fired += std::to_string(index) + " "; });
    list.Click.connect([&] { fired += "click "; });
    rules.take({{act::move, true}, {act::remove, false}, {act::sound, true}});
    EXPECT_EQ(ticked(), "1 5");
    EXPECT_EQ(fired, "2 click 1 click ");
    EXPECT_TRUE(form1.txtDrive.Enabled());
    EXPECT_EQ(boxes(), "");
}

TEST_F(ActionListRulesTest, TakenTicksFollowTheRulesButAskForNoMailSettings) {
    rules.take({{act::mail, true}, {act::autoMove, true}});
    EXPECT_EQ(ticked(), "8");
    EXPECT_EQ(boxes(),
              "You must have two or more listed drive/path(s) that are functionally ready to "
              "select this option.");
    EXPECT_FALSE(forms.frmNotify.Visible());
    host.boxes.clear();
    list.userTick(act::mail, false);
    list.userTick(act::mail, true);
    EXPECT_EQ(boxes(), "Please review your email settings. Open Notification Settings?");
}

TEST_F(ActionListRulesTest, WithoutItsRulesAListTakesAnyTicks) {
    rules.disconnect();
    for (const int index : {act::move, act::remove, act::autoMove, act::mail}) {
        list.userTick(index, true);
    }
    EXPECT_EQ(ticked(), "1 2 4 8");
    EXPECT_EQ(boxes(), "");
    rules.connect();
    rules.connect();
    list.userTick(act::recycle, true);
    EXPECT_EQ(ticked(), "3 4 8");
    EXPECT_EQ(host.boxes.size(), 2u);
}

}  // namespace
}  // namespace velmora::tests
