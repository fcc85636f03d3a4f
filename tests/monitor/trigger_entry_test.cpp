#include "monitor/trigger_entry.h"

#include <gtest/gtest.h>

#include "monitor/rig.h"

namespace velmora::tests {
namespace {

constexpr int enter = 13;

/// Two rows; the second is selected. Columns are 2000, 1500, 1500, 1400 and 1480 wide; the list is
/// at 120, 240.
struct TriggerEntryTest : testing::Test {
    TriggerEntryTest() {
        rig.load();
        WatchRow(rig.row("C:\\")).setTrigger("100");
        WatchRow(rig.row("D:\\data")).setTrigger("200");
        rig.list.userSelect({2});
    }
    void point(float x, float y) { rig.list.MouseMove(x, y); }
    void pointAtRow(int row, float x) {
        point(x, static_cast<float>(rig.list.rowTop(row) + ListView::rowHeight / 2 + 10));
    }
    void doubleClick(int row, float x) {
        pointAtRow(row, x);
        rig.list.DblClick();
    }
    void individually() {
        rig.form1.chkDrive.setValue(1);
        WatchRow(rig.list.ListItems(1)).setTrigger("100");
        WatchRow(rig.list.ListItems(2)).setTrigger("200");
        rig.clearRecords();
    }
    TextBox& box() { return rig.form1.Text1; }
    std::string trigger(int row) { return ConstWatchRow(rig.list.ListItems(row)).trigger(); }

