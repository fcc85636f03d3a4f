#include "forms/forms.h"

#include <gtest/gtest.h>

#include <set>

#include "base/text.h"

namespace velmora::tests {
namespace {

TEST(Forms, AreFoundByNameInAnyCase) {
    Forms forms;
    EXPECT_EQ(forms.find("Form1"), &forms.form1);
    EXPECT_EQ(forms.find("FORM1"), &forms.form1);
    EXPECT_EQ(forms.find("dlgalert"), &forms.dlgAlert);
    EXPECT_EQ(forms.find("sysWorkSystray"), &forms.sysWorkSystray);
    EXPECT_EQ(forms.find("icon0"), &forms.icon0);
    EXPECT_EQ(forms.find("frmIndDri"), &forms.frmIndDri);
    EXPECT_EQ(forms.find(""), nullptr);
    EXPECT_EQ(forms.find("Form"), nullptr);
}

TEST(Forms, BeginHidden) {
    Forms forms;
    for (Form* form : forms.all()) EXPECT_FALSE(form->Visible()) << form->Name();
}

TEST(Forms, HaveUniqueNamesAndSoHaveTheirControls) {
    Forms forms;
    std::set<std::string> names;
    for (Form* form : forms.all()) {
        EXPECT_TRUE(names.insert(lowerCase(form->Name())).second) << form->Name();
        std::set<std::pair<std::string, int>> controls;
        for (Control* control : form->controls()) {
            EXPECT_TRUE(controls.insert({lowerCase(control->Name()), control->Index()}).second)
                << control->Name();
            EXPECT_EQ(form->find(control->Name(), control->Index()), control);
        }
    }
}

TEST(Forms, OnlyTheMainTimerRunsFromTheStart) {
    Forms forms;
    EXPECT_EQ(forms.form1.Timer1.Interval(), 5000);
    EXPECT_TRUE(forms.form1.Timer1.Enabled());
    EXPECT_FALSE(forms.sysWorkSystray.tmrSystray.Enabled());
    EXPECT_FALSE(forms.frmIndDri.Timer1.Enabled());
}

TEST(Forms, TheProgressFrameBeginsHidden) {
    Forms forms;
    EXPECT_FALSE(forms.icon0.fraProgress.Visible());
    EXPECT_EQ(forms.icon0.lblProgress.Caption(), "");
}

TEST(Forms, TheAlertDialogBeginsWithoutText) {
    Forms forms;
    EXPECT_EQ(forms.dlgAlert.Caption(), "Alert Window - Velmora ");
    EXPECT_EQ(forms.dlgAlert.Label1.Text(), "");
}

TEST(Globals, BeginAtZero) {
    const Globals globals;
    EXPECT_FALSE(globals.bChecking);
    EXPECT_EQ(globals.lngTimesChecked, 0);
    EXPECT_EQ(globals.lngAlertsRaised, 0);
    EXPECT_EQ(globals.lngHighRatedAlerts, 0);
    EXPECT_EQ(globals.lngRefreshedKB, 0);
    EXPECT_EQ(globals.dtRefreshed, DateTime{});
    const DriveTotals& totals = globals.driveTotals;
    EXPECT_EQ(totals.lngFreeKB, 0);
    EXPECT_EQ(totals.lngSizeKB, 0);
    EXPECT_EQ(totals.lngDrives, 0);
    EXPECT_EQ(totals.lngRefreshes, 0);
    EXPECT_EQ(totals.lngRateKB, 0);
    EXPECT_EQ(totals.dtLast, DateTime{});
}

TEST(WaitTestForm, HasItsCaptions) {
    Forms forms;
    FrmWaitTest& form = forms.frmWaitTest;
    EXPECT_EQ(form.Name(), "frmWaitTest");
    EXPECT_EQ(form.Caption(), "Watch Directory For Changes");
    EXPECT_EQ(form.cmdSelectDir.Caption(), "Select Directory To Watch...");
    EXPECT_EQ(form.cmdStartWatch.Caption(), "Start Watching Dir");
    EXPECT_EQ(form.cmdStopWatch.Caption(), "Stop Watching Dir");
    EXPECT_NE(form.find("lblWatchPath"), nullptr);
    EXPECT_NE(form.find("txChanges"), nullptr);
    EXPECT_FALSE(form.Visible());
}

TEST(AlertDialogForm, HasItsCaptions) {
    Forms forms;
    DlgAlert& form = forms.dlgAlert;
    EXPECT_EQ(form.Caption(), "Alert Window - Velmora ");
    EXPECT_EQ(form.frmCurAlert.Caption(), "Current Alerts");
    EXPECT_EQ(form.Label4.Caption(),
              "It is recommended you free up some space as a preemptive action to prevent the free "
              "space from reaching zero.  To see options, press Action.");
    const char* const options[] = {"Sorbane", "Compress F", "Emp. Recyc", "Del. File(s)",
                                   "Move File(s)"};
    const char* const buttons[] = {"OK", "Clear", "Explorer", "Wizard", "Action"};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(form.lblAct[i].Caption(), options[i]);
        EXPECT_EQ(form.lblAct[i].Index(), static_cast<int>(i));
        EXPECT_EQ(form.lblAl[i].Caption(), buttons[i]);
        EXPECT_EQ(form.lblAl[i].Index(), static_cast<int>(i));
    }
    EXPECT_EQ(form.fraAct.Caption(), "Action Options");
    EXPECT_EQ(form.chkAutoHide.Caption(), "Auto Hide ");
    EXPECT_EQ(form.chkLog.Caption(), "Translucent");
    EXPECT_EQ(form.Timer1.Interval(), 9000);
}

}  // namespace
}  // namespace velmora::tests
