// The parts of Persist, built and connected as the program has them.
#include "persist/persist.h"

#include <gtest/gtest.h>

#include "settings_rig.h"

namespace velmora::tests {
namespace {

struct PersistTest : testing::Test {
    PersistTest() { forms.globals.strSettings = path; }

    const std::string path = R"(C:\Program Files\Velmora\set.dat)";
    fake::FakeMachine machine;
    fake::FakeHost host;
    Forms forms;
    Persist persist{forms, machine.platform(), host};
};

TEST_F(PersistTest, TheSettingsFileIsOfTheGivenForms) {
    machine.files[path] = fileOf({"txtTime=60"});
    persist.settingsFile().prcSettings(2);
    EXPECT_EQ(forms.form1.txtTime.Text(), "60");
}

TEST_F(PersistTest, TheLinksAreOfTheGivenMachine) {
    machine.specialFolders[16] = "C:\\Users\\user\\Desktop";
    EXPECT_EQ(persist.shellLinks().fSpecialFolder(16), "C:\\Users\\user\\Desktop");
}

TEST_F(PersistTest, ATickedStartOptionIsWrittenIntoTheRunKey) {
    forms.form1.chkStartUp.setValue(1);
    EXPECT_EQ(machine.runKey().values.count("Velmora"), 1u);
}

TEST_F(PersistTest, AStoredOptionRunsItsHandlerWhenItIsRead) {
    machine.files[path] = fileOf({"txtTime=60", "chkStartUp=1"});
    persist.settingsFile().prcSettings(2);
    EXPECT_EQ(machine.runKey().values.count("Velmora"), 1u);
}

}  // namespace
}  // namespace velmora::tests
