// The flash of the icon while an alert is pending.
#include <gtest/gtest.h>

#include "controls/timer_queue.h"
#include "shell/surface_rig.h"
#include "shell/tray_icon.h"

namespace velmora::tests {
namespace {

struct TrayFlashTest : testing::Test, SurfaceRig {
    void tick() { forms.sysWorkSystray.tmrSystray.Tick(); }
    void doubleClick() { sendMouse(forms.sysWorkSystray, leftDoubleClick); }
    const NotifyIconData& last() { return sent.back().second; }

    Timer& timer = forms.sysWorkSystray.tmrSystray;
    TrayIcon tray{forms, machine.platform().clock, surface.host, surface.notifyArea,
                  surface.user32};
};

TEST_F(TrayFlashTest, BeginsWithoutFlashingAndItsTimerOff) {
    EXPECT_FALSE(tray.bFlashing());
    EXPECT_FALSE(tray.bAlertIconShown());
    EXPECT_FALSE(timer.Enabled());
    EXPECT_EQ(timer.Interval(), 1000);
    EXPECT_TRUE(sent.empty());
}

TEST_F(TrayFlashTest, TheFirstTickShowsTheAlert) {
    tick();
    EXPECT_TRUE(tray.bFlashing());
    EXPECT_TRUE(tray.bAlertIconShown());
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(sent[0].first, NotifyMessage::modify);
    EXPECT_EQ(last().window, "sysWorkSystray");
    EXPECT_EQ(last().icon, "alert");
    EXPECT_EQ(last().tip, "New Alert Message!");
}

TEST_F(TrayFlashTest, TheNextTickShowsTheProgramAndTheyAlternate) {
    tick();
    tick();
    EXPECT_TRUE(tray.bFlashing());
    EXPECT_FALSE(tray.bAlertIconShown());
    EXPECT_EQ(sent[1].first, NotifyMessage::modify);
    EXPECT_EQ(last().icon, "Form1");
    EXPECT_EQ(last().tip, "Karvelle Velmora");
    tick();
    EXPECT_EQ(last().icon, "alert");
    EXPECT_EQ(last().tip, "New Alert Message!");
    EXPECT_EQ(sent.size(), 3u);
}

TEST_F(TrayFlashTest, ATickTouchesNothingElse) {
    globals.sTrayTip = "Velmora! Started.";
    timer.setEnabled(true);
    tick();
    EXPECT_TRUE(timer.Enabled());
    EXPECT_EQ(timer.Interval(), 1000);
    EXPECT_EQ(globals.sTrayTip, "Velmora! Started.");
    EXPECT_FALSE(form1.Visible());
    EXPECT_FALSE(forms.sysWorkSystray.Visible());
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_TRUE(windowCalls.empty());
}

TEST_F(TrayFlashTest, FlashesOnceASecond) {
    std::int64_t now = 0;
    TimerQueue queue([&now] { return now; });
    queue.add(timer);
    timer.setEnabled(true);
    for (now = 0; now <= 5000; now += 100) queue.fireDue();
    EXPECT_EQ(sent.size(), 5u);
}

TEST_F(TrayFlashTest, ARefusedPictureStillAlternates) {
    surface.notifyArea.takes = false;
    tick();
    EXPECT_TRUE(tray.bAlertIconShown());
    EXPECT_FALSE(tray.taken());
    tick();
    EXPECT_FALSE(tray.bAlertIconShown());
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(TrayFlashTest, ADoubleClickStopsItAndShowsTheWindowWithoutToggling) {
    form1.Show();
    timer.setEnabled(true);
    tick();
    doubleClick();
    EXPECT_TRUE(form1.Visible());
    EXPECT_FALSE(tray.bFlashing());
    EXPECT_FALSE(timer.Enabled());
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_EQ(sent[1].first, NotifyMessage::modify);
    EXPECT_EQ(last().icon, "Form1");
    EXPECT_EQ(last().tip, "Karvelle Velmora");
    EXPECT_EQ(windowCalls, (Texts{"GetWindowThreadProcessId Form1", "AppActivate 4711"}));
    doubleClick();
    EXPECT_FALSE(form1.Visible());
}

TEST_F(TrayFlashTest, ADoubleClickOnAHiddenWindowShowsIt) {
    tick();
    doubleClick();
    EXPECT_TRUE(form1.Visible());
    EXPECT_FALSE(tray.bFlashing());
}

TEST_F(TrayFlashTest, AFlashAfterAStopBeginsWithTheAlert) {
    tick();
    doubleClick();
    EXPECT_FALSE(tray.bAlertIconShown());
    tick();
    EXPECT_EQ(last().icon, "alert");
}

TEST_F(TrayFlashTest, ATipSetMeanwhileKeepsThePicture) {
    tick();
    tray.prcToolTipText("Velmora");
    EXPECT_EQ(last().icon, "alert");
    tick();
    tray.prcToolTipText("Velmora");
    EXPECT_EQ(last().icon, "Form1");
}

TEST_F(TrayFlashTest, TheRecordsArePreparedWithBothPictures) {
    EXPECT_EQ(tray.programIcon().icon, "Form1");
    EXPECT_EQ(tray.programIcon().tip, "Velmora");
    EXPECT_EQ(tray.alertIcon().icon, "alert");
    for (const NotifyIconData* data : {&tray.programIcon(), &tray.alertIcon()}) {
        EXPECT_EQ(data->window, "sysWorkSystray");
        EXPECT_EQ(data->id, 1u);
        EXPECT_EQ(data->flags, 7u);
        EXPECT_EQ(data->callbackMessage, 512u);
    }
    tick();
    tick();
    EXPECT_EQ(tray.programIcon().tip, "Karvelle Velmora");
    sent.clear();
    EXPECT_TRUE(tray.prcPrepIcon());
    EXPECT_EQ(tray.programIcon().tip, "Velmora");
    EXPECT_TRUE(sent.empty());
}

}  // namespace
}  // namespace velmora::tests
