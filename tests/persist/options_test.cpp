// The options of the settings page with handlers of a few lines.
#include "persist/options.h"

#include <gtest/gtest.h>

#include "fake/fake_host.h"
#include "fake/fake_machine.h"

namespace velmora::tests {
namespace {

struct OptionsRig {
    fake::FakeMachine machine;
    fake::FakeHost host;
    Forms forms;
    Form1& form1 = forms.form1;
    Registry registry{machine.platform().advapi32, host};
    Options options{forms.form1, forms.globals, machine.platform().app, registry};

    const std::string* started() {
        const auto& values = machine.runKey().values;
        const auto found = values.find("Velmora");
        return found == values.end() ? nullptr : &found->second.data;
    }
};

TEST(StartWithTheSystem, TickedTheProgramsPathIsInTheRunKey) {
    OptionsRig rig;
    EXPECT_EQ(rig.started(), nullptr);
    rig.form1.chkStartUp.userClick();
    ASSERT_NE(rig.started(), nullptr);
    EXPECT_EQ(*rig.started(), "C:\\Program Files\\Velmora\\velmora");
}

TEST(StartWithTheSystem, UntickedTheValueStaysInTheKeyEmpty) {
    OptionsRig rig;
    rig.form1.chkStartUp.setValue(1);
    rig.form1.chkStartUp.setValue(0);
    ASSERT_NE(rig.started(), nullptr);
    EXPECT_EQ(*rig.started(), "");
}

TEST(StartWithTheSystem, WithoutTheRightsABoxIsShown) {
    OptionsRig rig;
    rig.machine.runKey().openResult = 5;
    rig.form1.chkStartUp.setValue(1);
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text, "Access to this key is denied");
    EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::critical);
    EXPECT_EQ(rig.form1.chkStartUp.Value(), 1);
    rig.form1.chkStartUp.setValue(0);
    EXPECT_EQ(rig.host.boxes.size(), 2u);
}

TEST(StartWithTheSystem, NothingIsWrittenBeforeTheBoxIsClicked) {
    OptionsRig rig;
    EXPECT_EQ(rig.machine.log.count(), 0);
    rig.form1.chkStartUp.setValue(0);
    EXPECT_EQ(rig.machine.log.count(), 0);
}

TEST(ShowLog, TheJournalIsShownAndEnabledWhileTicked) {
    OptionsRig rig;
    rig.form1.txtAlert.setText("entry");
    rig.form1.chkLog.setValue(0);
    EXPECT_FALSE(rig.form1.txtAlert.Enabled());
    EXPECT_FALSE(rig.form1.txtAlert.Visible());
    EXPECT_EQ(rig.form1.txtAlert.Text(), "entry");
    rig.form1.chkLog.setValue(1);
    EXPECT_TRUE(rig.form1.txtAlert.Enabled());
    EXPECT_TRUE(rig.form1.txtAlert.Visible());
}

TEST(ShowLog, AHiddenJournalGoesOn) {
    OptionsRig rig;
    rig.form1.chkLog.setValue(0);
    rig.form1.txtAlert.prepend("new");
    EXPECT_EQ(rig.form1.txtAlert.Text(), "new");
}

TEST(UpdateOption, SetsTheFlagOfTheUpdateCheck) {
    OptionsRig rig;
    EXPECT_FALSE(rig.forms.globals.bAutoUpdate);
    rig.form1.chkUpdate.setValue(1);
    EXPECT_TRUE(rig.forms.globals.bAutoUpdate);
    rig.form1.chkUpdate.setValue(0);
    EXPECT_FALSE(rig.forms.globals.bAutoUpdate);
}

}  // namespace
}  // namespace velmora::tests
