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
    Forms forms;
    RecordedWindows windows;
    forms.form1.Command8.Click.connect([&] { windows.calls.push_back("saved"); });
    const ButtonCommands commands{forms, windows};
    forms.form1.Command8.userClick();
    EXPECT_EQ(windows.calls, (Texts{"saved", "showAbout"}));
}

TEST(ButtonCommands, AFailedSaveShowsNoAboutBox) {
    Forms forms;
    RecordedWindows windows;
    forms.form1.Command8.Click.connect([] { throw RuntimeError(error::permissionDenied); });
    const ButtonCommands commands{forms, windows};
    EXPECT_THROW(forms.form1.Command8.userClick(), RuntimeError);
    EXPECT_TRUE(windows.calls.empty());
}

TEST(ButtonCommands, TheLabelOfTheOverviewShowsTheAboutBox) {
    CommandRig rig;
    rig.form1.lblAbout.userClick();
    EXPECT_EQ(rig.windows.calls, Texts{"showAbout"});
}

TEST(ButtonCommands, Command7TheHeadingAndTheFolderLabelDoNothing) {
    CommandRig rig;
    rig.form1.Command7.Click();
    rig.form1.lblTabCap.Click();
    rig.form1.lblFolder.Click();
    EXPECT_TRUE(rig.windows.calls.empty());
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_TRUE(rig.host.dialogs.empty());
    EXPECT_TRUE(rig.machine.executed.empty());
}

}  // namespace
}  // namespace velmora::tests
