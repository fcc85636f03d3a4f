// The alert dialog's place on the screen.
#include "alerts/alert_dialog_window.h"

#include "alerts/alert_rig.h"

namespace velmora::tests {
namespace {

struct Screen : WorkArea {
    int Width() override { return 20000; }
    int Height() override { return 15000; }
};

TEST(AlertDialogWindow, ComesInTheLowerRightCornerOfTheWorkArea) {
    Forms forms;
    Screen screen;
    AlertDialogWindow window{forms, screen};
    forms.dlgAlert.setSize(5400, 4200);
    window.show();
    EXPECT_EQ(forms.dlgAlert.Left(), 20000 - 5400);
    EXPECT_EQ(forms.dlgAlert.Top(), 15000 - 4200);
    EXPECT_TRUE(forms.dlgAlert.Visible());
}

TEST(AlertDialogWindow, IsPlacedBeforeItIsShownAndByTheHeightThatItHas) {
    Forms forms;
    Screen screen;
    AlertDialogWindow window{forms, screen};
    forms.dlgAlert.setSize(5400, 6000);
    int topWhenLoaded = 0;
    forms.dlgAlert.Load.connect([&] { topWhenLoaded = forms.dlgAlert.Top(); });
    window.show();
    EXPECT_EQ(topWhenLoaded, 9000);
    EXPECT_EQ(forms.dlgAlert.Height(), 6000);
}

TEST(AlertDialogWindow, ComesBackToItsCornerAndToTheFrontEachTime) {
    Forms forms;
    Screen screen;
    AlertDialogWindow window{forms, screen};
    int raised = 0;
    forms.dlgAlert.Raised.connect([&] { ++raised; });
    window.show();
    forms.dlgAlert.moveTo(0, 0);
    window.show();
    EXPECT_EQ(forms.dlgAlert.Left(), 20000 - forms.dlgAlert.Width());
    EXPECT_EQ(raised, 2);
}

TEST(AlertDialogWindow, ASurfaceWithoutAScreenHasASmallOne) {
    WorkArea none;
    EXPECT_EQ(none.Width(), 1024 * 15);
    EXPECT_EQ(none.Height(), 768 * 15);
}

TEST(AlertDialogWindow, TheMenuItemsBringItInItsFullHeight) {
    for (const bool tray : {true, false}) {
        AlertRig rig;
        Screen screen;
        AlertDialogWindow window{rig.forms, screen};
        AlertList alerts{rig.forms, rig.machine.platform(), rig.notifyArea, window};
        rig.forms.dlgAlert.setSize(5000, 7000);
        (tray ? rig.form1.mnuShowAl : rig.form1.mnuShowAlert).userClick();
        EXPECT_EQ(rig.forms.dlgAlert.Height(), 4200);
        EXPECT_EQ(rig.forms.dlgAlert.Width(), 5000);
        EXPECT_EQ(rig.forms.dlgAlert.Top(), 15000 - 4200);
    }
}

}  // namespace
}  // namespace velmora::tests
