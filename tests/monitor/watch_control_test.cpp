// Starting and pausing the watch, and the tray tip.
#include "monitor/check_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

// A loaded program that watches a drive: the toggle offers a pause.
struct Watching : CheckRig {
    Watching() {
        watch("C:\\", 5000);
        form1.cmdPause.setCaption("Pause Watch");
        clearRecords();
    }
};

TEST(WatchControl, ThePauseButtonSaysStartAtFirst) {
    CheckRig rig;
    EXPECT_EQ(rig.form1.cmdPause.Caption(), "Start Watch");
    EXPECT_TRUE(rig.form1.Timer1.Enabled());
    EXPECT_EQ(rig.form1.TimerCust.Interval(), 60000);
    EXPECT_TRUE(rig.form1.TimerCust.Enabled());
}

TEST(WatchControl, PausingStopsTheTimerAndSaysSoEverywhere) {
    Watching rig;
    rig.form1.cmdPause.Click();
    EXPECT_EQ(rig.form1.Caption(), "Velmora - Watching Paused.");
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Caption, "Start");
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Image, 13);
    EXPECT_TRUE(rig.form1.mnuPause.Checked());
    EXPECT_EQ(rig.form1.cmdPause.Caption(), "Start Watch");
    EXPECT_FALSE(rig.form1.Timer1.Enabled());
    EXPECT_EQ(rig.panel(2), "Watch Paused.");
    EXPECT_EQ(rig.forms.globals.sTrayTip, "Velmora! Paused");
    EXPECT_EQ(rig.calls, (Texts{"modifyIcon Icon1", "modifyIcon Icon0"}));
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(WatchControl, StartingRunsTheTimerAndSaysSoEverywhere) {
    Watching rig;
    rig.form1.cmdPause.Click();
    rig.clearRecords();
    rig.form1.cmdPause.Click();
    EXPECT_EQ(rig.form1.Caption(), "Velmora - Watching Activated");
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Caption, "Pause");
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Image, 2);
    EXPECT_FALSE(rig.form1.mnuPause.Checked());
    EXPECT_EQ(rig.form1.cmdPause.Caption(), "Pause Watch");
    EXPECT_TRUE(rig.form1.Timer1.Enabled());
    EXPECT_EQ(rig.panel(2), "Watching.");
    EXPECT_EQ(rig.forms.globals.sTrayTip, "Velmora! Started.");
    EXPECT_EQ(rig.calls, Texts{"modifyIcon Form1"});
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(WatchControl, TheTrayIconIsModifiedAfterTheNewTipIsSet) {
    Watching rig;
    Texts tips;
    rig.tray.onModify = [&] { tips.push_back(rig.forms.globals.sTrayTip); };
    rig.form1.cmdPause.Click();
    rig.form1.cmdPause.Click();
    EXPECT_EQ(tips, (Texts{"Velmora! Paused", "Velmora! Paused", "Velmora! Started."}));
}

TEST(WatchControl, AnEmptyListCanNotBeStartedThoughTheWindowSaysActivated) {
    for (const bool running : {true, false}) {
        CheckRig rig;
        rig.form1.Timer1.setEnabled(running);
        rig.form1.mnuPause.setChecked(true);
        rig.forms.globals.sTrayTip = "before";
        rig.form1.StatusBar1.setPanelText(2, "before");
        rig.form1.cmdPause.Click();
        ASSERT_EQ(rig.host.boxes.size(), 1u);
        EXPECT_EQ(rig.host.boxes[0].text, "No Drive/Path currently listed.");
        EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::information);
        EXPECT_EQ(rig.form1.Caption(), "Velmora - Watching Activated");
        EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Caption, "Pause");
        EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Image, 2);
        EXPECT_FALSE(rig.form1.mnuPause.Checked());
        EXPECT_EQ(rig.form1.cmdPause.Caption(), "Start Watch");
        EXPECT_EQ(rig.form1.Timer1.Enabled(), running);
        EXPECT_EQ(rig.panel(2), "before");
        EXPECT_EQ(rig.forms.globals.sTrayTip, "before");
        EXPECT_TRUE(rig.calls.empty());
    }
}

