// The steps of the setup wizard: one at a time, forward and back.
#include <algorithm>

#include "shell/wizard/wizard_rig.h"

namespace velmora::tests {
namespace {

struct WizardStepsTest : testing::Test, WizardRig {
    /// The steps that are visible.
    std::vector<int> shown() const {
        std::vector<int> all;
        for (const Frame& frame : wizard.Frame1) {
            if (frame.Visible()) all.push_back(frame.Index());
        }
        return all;
    }
    const std::string& counter() const { return wizard.lblOp.Caption(); }
    void forward(int times) {
        for (int i = 0; i < times; ++i) wizard.cmdProgress.userClick();
    }
};

TEST_F(WizardStepsTest, OpensFromTheToolBarWithItsCaption) {
    EXPECT_TRUE(wizard.Visible());
    EXPECT_EQ(wizard.Caption(), "Velmora Wizard/Pref.");
}

TEST_F(WizardStepsTest, BeginsWithTheFirstStepAlone) {
    EXPECT_EQ(shown(), std::vector{0});
    EXPECT_EQ(counter(), "Options: 1/10");
    EXPECT_FALSE(wizard.cmdReverse.Enabled());
    EXPECT_TRUE(wizard.cmdProgress.Enabled());
}

TEST_F(WizardStepsTest, ForwardShowsTheNextStepAndCounts) {
    const int last = static_cast<int>(wizard.Frame1.size()) - 1;
    for (int step = 1; step <= last; ++step) {
        wizard.cmdProgress.userClick();
        EXPECT_EQ(shown(), std::vector{step});
        EXPECT_EQ(counter(), "Options: " + std::to_string(step + 1) + "/10");
        EXPECT_TRUE(wizard.cmdReverse.Enabled());
        EXPECT_EQ(wizard.cmdProgress.Enabled(), step < last) << step;
    }
}

TEST_F(WizardStepsTest, TheCounterNeverExceedsTheNumberOfSteps) {
    forward(9);
    // The button is disabled for the user; its handler stops too.
    EXPECT_THROW(wizard.cmdProgress.userClick(), Refused);
    wizard.cmdProgress.Click();
    EXPECT_EQ(counter(), "Options: 10/10");
    EXPECT_EQ(shown(), std::vector{9});
}

TEST_F(WizardStepsTest, BackIsTheMirror) {
    forward(9);
    for (int step = 8; step >= 0; --step) {
        wizard.cmdReverse.userClick();
        EXPECT_EQ(shown(), std::vector{step});
        EXPECT_EQ(counter(), "Options: " + std::to_string(step + 1) + "/10");
        EXPECT_TRUE(wizard.cmdProgress.Enabled());
        EXPECT_EQ(wizard.cmdReverse.Enabled(), step > 0) << step;
    }
    EXPECT_THROW(wizard.cmdReverse.userClick(), Refused);
    wizard.cmdReverse.Click();
    EXPECT_EQ(counter(), "Options: 1/10");
    EXPECT_EQ(shown(), std::vector{0});
}

TEST_F(WizardStepsTest, EachFrameIsAtTheSameSpotAndSizedToTheForm) {
    const Bounds first = wizard.Frame1[0].bounds();
    EXPECT_EQ(first.Height, wizard.Height() - 2700);
    EXPECT_EQ(first.Width, wizard.Width() - 1900);
    EXPECT_GE(first.Left, 0);
    EXPECT_GE(first.Top, 0);
    EXPECT_LE(first.Left + first.Width, wizard.Width());
    EXPECT_LE(first.Top + first.Height, wizard.Height());
    for (const Frame& frame : wizard.Frame1) EXPECT_EQ(frame.bounds(), first) << frame.Index();
}

TEST_F(WizardStepsTest, FramesFollowTheFormsSize) {
    close();
    wizard.setSize(9000, 6000);
    open();
    EXPECT_EQ(wizard.Frame1[3].bounds().Height, 3300);
    EXPECT_EQ(wizard.Frame1[3].bounds().Width, 7100);
    wizard.setSize(9150, 6015);
    EXPECT_EQ(wizard.Frame1[9].bounds().Height, 3315);
    EXPECT_EQ(wizard.Frame1[9].bounds().Width, 7250);
}

TEST_F(WizardStepsTest, OpenedAnewItBeginsWithTheFirstStep) {
    forward(4);
    reopen();
    EXPECT_EQ(shown(), std::vector{0});
    EXPECT_EQ(counter(), "Options: 1/10");
    EXPECT_FALSE(wizard.cmdReverse.Enabled());
}

TEST_F(WizardStepsTest, TheButtonOfAnOpenWizardKeepsItsStep) {
    forward(4);
    open();
    EXPECT_EQ(shown(), std::vector{4});
}

TEST_F(WizardStepsTest, AStepOfTheListIsReachedByForwardAndBack) {
    int forwards = 0;
    int backs = 0;
    wizard.cmdProgress.Click.connect([&] { ++forwards; });
    wizard.cmdReverse.Click.connect([&] { ++backs; });
    wizard.lblStep[6].userClick();
    EXPECT_EQ(shown(), std::vector{6});
    EXPECT_EQ(counter(), "Options: 7/10");
    wizard.lblStep[6].userClick();
    EXPECT_EQ(std::pair(forwards, backs), std::pair(6, 0));
    wizard.lblStep[2].userClick();
    EXPECT_EQ(shown(), std::vector{2});
    EXPECT_EQ(std::pair(forwards, backs), std::pair(6, 4));
    wizard.lblStep[9].userClick();
    EXPECT_FALSE(wizard.cmdProgress.Enabled());
    wizard.lblStep[0].userClick();
    EXPECT_FALSE(wizard.cmdReverse.Enabled());
    EXPECT_TRUE(wizard.cmdProgress.Enabled());
}

TEST_F(WizardStepsTest, HelpAsksAsTheHelpOfTheToolBarDoes) {
    host.answers = {BoxAnswer::yes};
    wizard.cmdHelp.userClick();
    EXPECT_EQ(said(), Words{"We recommend viewing an updated help section on our website.  Go to "
                            "website?"});
    ASSERT_EQ(machine.executed.size(), 1u);
    EXPECT_TRUE(machine.executed[0].file.ends_with("/velmora/help"));
    wizard.cmdHelp.userClick();
    EXPECT_EQ(machine.executed.back().file, "C:\\Program Files\\Velmora\\velmora.html");
    EXPECT_TRUE(wizard.Visible());
}

}  // namespace
}  // namespace velmora::tests