    Rig rig;
};

using PlacingTest = TriggerEntryTest;
using EnterTest = TriggerEntryTest;

TEST_F(TriggerEntryTest, ADoubleClickOpensTheViewOfTheSelectedRow) {
    WatchRow row(rig.list.ListItems(2));
    row.setFreeSpace("25 KB");
    row.setTotalSize("100 KB");
    FrmIndDri& view = rig.forms.frmIndDri;
    view.ListView1.RowsReset.connect([this] { rig.calls.push_back("figures"); });
    doubleClick(1, 500);
    EXPECT_EQ(rig.calls, (std::vector<std::string>{"drive view D:\\data", "figures"}));
    EXPECT_EQ(view.ListView1.ListItems(1).SubItems(1), "100 KB");
    EXPECT_TRUE(rig.forms.frmIndDri.Timer1.Enabled());
    EXPECT_EQ(box().bounds(), Bounds{});
    EXPECT_FALSE(box().Visible());
}

TEST_F(TriggerEntryTest, TheViewsTimerIsOnBeforeTheViewIsShown) {
    bool restarted = false;
    rig.forms.frmIndDri.Timer1.Restarted.connect([&] {
        restarted = true;
        EXPECT_EQ(rig.calls.size(), 0u);
    });
    doubleClick(1, 500);
    EXPECT_TRUE(restarted);
}

TEST_F(TriggerEntryTest, ADoubleClickWithoutASelectedRowDoesNothing) {
    individually();
    rig.list.userSelect({});
    doubleClick(1, 500);
    EXPECT_EQ(rig.calls, std::vector<std::string>{});
    EXPECT_FALSE(rig.forms.frmIndDri.Timer1.Enabled());
    EXPECT_EQ(box().bounds(), Bounds{});
}

TEST_F(PlacingTest, ThePlaceIsTheCellUnderThePointer) {
    individually();
    doubleClick(1, 5500);
    EXPECT_EQ(rig.calls, std::vector<std::string>{"drive view D:\\data"});
    EXPECT_EQ(box().bounds(),
              (Bounds{120 + 2000 + 1500 + 1500 - 160, rig.list.rowTop(1) + 240 + 750, 1400,
                      ListView::rowHeight - 200}));
    EXPECT_EQ(box().Text(), "100");
}

TEST_F(PlacingTest, ColumnsBeginWhereTheirSumDoesNotPassThePointer) {
    individually();
    doubleClick(2, 2119);  // 120 + 2000 passes 2119
    EXPECT_EQ(box().bounds().Left, 120 - 160);
    EXPECT_EQ(box().bounds().Width, 2000);
    EXPECT_EQ(box().Text(), "D:\\data");
    doubleClick(2, 2120);
    EXPECT_EQ(box().bounds().Left, 2120 - 160);
    EXPECT_EQ(box().bounds().Width, 1500);
    EXPECT_EQ(box().Text(), "");
}

TEST_F(PlacingTest, TheLastColumnIsTheFarthest) {
    individually();
    WatchRow(rig.list.ListItems(2)).setLastChecked("03/14 15:09:26");
    doubleClick(2, 7885);
    EXPECT_EQ(box().Text(), "03/14 15:09:26");
    EXPECT_EQ(box().bounds().Left, 120 + 6400 - 160);
}

TEST_F(PlacingTest, TheRowIsLookedForTenTwipsUpAndLeft) {
    individually();
    const auto edge = static_cast<float>(rig.list.rowTop(2));
    point(500, edge + 9);
    rig.list.DblClick();
    EXPECT_EQ(box().Text(), "C:\\");
    point(500, edge + 10);
    rig.list.DblClick();
    EXPECT_EQ(box().Text(), "D:\\data");
}

TEST_F(PlacingTest, OutsideTheRowsNothingIsPlaced) {
    individually();
    const std::vector<std::pair<float, float>> points{{500, 100}, {500, 3000},   {9000, 400},
                                                      {5, 400},   {-1e30F, 400}, {500, 1e30F}};
    for (const auto& [x, y] : points) {
        point(x, y);
        rig.list.DblClick();
        EXPECT_EQ(box().bounds(), Bounds{}) << x << " " << y;
    }
}

TEST_F(PlacingTest, NoPresentHeaderShowsTheBox) {
    individually();
    for (const float x : {500.0F, 2500.0F, 4000.0F, 5500.0F, 7000.0F}) {
        doubleClick(1, x);
        EXPECT_FALSE(box().Visible()) << x;
        EXPECT_FALSE(box().Focused()) << x;
    }
}

TEST_F(PlacingTest, ExactlyTheHeaderSpecifiedDriveSpaceShowsTheBoxWithTheFocus) {
    individually();
    rig.list.setColumnText(4, "Specified Drive Space");
    doubleClick(1, 5500);
    EXPECT_TRUE(box().Visible());
    EXPECT_TRUE(box().Focused());
    rig.list.setColumnText(4, "specified drive space");
    doubleClick(1, 5500);
    EXPECT_FALSE(box().Visible());
}

TEST_F(EnterTest, ANumberBecomesTheTriggerOfTheRowUnderThePointer) {
    pointAtRow(1, 5500);
    box().setVisible(true);
    box().setText("4242");
    box().KeyPress(enter);
    EXPECT_EQ(trigger(1), "4242");
    EXPECT_EQ(trigger(2), "200");
    EXPECT_FALSE(box().Visible());
    EXPECT_EQ(rig.host.boxes.size(), 0u);
}

TEST_F(EnterTest, AnotherTextIsReportedAndTheBoxEmptied) {
    for (const char* text : {"12 KB", "abc", ""}) {
        rig.clearRecords();
        pointAtRow(1, 5500);
        box().setVisible(true);
        box().setText(text);
        box().KeyPress(enter);
        ASSERT_EQ(rig.host.boxes.size(), 1u);
        EXPECT_EQ(rig.host.boxes[0].text, "You must enter a numeric value");
        EXPECT_EQ(rig.host.boxes[0].title, "Velmora");
        EXPECT_EQ(box().Text(), "");
        EXPECT_TRUE(box().Visible());
        EXPECT_EQ(trigger(1), "100");
    }
}

TEST_F(EnterTest, WithoutARowUnderThePointerNothingHappens) {
    point(500, 3000);
    box().setVisible(true);
    box().setText("abc");
    box().KeyPress(enter);
    EXPECT_EQ(box().Text(), "abc");
    EXPECT_TRUE(box().Visible());
    EXPECT_EQ(rig.host.boxes.size(), 0u);
}

TEST_F(EnterTest, OtherKeysDoNothing) {
    pointAtRow(1, 5500);
    box().setVisible(true);
    box().setText("4242");
    for (const int key : {49, 27, 10, 0}) box().KeyPress(key);
    EXPECT_EQ(trigger(1), "100");
    EXPECT_TRUE(box().Visible());
}

TEST_F(TriggerEntryTest, LosingTheFocusHidesTheBox) {
    box().setVisible(true);
    box().selectAllAndFocus();
    box().loseFocus();
    EXPECT_FALSE(box().Visible());
}

}  // namespace
}  // namespace velmora::tests