TEST(WatchControl, NoRowNeedsToBeTickedForAStart) {
    CheckRig rig;
    rig.row("C:\\", false);
    rig.form1.cmdPause.Click();
    EXPECT_EQ(rig.form1.cmdPause.Caption(), "Pause Watch");
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(WatchControl, APauseWorksOnAnEmptyList) {
    CheckRig rig;
    rig.form1.cmdPause.setCaption("Pause Watch");
    rig.form1.cmdPause.Click();
    EXPECT_FALSE(rig.form1.Timer1.Enabled());
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(WatchControl, AnyCaptionWithPauseInAnyLetterCaseMeansWatching) {
    for (const char* caption : {"PAUSE", "please pause it", "Pause Watch"}) {
        Watching rig;
        rig.form1.cmdPause.setCaption(caption);
        rig.form1.cmdPause.Click();
        EXPECT_FALSE(rig.form1.Timer1.Enabled()) << caption;
    }
    for (const char* caption : {"", "Paus", "Start Watch"}) {
        Watching rig;
        rig.form1.cmdPause.setCaption(caption);
        rig.form1.Timer1.setEnabled(false);
        rig.form1.cmdPause.Click();
        EXPECT_TRUE(rig.form1.Timer1.Enabled()) << caption;
    }
}

TEST(WatchControl, TheFirstFinishedCheckTurnsTheStartButtonIntoPause) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    EXPECT_EQ(rig.form1.cmdPause.Caption(), "Start Watch");
    rig.check();
    EXPECT_EQ(rig.form1.cmdPause.Caption(), "Pause Watch");
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Caption, "Pause");
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Image, 2);
    EXPECT_TRUE(rig.form1.Timer1.Enabled());
}

TEST(WatchControlMenu, StartsWhenTheToolBarOffersAStart) {
    Watching rig;
    rig.form1.cmdPause.Click();
    rig.form1.mnuPause.Click();
    EXPECT_TRUE(rig.form1.Timer1.Enabled());
    EXPECT_EQ(rig.form1.cmdPause.Caption(), "Pause Watch");
    EXPECT_EQ(rig.form1.mnuPause.Caption(), "Pause");
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Caption, "Pause");
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Image, 2);
    EXPECT_FALSE(rig.form1.mnuPause.Checked());
}

TEST(WatchControlMenu, PausesWhenTheToolBarOffersAPause) {
    Watching rig;
    rig.form1.Toolbar1.setButtonCaption(1, "Pause");
    rig.form1.mnuPause.Click();
    EXPECT_FALSE(rig.form1.Timer1.Enabled());
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Caption, "Start");
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Image, 13);
    EXPECT_EQ(rig.form1.mnuPause.Caption(), "Start");
    EXPECT_TRUE(rig.form1.mnuPause.Checked());
}

// The menu reads the tool bar's caption and the toggle its own, so they can differ.
TEST(WatchControlMenu, TheToolBarsCaptionIsReversedWhicheverWayTheToggleWent) {
    Watching rig;
    rig.form1.Toolbar1.setButtonCaption(1, "Start");
    rig.form1.mnuPause.Click();
    EXPECT_FALSE(rig.form1.Timer1.Enabled());
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Caption, "Pause");
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Image, 2);
    EXPECT_TRUE(rig.form1.mnuPause.Checked());

    rig.form1.mnuPause.Click();
    EXPECT_TRUE(rig.form1.Timer1.Enabled());
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Caption, "Start");
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Image, 13);
    EXPECT_FALSE(rig.form1.mnuPause.Checked());
}

TEST(WatchControlMenu, AnotherToolBarCaptionMeansNothing) {
    for (const char* caption : {"start", "pause", "Start ", ""}) {
        Watching rig;
        rig.form1.Toolbar1.setButtonCaption(1, caption);
        rig.form1.mnuPause.Click();
        EXPECT_EQ(rig.form1.cmdPause.Caption(), "Pause Watch") << caption;
        EXPECT_TRUE(rig.calls.empty()) << caption;
    }
}

TEST(WatchControlTip, CountsTickedRowsTheirFreeSpaceAndAlerts) {
    CheckRig rig;
    WatchRow(rig.row("C:\\")).setFreeSpace("1,500 KB");
    WatchRow(rig.row("D:\\")).setFreeSpace("500 KB");
    WatchRow(rig.row("E:\\", false)).setFreeSpace("9,000 KB");
    rig.list.ListItems(1).setReportIcon(2, "alert");
    rig.list.ListItems(2).setReportIcon(2, "ok");
    rig.list.ListItems(3).setReportIcon(2, "alert");
    rig.form1.TimerCust.Tick();
    // 2000 KB are 2.0 MB by decimal factors.
    EXPECT_EQ(rig.calls, Texts{"prcToolTipText Velmora\r\n2 onWatch. \r\n"
                               "2.0 MB Total Free. \r\n1 Alert(s)."});
    EXPECT_EQ(rig.host.yields, 3);
}

