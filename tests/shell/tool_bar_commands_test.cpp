// The tool bar, whose captions choose its commands.
#include "shell/command_rig.h"

namespace velmora::tests {
namespace {

constexpr int startButton = 1, wizardButton = 2, infoButton = 3, functionsButton = 4,
              viewButton = 5, helpButton = 6;

TEST(ToolBarCommands, StartAndPauseRunTheSwitchOfTheWatch) {
    CommandRig rig;
    int switched = 0;
    counted(rig.form1.cmdPause.Click, switched);
    rig.form1.Toolbar1.userClickPart(startButton);
    EXPECT_EQ(switched, 1);
    rig.form1.Toolbar1.setButtonCaption(startButton, "Pause");
    rig.form1.Toolbar1.userClickPart(startButton);
    EXPECT_EQ(switched, 2);
}

TEST(ToolBarCommands, TheWizardButtonShowsTheWizard) {
    CommandRig rig;
    rig.form1.Toolbar1.userClickPart(wizardButton);
    EXPECT_TRUE(rig.forms.frmWizard.Visible());
}

TEST(ToolBarCommands, AdvInfoClicksTheButtonThatShowsTheDriveInformation) {
    CommandRig rig;
    int clicked = 0;
    counted(rig.form1.cmdAdv.Click, clicked);
    rig.form1.Toolbar1.userClickPart(infoButton);
    EXPECT_EQ(clicked, 1);
    EXPECT_TRUE(rig.forms.dlgDriveInfo.Visible());
}

TEST(ToolBarCommands, FunctionsPopsUpItsMenu) {
    CommandRig rig;
    int popped = 0;
    counted(rig.form1.mnuFunc.PoppedUp, popped);
    rig.form1.Toolbar1.userClickPart(functionsButton);
    EXPECT_EQ(popped, 1);
    rig.form1.Toolbar1.setButtonCaption(functionsButton, "More Functions...");
    rig.form1.Toolbar1.userClickPart(functionsButton);
    EXPECT_EQ(popped, 2);
}

TEST(ToolBarCommands, ViewMinusAndViewPlusBothToggleTheView) {
    CommandRig rig;
    rig.form1.Toolbar1.userClickPart(viewButton);
    EXPECT_EQ(rig.form1.Height(), 3800);
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(viewButton).Caption, "View +");
    rig.form1.Toolbar1.userClickPart(viewButton);
    EXPECT_EQ(rig.form1.Height(), 9100);
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(viewButton).Caption, "View -");
}

TEST(ToolBarCommands, TheCaptionAndNotThePlaceChoosesTheCommand) {
    CommandRig rig;
    rig.form1.Toolbar1.setButtonCaption(startButton, "Toggle View");
    rig.form1.Toolbar1.userClickPart(startButton);
    EXPECT_EQ(rig.form1.Height(), 3800);
    rig.form1.Toolbar1.setButtonCaption(viewButton, "Wizard Settings");
    rig.form1.Toolbar1.userClickPart(viewButton);
    EXPECT_TRUE(rig.forms.frmWizard.Visible());
}

TEST(ToolBarCommands, OtherCaptionsMustMatchExactly) {
    CommandRig rig;
    int clicked = 0;
    counted(rig.form1.cmdPause.Click, clicked);
    counted(rig.form1.cmdAdv.Click, clicked);
    for (const char* caption :
         {"start", "Start ", "Pause Watch", "Adv. Info.", "adv. info", "Wizard Settings...",
          "Wizard", "Helps", "help", "view", "functions", ""}) {
        rig.form1.Toolbar1.setButtonCaption(startButton, caption);
        rig.form1.Toolbar1.userClickPart(startButton);
    }
    EXPECT_EQ(clicked, 0);
    EXPECT_FALSE(rig.forms.frmWizard.Visible());
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.form1.Height(), 9100);
}

TEST(ToolBarCommands, HelpAsksAndYesOpensTheMakersHelpPage) {
    CommandRig rig;
    rig.host.answers = {BoxAnswer::yes};
    rig.form1.Toolbar1.userClickPart(helpButton);
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text,
              "We recommend viewing an updated help section on our website.  Go to website?");
    EXPECT_EQ(rig.host.boxes[0].buttons, BoxButtons::yesNo);
    EXPECT_EQ(rig.orders(), Texts{"Form1 open http://velmora.example/velmora/help"});
}

TEST(ToolBarCommands, NoOpensTheLocalHelpFile) {
    CommandRig rig;
    rig.host.answers = {BoxAnswer::no};
    rig.form1.Toolbar1.userClickPart(helpButton);
    EXPECT_EQ(rig.orders(), Texts{"Form1 open C:\\Program Files\\Velmora\\velmora.html"});
    EXPECT_EQ(rig.machine.executed[0].showCommand, 1);
}

TEST(ToolBarCommands, AFailedHelpPageIsNotReported) {
    CommandRig rig;
    rig.machine.executes = false;
    rig.form1.Toolbar1.userClickPart(helpButton);
    EXPECT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.form1.LVAlert.Count(), 0);
}

}  // namespace
}  // namespace velmora::tests
