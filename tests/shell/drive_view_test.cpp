// The view of one drive.
#include "shell/drive_view.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "shell/drive_view_rig.h"

namespace velmora::tests {
namespace {

struct DriveViewTest : DriveViewRig {
    std::vector<std::string> names() {
        std::vector<std::string> all;
        const Control::Table rows = view.picPie.table().value();
        for (const auto& row : rows) {
            all.push_back(std::get<std::string>(row[0].second) + "=" +
                          std::get<std::string>(row[1].second));
        }
        return all;
    }
    std::vector<Colour> colours() {
        std::vector<Colour> all;
        const Control::Table rows = view.picPie.table().value();
        for (const auto& row : rows) {
            all.push_back(static_cast<Colour>(std::get<std::int64_t>(row[2].second)));
        }
        return all;
    }
};

TEST_F(DriveViewTest, ShowsTheUsedShareAndThePie) {
    meter.prcShowfrmIndDri("C:\\");
    EXPECT_TRUE(view.Visible());
    EXPECT_EQ(view.Combo1.Text(), "C:\\");
    EXPECT_EQ(view.Combo1.ListCount(), 2);
    EXPECT_EQ(view.lblP.Caption(), "C:\\  40.0% Used");
    EXPECT_EQ(view.picPie.Title(), "40.0% Used");
    EXPECT_EQ(view.picPie.Second(), "Total(1,000)");
    EXPECT_EQ(names(), (std::vector<std::string>{"Free=600", "Used=400"}));
    EXPECT_EQ(colours(), (std::vector<Colour>{0xFF0000, 255}));
    EXPECT_EQ(view.ProgressBar1.Value(), 40);
    EXPECT_EQ(driveView.aPaths(), std::vector<std::string>{"C:\\"});
}

TEST_F(DriveViewTest, ItsGaugesAndListHaveTheFiguresOfTheRow) {
    form1.txtSpace.setText("200");
    meter.prcShowfrmIndDri("C:\\");
    EXPECT_EQ(view.VMeter1.Value(), 40);  // 50 - 200 / 1000 x 50
    EXPECT_EQ(view.VMeter1.Label1(), "20%");
    EXPECT_EQ(view.VMeter2.Value(), 20);  // 50 - 600 / 1000 x 50
    EXPECT_EQ(view.VMeter2.Label1(), "60%");
    EXPECT_EQ(view.VScroll1.Value(), 80);
    EXPECT_EQ(view.ListView1.Count(), 4);
    EXPECT_EQ(view.ListView1.ListItems(1).SubItems(1), "1,000 KB");
}

TEST_F(DriveViewTest, AFullDriveIsOneSegment) {
    meter.prcShowfrmIndDri("D:\\data");
    EXPECT_EQ(names(), std::vector<std::string>{"Media Full=1000"});
    EXPECT_EQ(colours(), std::vector<Colour>{255});
    EXPECT_EQ(view.lblP.Caption(), "D:\\data  100.0% Used");
    EXPECT_EQ(view.ProgressBar1.Value(), 100);
}

TEST_F(DriveViewTest, ADriveWithNothingUsedHasNoMedia) {
    machine.drives["C:"] = {1000, 1000};
    meter.prcShowfrmIndDri("C:\\");
    EXPECT_EQ(names(), std::vector<std::string>{"No Media=0"});
    EXPECT_EQ(colours(), std::vector<Colour>{255});
    EXPECT_EQ(view.picPie.Title(), ".0% Used");
    machine.drives["C:"] = {0, 0};
    driveView.prcUpdateThis();
    EXPECT_EQ(names(), std::vector<std::string>{"No Media=0"});
}

TEST_F(DriveViewTest, ADriveWithMoreFreeThanItHoldsIsFullMedia) {
    machine.drives["C:"] = {1500, 1000};
    meter.prcShowfrmIndDri("C:\\");
    EXPECT_EQ(names(), std::vector<std::string>{"Media Full=-500"});
    EXPECT_EQ(colours(), std::vector<Colour>{255});
    EXPECT_EQ(view.ProgressBar1.Value(), 0);
}

TEST_F(DriveViewTest, ItSaysThatItIsLoading) {
    std::vector<std::string> captions;
    const auto connection =
        view.lblP.Changed.connect([&] { captions.push_back(view.lblP.Caption()); });
    meter.prcShowfrmIndDri("C:\\");
    EXPECT_EQ(captions,
              (std::vector<std::string>{"C:\\", "Loading...", "C:\\", "C:\\  40.0% Used"}));
}

TEST_F(DriveViewTest, AFolderAfterItsFirstCheckHasItsOwnFigures) {
    form1.txtSpace.setText("200");
    meter.prcShowfrmIndDri("C:\\");
    addRow("D:\\old", "N/A check drive or media", "2,000 KB");
    view.Combo1.setText("D:\\old");
    view.Combo1.Click();
    EXPECT_EQ(view.VMeter1.Label1(), "10%");
    EXPECT_EQ(view.VMeter2.Label1(), "0%");
    EXPECT_EQ(view.ListView1.ListItems(1).SubItems(1), "2,000 KB");
}

TEST_F(DriveViewTest, NoFigureOfTheDriveBeforeStaysForOneThatIsNotReady) {
    form1.txtSpace.setText("200");
    meter.prcShowfrmIndDri("C:\\");
    machine.drives["E:"] = {.freeBytes = 0, .totalBytes = 0, .ready = false};
    addRow("E:\\", "N/A, drive not ready", "1,000 KB");
    view.Combo1.setText("E:\\");
    view.Combo1.Click();
    EXPECT_EQ(view.VMeter1.Label1(), "0%");
    EXPECT_EQ(view.VMeter2.Label1(), "0%");
    EXPECT_EQ(view.ListView1.Count(), 0);
    EXPECT_EQ(view.Text1.Text(), "0");
}

// The scroll bar begins at its top, where 100 percent are.
TEST_F(DriveViewTest, ADriveThatIsNotReadyOffersNoMinimumAtTheFirstShowing) {
    machine.drives["C:"].ready = false;
    WatchRow(form1.ListView1.ListItems(1)).setFreeSpace("N/A, drive not ready");
    meter.prcShowfrmIndDri("C:\\");
    meter.prcSrvMeter(form1.ListView1.ListItems(1));
    EXPECT_EQ(view.VMeter1.Level(), 0);
    EXPECT_EQ(view.VMeter2.Level(), 0);
    EXPECT_EQ(view.ListView1.Count(), 0);
    EXPECT_EQ(view.VScroll1.Value(), 100);
    EXPECT_EQ(view.Text1.Text(), "0");
}

TEST_F(DriveViewTest, AnUnchangedListIsLeftAlone) {
    meter.prcShowfrmIndDri("C:\\");
    int changes = 0;
    const auto reset = view.ListView1.RowsReset.connect([&] { ++changes; });
    const auto inserted = view.ListView1.RowInserted.connect([&](int) { ++changes; });
    for (int i = 0; i < 5; ++i) view.Timer1.Tick();
    EXPECT_EQ(changes, 0);
    WatchRow(form1.ListView1.ListItems(1)).setFreeSpace("599 KB");
    view.Timer1.Tick();
    EXPECT_GT(changes, 0);
    EXPECT_EQ(view.ListView1.ListItems(2).SubItems(1), "599 KB");
}

TEST_F(DriveViewTest, UnchangedFiguresPaintNothing) {
    meter.prcShowfrmIndDri("C:\\");
    EXPECT_EQ(view.picPie.paintings(), 1);
    for (int i = 0; i < 5; ++i) driveView.prcUpdateThis();
    EXPECT_EQ(view.picPie.paintings(), 1);
    machine.drives["C:"] = {599, 1000};
    driveView.prcUpdateThis();
    EXPECT_EQ(view.picPie.paintings(), 2);
    machine.drives["C:"] = {599, 1100};
    driveView.prcUpdateThis();
    EXPECT_EQ(view.picPie.paintings(), 3);
}

TEST_F(DriveViewTest, ADriveThatIsNotReadyIsShownWithoutAPie) {
    machine.drives["C:"].ready = false;
    meter.prcShowfrmIndDri("C:\\");
    EXPECT_TRUE(view.Visible());
    EXPECT_EQ(view.picPie.paintings(), 0);
    EXPECT_EQ(errorOf([this] { driveView.prcUpdateThis(); }), error::diskNotReady);
}

TEST_F(DriveViewTest, WhatWasTypedForADriveThatIsNotReadyIsNotOfferedForAnother) {
    for (const char* drive : {"C:", "D:"}) machine.drives[drive].ready = false;
    meter.prcShowfrmIndDri("C:\\");
    view.Text1.setText("33");
    view.Combo1.userChoose(1);
    EXPECT_EQ(view.lblP.Caption(), "D:\\data");
    EXPECT_EQ(view.Text1.Text(), "0");
}

TEST_F(DriveViewTest, NothingOfAnotherDriveStays) {
    meter.prcShowfrmIndDri("C:\\");
    view.Option1[1].userClick();
    view.VScroll1.userScroll(50);
    ASSERT_EQ(view.Text1.Text(), "500");
    machine.drives["D:"].ready = false;
    view.Combo1.userChoose(1);
    EXPECT_EQ(view.Text1.Text(), "");  // the size of this one is not known
    EXPECT_TRUE(view.picPie.shapes().empty());
    EXPECT_EQ(view.picPie.Title(), "");
    EXPECT_EQ(view.ProgressBar1.Value(), 0);
    EXPECT_EQ(view.lblP.Caption(), "D:\\data");
    view.Combo1.userChoose(0);
    EXPECT_EQ(view.picPie.Title(), "40.0% Used");
    view.cmdC.userClick();
    machine.drives["C:"].ready = false;
    meter.prcShowfrmIndDri("C:\\");
    EXPECT_TRUE(view.picPie.shapes().empty());
}

TEST_F(DriveViewTest, TheCheckBoxSwitchesTheTimer) {
    EXPECT_FALSE(view.Timer1.Enabled());
    view.Check1.userClick();
    EXPECT_TRUE(view.Timer1.Enabled());
    EXPECT_EQ(view.Timer1.Interval(), 10000);
    view.Check1.userClick();
    EXPECT_FALSE(view.Timer1.Enabled());
}

TEST_F(DriveViewTest, TheTimerFollowsTheSelectedRow) {
    meter.prcShowfrmIndDri("C:\\");
    int raised = 0;
    const auto connection = view.Raised.connect([&raised] { ++raised; });
    form1.ListView1.ListItems(1).setSelected(false);
    form1.ListView1.ListItems(2).setSelected(true);
    view.Timer1.Tick();
    EXPECT_EQ(view.Combo1.Text(), "D:\\data");
    EXPECT_EQ(view.lblP.Caption(), "D:\\data  100.0% Used");
    EXPECT_EQ(raised, 0);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(DriveViewTest, ADriveThatIsGoneClosesTheView) {
    for (const bool gone : {true, false}) {
        machine.drives["C:"] = {600, 1000};
        meter.prcShowfrmIndDri("C:\\");
        view.Check1.setValue(1);
        host.boxes.clear();
        if (gone) {
            machine.drives.erase("C:");
        } else {
            machine.drives["C:"].ready = false;
        }
        view.Timer1.Tick();
        ASSERT_EQ(host.boxes.size(), 1U);
        EXPECT_EQ(host.boxes[0].text,
                  "This display will close.\r\n"
                  "Drive/Path is not available or ready to display info.");
        EXPECT_FALSE(view.Visible());
        EXPECT_FALSE(view.Timer1.Enabled());
    }
}

TEST_F(DriveViewTest, TheTimerPassesOverErrors) {
    meter.prcShowfrmIndDri("C:\\");
    form1.ListView1.Clear();
    view.Timer1.Tick();
    EXPECT_TRUE(view.Visible());
}

TEST_F(DriveViewTest, AnotherPathOfTheListIsShown) {
    meter.prcShowfrmIndDri("C:\\");
    view.Combo1.userChoose(1);
    EXPECT_EQ(view.lblP.Caption(), "D:\\data  100.0% Used");
    EXPECT_EQ(view.ListView1.ListItems(1).SubItems(1), "2,000 KB");
    EXPECT_TRUE(form1.ListView1.ListItems(2).Selected());
    EXPECT_FALSE(form1.ListView1.ListItems(1).Selected());
}

TEST_F(DriveViewTest, TheToggleSwitchesBetweenTwoHeights) {
    view.setSize(6600, 7814);
    view.cmdToggle.userClick();
    EXPECT_EQ(view.Height(), 7815);
    view.cmdToggle.userClick();
    EXPECT_EQ(view.Height(), 4000);
    view.cmdToggle.userClick();
    EXPECT_EQ(view.Height(), 7815);
    view.setSize(6600, 9000);
    view.cmdToggle.userClick();
    EXPECT_EQ(view.Height(), 4000);
}

TEST_F(DriveViewTest, CancelAndTheFrameUnloadIt) {
    meter.prcShowfrmIndDri("C:\\");
    view.Check1.userClick();
    view.cmdC.userClick();
    EXPECT_FALSE(view.Visible());
    EXPECT_FALSE(view.Timer1.Enabled());
    EXPECT_FALSE(view.Check1.ticked());
    form1.ListView1.ListItems(1).setSelected(false);
    form1.ListView1.ListItems(2).setSelected(true);
    meter.prcShowfrmIndDri("D:\\data");
    EXPECT_EQ(driveView.aPaths(), std::vector<std::string>{"D:\\data"});
    view.userClose();
    EXPECT_FALSE(view.Visible());
}

TEST_F(DriveViewTest, TheTextsOfTheView) {
    EXPECT_EQ(view.Caption(), "Drive Settings - Karvelle Velmora");
    EXPECT_EQ(view.Check1.Caption(), "Auto &Refresh Information");
    EXPECT_EQ(view.Check1.ToolTipText(),
              "This automatically will update the meter info by interval while the window is open");
    EXPECT_EQ(view.Option1[0].Caption(), "Percentage");
    EXPECT_EQ(view.Option1[1].Caption(), "Size (KB)");
    EXPECT_EQ(view.Label1.Caption(), "Set Minimum Space Alert");
    EXPECT_EQ(view.Command3.Caption(), "&Apply Changes");
    EXPECT_EQ(view.cmdC.Caption(), "&Cancel");
    EXPECT_EQ(view.cmdToggle.Caption(), "Toggle View");
    EXPECT_TRUE(view.Option1[0].Value());
}

}  // namespace
}  // namespace velmora::tests
