// The alert dialog's place on the screen.
#include "alerts/dialog/alert_dialog_window.h"

#include "alerts/alert_rig.h"
#include "alerts/dialog/dialog_rig.h"

namespace velmora::tests {
namespace {

struct Screen : WorkArea {
    int Width() override { return 20000; }
    int Height() override { return 15000; }
};

TEST(AlertDialogWindow, OpensInTheLowerRightCornerOfTheWorkArea) {
    Forms forms;
    Screen screen;
    AlertDialogWindow window{forms.form1, forms.dlgAlert, screen};
    forms.dlgAlert.setSize(5400, 4200);
    window.show();
    EXPECT_EQ(forms.dlgAlert.Left(), 20000 - 5400);
    EXPECT_EQ(forms.dlgAlert.Top(), 15000 - 4200);
    EXPECT_TRUE(forms.dlgAlert.Visible());
}

TEST(AlertDialogWindow, IsPlacedByItsPresentHeightBeforeItIsShown) {
    Forms forms;
    Screen screen;
    AlertDialogWindow window{forms.form1, forms.dlgAlert, screen};
    forms.dlgAlert.setSize(5400, 6000);
    int topWhenLoaded = 0;
    forms.dlgAlert.Load.connect([&] { topWhenLoaded = forms.dlgAlert.Top(); });
    window.show();
    EXPECT_EQ(topWhenLoaded, 9000);
    EXPECT_EQ(forms.dlgAlert.Height(), 6000);
}

TEST(AlertDialogWindow, ReturnsToItsCornerAndToTheFrontEachTime) {
    Forms forms;
    Screen screen;
    AlertDialogWindow window{forms.form1, forms.dlgAlert, screen};
    int raised = 0;
    forms.dlgAlert.Raised.connect([&] { ++raised; });
    window.show();
    forms.dlgAlert.moveTo(0, 0);
    window.show();
    EXPECT_EQ(forms.dlgAlert.Left(), 20000 - forms.dlgAlert.Width());
    EXPECT_EQ(raised, 2);
}

TEST(AlertDialogWindow, TheMenuItemsShowItInItsFullHeight) {
    for (const bool tray : {true, false}) {
        Forms forms;
        Screen screen;
        AlertDialogWindow window{forms.form1, forms.dlgAlert, screen};
        forms.dlgAlert.setSize(5000, 7000);
        int shown = 0;
        forms.dlgAlert.Raised.connect([&] { ++shown; });
        (tray ? forms.form1.mnuShowAl : forms.form1.mnuShowAlert).userClick();
        EXPECT_EQ(shown, 1);
        EXPECT_TRUE(forms.dlgAlert.Visible());
        EXPECT_EQ(forms.dlgAlert.Height(), 4200);
        EXPECT_EQ(forms.dlgAlert.Width(), 5000);
        EXPECT_EQ(forms.dlgAlert.Top(), 15000 - 4200);
        EXPECT_EQ(forms.form1.LVAlert.Count(), 0);
    }
}

TEST(AlertDialogWindow, OkHidesItAndLeavesItsJournal) {
    DialogRig rig;
    rig.window.show();
    rig.dialog.Label1.setText("entry");
    rig.click("OK");
    EXPECT_FALSE(rig.dialog.Visible());
    EXPECT_EQ(rig.dialog.Label1.Text(), "entry");
    rig.window.show();
    EXPECT_TRUE(rig.dialog.Visible());
}

TEST(AlertDialogWindow, ClosingItByItsFrameHidesIt) {
    DialogRig rig;
    rig.window.show();
    rig.dialog.Label1.setText("entry");
    rig.dialog.userClose();
    EXPECT_FALSE(rig.dialog.Visible());
    EXPECT_EQ(rig.dialog.Label1.Text(), "entry");
}

// An action's text opens the dialog when the dialog doesn't hold it.
TEST(AlertDialogWindow, ClearEmptiesItsOwnJournalSoThatEveryTextIsNewAgain) {
    DialogRig rig;
    rig.form1.txtAlert.setText("journal");
    rig.dialog.Label1.setText("older");
    rig.dialog.Label1.prepend("moved\r\n . \r\n");
    EXPECT_TRUE(rig.dialog.Label1.contains("moved"));
    rig.click("Clear");
    EXPECT_TRUE(rig.dialog.Label1.empty());
    EXPECT_FALSE(rig.dialog.Label1.contains("moved"));
    EXPECT_EQ(rig.form1.txtAlert.Text(), "journal");
}

TEST(AlertDialogWindow, ExplorerLeavesOneEmptyEntryInSpiteOfItsCaption) {
    DialogRig rig;
    rig.dialog.Label1.setText("entry");
    rig.click("Explorer");
    EXPECT_EQ(rig.dialog.Label1.Text(), " . ");
    EXPECT_TRUE(rig.machine.executed.empty());
}

TEST(AlertDialogWindow, ActionMakesItHigherInItsCorner) {
    DialogRig rig;
    rig.dialog.setSize(5000, 4200);
    rig.window.show();
    rig.click("Action");
    EXPECT_EQ(rig.dialog.Height(), 8200);
    EXPECT_EQ(rig.dialog.Width(), 5000);
    EXPECT_EQ(rig.dialog.Left(), 20000 - 5000);
    EXPECT_EQ(rig.dialog.Top(), 15000 - 8200);
}

TEST(AlertDialogWindow, ActionDoesNotMoveOneThatIsHighEnough) {
    for (const int height : {8200, 9000}) {
        DialogRig rig;
        rig.window.show();
        rig.dialog.setSize(5000, height);
        rig.dialog.moveTo(100, 200);
        rig.click("Action");
        EXPECT_EQ(rig.dialog.Height(), height);
        EXPECT_EQ(rig.dialog.Left(), 100);
        EXPECT_EQ(rig.dialog.Top(), 200);
    }
}

}  // namespace
}  // namespace velmora::tests
