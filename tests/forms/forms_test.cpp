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

TEST(Forms, HaveNamesOfTheirOwnAndSoHaveTheirControls) {
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

}  // namespace
}  // namespace velmora::tests
