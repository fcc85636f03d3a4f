// The button that opens the wizard until something was watched.
#include "shell/first_steps.h"

#include <gtest/gtest.h>

#include "fake/fake_machine.h"
#include "forms/forms.h"

namespace velmora::tests {
namespace {

struct FirstStepsTest : testing::Test {
    fake::FakeMachine machine;
    Forms forms;
    Form1& form1 = forms.form1;

    UserState& state() { return machine.platform().userState; }
    bool offered() { return form1.cmdSetUp.Visible(); }
};

TEST_F(FirstStepsTest, TheWizardIsOfferedAtTheFirstStart) {
    const FirstSteps steps(form1, state());
    EXPECT_TRUE(offered());
    int opened = 0;
    form1.Toolbar1.ButtonClick.connect(
        [&](int button) { opened += button == tool::wizard ? 1 : 0; });
    form1.cmdSetUp.userClick();
    EXPECT_EQ(opened, 1);
    EXPECT_TRUE(offered());
    EXPECT_FALSE(state().read("watched"));
}

TEST_F(FirstStepsTest, ATickEndsTheOfferForGood) {
    {
        const FirstSteps steps(form1, state());
        form1.ListView1.Add("C:\\");
        form1.ListView1.userTick(1, true);
        EXPECT_FALSE(offered());
        form1.ListView1.userTick(1, false);
        EXPECT_FALSE(offered());
    }
    Forms again;
    const FirstSteps steps(again.form1, state());
    EXPECT_FALSE(again.form1.cmdSetUp.Visible());
}

TEST_F(FirstStepsTest, ARowThatTheProgramHasTickedEndsItToo) {
    const FirstSteps steps(form1, state());
    form1.ListView1.Add("C:\\");
    form1.Timer1.Tick();
    EXPECT_TRUE(offered());
    form1.ListView1.ListItems(1).setChecked(true);
    form1.Timer1.Tick();
    EXPECT_FALSE(offered());
    EXPECT_TRUE(state().read("watched"));
}

}  // namespace
}  // namespace velmora::tests
