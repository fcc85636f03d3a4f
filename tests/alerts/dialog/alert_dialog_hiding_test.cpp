// The alert dialog's translucency and its countdown.
#include "alerts/dialog/dialog_rig.h"

namespace velmora::tests {
namespace {

using Levels = std::vector<std::pair<std::string, int>>;

const std::string countdown = "Auto Dismiss Alert Window in (sec.): ";

struct CountingDialog : DialogRig {
    CountingDialog() {
        form1.chkAutoSave.setValue(1);
        form1.txtAlert.setText("journal");
        dialog.chkAutoHide.setValue(1);
        window.show();
    }
};

TEST(AlertDialogHiding, HasTheTimersIntervalAndItsNormalCaptionOnceItIsLoaded) {
    DialogRig rig;
    EXPECT_EQ(rig.dialog.Caption(), "Alert Window - Velmora ");
    rig.dialog.Timer1.setInterval(1);
    rig.window.show();
    EXPECT_EQ(rig.dialog.Timer1.Interval(), 9000);
    EXPECT_EQ(rig.dialog.Caption(), "Alert Dialog");
    EXPECT_FALSE(rig.dialog.Timer1.Enabled());
    EXPECT_TRUE(rig.glass.levels.empty());
}

TEST(AlertDialogHiding, IsHalfTranslucentFromTheStartWhenThatIsTicked) {
    DialogRig rig;
    rig.dialog.chkLog.setDesignValue(1);
    rig.window.show();
    EXPECT_EQ(rig.glass.levels, (Levels{{"dlgAlert", 50}}));
    rig.dialog.Hide();
    rig.window.show();
    EXPECT_EQ(rig.glass.levels.size(), 1u);
    rig.dialog.chkLog.userClick();
    EXPECT_EQ(rig.glass.levels.back(), (Levels::value_type{"dlgAlert", 100}));
}

TEST(AlertDialogHiding, TheCheckBoxTogglesBetweenHalfTranslucentAndOpaque) {
    DialogRig rig;
    rig.window.show();
    for (int i = 0; i < 3; ++i) rig.dialog.chkLog.userClick();
    EXPECT_EQ(rig.glass.levels, (Levels{{"dlgAlert", 50}, {"dlgAlert", 100}, {"dlgAlert", 50}}));
    EXPECT_EQ(rig.forms.globals.iTranslucency, 100);
}

TEST(AlertDialogHiding, TheTimerRunsWhileAutoHideIsTicked) {
    DialogRig rig;
    rig.window.show();
    rig.dialog.chkAutoHide.userClick();
    EXPECT_TRUE(rig.dialog.Timer1.Enabled());
    rig.tick();
    EXPECT_EQ(rig.dialog.Caption(), countdown + "10");
    rig.dialog.chkAutoHide.userClick();
    EXPECT_FALSE(rig.dialog.Timer1.Enabled());
    EXPECT_EQ(rig.dialog.Caption(), "Alert Dialog");
}

TEST(AlertDialogHiding, CountsDownInItsCaptionAndHidesAtZero) {
    CountingDialog rig;
    for (int left = 10; left >= 2; --left) {
        rig.tick();
        EXPECT_EQ(rig.dialog.Caption(), countdown + std::to_string(left));
        EXPECT_TRUE(rig.dialog.Visible());
    }
    EXPECT_EQ(rig.machine.files.count(rig.logPath), 0u);
    std::vector<std::string> captions;
    rig.dialog.Changed.connect([&] { captions.push_back(rig.dialog.Caption()); });
    rig.tick();
    EXPECT_FALSE(rig.dialog.Visible());
    ASSERT_FALSE(captions.empty());
    EXPECT_EQ(captions.front(), countdown + "1");
    EXPECT_EQ(rig.dialog.Caption(), "Alert Dialog");
    EXPECT_EQ(rig.machine.files[rig.logPath], "journal\r\n");
}

TEST(AlertDialogHiding, IsReadyToBeShownAgainAfterItsDismissal) {
    CountingDialog rig;
    rig.tick(10);
    EXPECT_TRUE(rig.dialog.Timer1.Enabled());
    rig.window.show();
    rig.tick();
    EXPECT_EQ(rig.dialog.Caption(), countdown + "10");
    rig.tick(9);
    EXPECT_FALSE(rig.dialog.Visible());
    EXPECT_EQ(rig.machine.files[rig.logPath], "journal\r\njournal\r\n");
}

TEST(AlertDialogHiding, TheTimerIsOffDuringTheSave) {
    CountingDialog rig;
    rig.tick(9);
    bool seen = false;
    rig.machine.onCall = [&](const std::string&) {
        seen = true;
        EXPECT_FALSE(rig.dialog.Timer1.Enabled());
        EXPECT_FALSE(rig.dialog.Visible());
        EXPECT_EQ(rig.dialog.Caption(), countdown + "1");
    };
    rig.tick();
    EXPECT_TRUE(seen);
}

TEST(AlertDialogHiding, ADialogHiddenByHandCountsDownAgain) {
    CountingDialog rig;
    rig.tick(4);
    rig.click("OK");
    rig.tick();
    rig.window.show();
    rig.tick();
    EXPECT_EQ(rig.dialog.Caption(), countdown + "10");
    EXPECT_EQ(rig.machine.files.count(rig.logPath), 0u);
}

TEST(AlertDialogHiding, AHiddenOneOnlyResetsItsCount) {
    DialogRig rig;
    rig.dialog.chkAutoHide.setValue(1);
    rig.tick(30);
    EXPECT_EQ(rig.dialog.Caption(), "Alert Window - Velmora ");
    EXPECT_EQ(rig.machine.log.count(), 0);
}

TEST(AlertDialogHiding, SwitchingTheCountdownOffAndOnContinuesIt) {
    CountingDialog rig;
    rig.tick(3);
    rig.dialog.chkAutoHide.userClick();
    rig.dialog.chkAutoHide.userClick();
    rig.tick();
    EXPECT_EQ(rig.dialog.Caption(), countdown + "7");
}

TEST(AlertDialogHiding, WithAutoHideOffItStaysUntilItIsClosedByHandAndNothingIsSaved) {
    DialogRig rig;
    rig.form1.chkAutoSave.setValue(1);
    rig.window.show();
    rig.tick(50);
    EXPECT_TRUE(rig.dialog.Visible());
    EXPECT_EQ(rig.dialog.Caption(), "Alert Dialog");
    EXPECT_EQ(rig.machine.log.count(), 0);
    rig.dialog.userClose();
    EXPECT_FALSE(rig.dialog.Visible());
    EXPECT_EQ(rig.machine.log.count(), 0);
}

TEST(AlertDialogHiding, WithAutoSaveOffItsDismissalWritesNothing) {
    CountingDialog rig;
    rig.form1.chkAutoSave.setValue(0);
    rig.tick(10);
    EXPECT_FALSE(rig.dialog.Visible());
    EXPECT_EQ(rig.machine.log.count(), 0);
}

TEST(AlertDialogHiding, ALogThatCantBeWrittenIsReportedAndTheDialogStillCountsDownNextTime) {
    for (const int failure : {error::permissionDenied, error::diskFull, error::deviceIo}) {
        CountingDialog rig;
        rig.tick(9);
        rig.machine.log.failCall(1, failure);
        EXPECT_EQ(errorOf([&] { rig.tick(); }), failure);
        EXPECT_FALSE(rig.dialog.Visible());
        EXPECT_TRUE(rig.dialog.Timer1.Enabled());
        EXPECT_EQ(rig.dialog.Caption(), "Alert Dialog");
        EXPECT_EQ(rig.machine.files.count(rig.logPath), 0u);
        EXPECT_EQ(rig.form1.txtAlert.Text(), "journal");
        rig.window.show();
        rig.tick();
        EXPECT_EQ(rig.dialog.Caption(), countdown + "10");
    }
}

}  // namespace
}  // namespace velmora::tests