TEST(WatchControlTip, TheStateIconOfARowIsNotTheOneThatCounts) {
    CheckRig rig;
    WatchRow(rig.row("C:\\")).setStateIcon("alert");
    rig.form1.TimerCust.Tick();
    EXPECT_EQ(rig.calls,
              Texts{"prcToolTipText Velmora\r\n1 onWatch. \r\n0 KB Total Free. \r\n0 Alert(s)."});
}

TEST(WatchControlTip, RowsThatAreNotAvailableAreLeftOutAndOtherTextsCountAsZero) {
    CheckRig rig;
    for (const char* text : {"N/A, drive not ready", "n/a", "soon KB", "", " 700  KB "}) {
        WatchRow(rig.row("C:\\")).setFreeSpace(text);
        rig.list.ListItems(rig.list.Count()).setReportIcon(2, "alert");
    }
    rig.form1.TimerCust.Tick();
    // Only "N/A" in capitals counts as not available.
    EXPECT_EQ(
        rig.calls,
        Texts{"prcToolTipText Velmora\r\n4 onWatch. \r\n700.0 KB Total Free. \r\n4 Alert(s)."});
}

TEST(WatchControlTip, AnEmptyListHasNothingOnWatch) {
    CheckRig rig;
    rig.form1.TimerCust.Tick();
    EXPECT_EQ(rig.calls,
              Texts{"prcToolTipText Velmora\r\n0 onWatch. \r\n0 KB Total Free. \r\n0 Alert(s)."});
    EXPECT_EQ(rig.host.yields, 0);
}

TEST(WatchControlTip, SumsBeyond32BitsAreShown) {
    CheckRig rig;
    for (int i = 0; i < 3; ++i) WatchRow(rig.row("C:\\")).setFreeSpace("2,000,000,000 KB");
    rig.form1.TimerCust.Tick();
    EXPECT_EQ(rig.calls,
              Texts{"prcToolTipText Velmora\r\n3 onWatch. \r\n6.0 TB Total Free. \r\n0 Alert(s)."});
}

TEST(WatchControlTip, IsNotPassedToAHiddenIcon) {
    CheckRig rig;
    rig.form1.chkSystray.setValue(0);
    rig.clearRecords();
    rig.form1.TimerCust.Tick();
    EXPECT_TRUE(rig.calls.empty());
}

TEST(WatchControlTip, RowsRemovedInAYieldEndTheCounting) {
    CheckRig rig;
    for (int i = 0; i < 4; ++i) WatchRow(rig.row("C:\\")).setFreeSpace("100 KB");
    rig.host.onYield = [&](int n) {
        if (n == 2) rig.list.Clear();
    };
    rig.form1.TimerCust.Tick();
    EXPECT_EQ(
        rig.calls,
        Texts{"prcToolTipText Velmora\r\n1 onWatch. \r\n100.0 KB Total Free. \r\n0 Alert(s)."});
    EXPECT_EQ(rig.alertCount(), 0);
}

TEST(WatchControlTip, RowsAddedInAYieldCountInTheNextMinute) {
    CheckRig rig;
    WatchRow(rig.row("C:\\")).setFreeSpace("100 KB");
    rig.host.onYield = [&](int) { WatchRow(rig.row("D:\\")).setFreeSpace("100 KB"); };
    rig.form1.TimerCust.Tick();
    EXPECT_EQ(rig.host.yields, 1);
    EXPECT_EQ(rig.calls.back(),
              "prcToolTipText Velmora\r\n1 onWatch. \r\n100.0 KB Total Free. \r\n0 Alert(s).");
}

TEST(WatchControlTip, StaysTheTipFromThenOn) {
    CheckRig rig;
    rig.form1.TimerCust.Tick();
    EXPECT_EQ(rig.forms.globals.sTrayTip,
              "Velmora\r\n0 onWatch. \r\n0 KB Total Free. \r\n0 Alert(s).");
}

}  // namespace
}  // namespace velmora::tests
