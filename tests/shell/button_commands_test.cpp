// The main window's buttons that only forward.
#include "base/runtime_error.h"
#include "shell/command_rig.h"

namespace velmora::tests {
namespace {

TEST(ButtonCommands, AdvDataShowsTheDriveInformation) {
    CommandRig rig;
    rig.form1.cmdAdv.userClick();
    EXPECT_TRUE(rig.forms.dlgDriveInfo.Visible());
}

TEST(ButtonCommands, ShowRefreshDrivesClicksTheLastLabelUnderTheList) {
    CommandRig rig;
    std::vector<int> clicked;
    for (Label& label : rig.form1.lblDP) {
        label.Click.connect([&] { clicked.push_back(label.Index()); });
    }
    rig.form1.Command1.userClick();
    EXPECT_EQ(clicked, std::vector<int>{4});
}

TEST(ButtonCommands, TheAboutBoxComesAfterTheSettingsAreSaved) {
    CommandRig rig;
    const std::string file = "C:\\Program Files\\Velmora\\set.dat";
    rig.forms.globals.strSettings = file;
    rig.form1.txtTime.setText("7");
    bool saved = false;
    rig.forms.frmAbout.Raised.connect([&] { saved = rig.machine.files.count(file) > 0; });
    rig.form1.Command8.userClick();
    EXPECT_EQ(rig.shown, Texts{"frmAbout"});
    EXPECT_TRUE(saved);
}

TEST(ButtonCommands, AFailedSaveShowsNoAboutBox) {
    CommandRig rig;
    const std::string file = "C:\\Program Files\\Velmora\\set.dat";
    rig.forms.globals.strSettings = file;
    rig.machine.files[file] = "";
    rig.machine.lockedFiles[file] = error::permissionDenied;
    EXPECT_THROW(rig.form1.Command8.userClick(), RuntimeError);
    EXPECT_TRUE(rig.shown.empty());
}

TEST(ButtonCommands, TheLabelOfTheOverviewShowsTheAboutBox) {
    CommandRig rig;
    rig.form1.lblAbout.userClick();
    EXPECT_EQ(rig.shown, Texts{"frmAbout"});
}

TEST(ButtonCommands, Command7TheHeadingAndTheFolderLabelDoNothing) {
    CommandRig rig;
    rig.form1.Command7.Click();
    rig.form1.lblTabCap.Click();
    rig.form1.lblFolder.Click();
    EXPECT_TRUE(rig.shown.empty());
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_TRUE(rig.host.dialogs.empty());
    EXPECT_TRUE(rig.machine.executed.empty());
}

}  // namespace
}  // namespace velmora::tests
