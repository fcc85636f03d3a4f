// Settings and log in another folder than the program's.
#include "app/data_folder.h"

#include <gtest/gtest.h>

#include <sstream>

#include "shell/help_question.h"
#include "wired_rig.h"

namespace velmora::tests {
namespace {

struct Prepared {
    std::optional<int> status;
    std::string failed;
};

Prepared prepared(DataFolderState state, ProgramKind kind) {
    fake::FakeMachine machine;
    machine.dataFolder = state;
    machine.platform().app.DataPath = "D:\\data";
    std::ostringstream errors;
    const auto status = prepareDataFolder(machine, kind, errors);
    return {.status = status, .failed = errors.str()};
}

TEST(DataFolderAtTheStart, OneThatIsReadyIsNotMentioned) {
    const Prepared ready = prepared(DataFolderState::ready, ProgramKind::console);
    EXPECT_FALSE(ready.status);
    EXPECT_EQ(ready.failed, "");
}

TEST(DataFolderAtTheStart, OneThatCannotServeIsNamed) {
    const Prepared missing = prepared(DataFolderState::notMade, ProgramKind::console);
    EXPECT_EQ(missing.status, 2);
    EXPECT_EQ(missing.failed,
              "velmora-console: The folder for settings and log is not there and can't be made: "
              "D:\\data\n");
    const Prepared full = prepared(DataFolderState::notFilled, ProgramKind::window);
    EXPECT_EQ(full.status, 2);
    EXPECT_EQ(full.failed, "velmora: The first settings can't be written to the folder D:\\data\n");
}

TEST(DataFolderAtTheStart, AChosenOneIsNamedAsItWasTyped) {
    fake::FakeMachine machine;
    machine.dataFolder = DataFolderState::notMade;
    machine.platform().app.Options.settings = "X:\\none";
    std::ostringstream errors;
    EXPECT_EQ(prepareDataFolder(machine, ProgramKind::console, errors), 2);
    EXPECT_TRUE(errors.str().ends_with("can't be made: X:\\none\n"));
}

struct DataFolderRig : testing::Test {
    DataFolderRig() {
        machine.drives["C:"] = {50e9, 100e9};
        machine.platform().app.DataPath = data;
        machine.platform().app.FolderKey = data;
        machine.folders.insert("c:\\data");
        machine.files[data + "\\set.dat"] = prcEn("txtTime=77\r\n") + "\r\n";
        machine.files[program + "\\set.dat"] = prcEn("txtTime=60\r\n") + "\r\n";
    }

    const std::string program = "C:\\Program Files\\Velmora";
    const std::string data = "C:\\data";
    fake::FakeMachine machine;
    fake::FakeSurface surface;
    Forms forms;
    Core core{forms, machine.platform(), surface.all()};
};

TEST_F(DataFolderRig, TheSettingsAreReadAndSavedThere) {
    const std::string installed = machine.files[program + "\\set.dat"];
    core.load();
    EXPECT_EQ(forms.form1.txtTime.Text(), "77\r\n");
    forms.form1.txtTime.setText("88");
    forms.form1.Command8.userClick();
    EXPECT_NE(machine.files[data + "\\set.dat"].find(prcEn("txtTime=88")), std::string::npos);
    EXPECT_EQ(machine.files[program + "\\set.dat"], installed);
}

TEST_F(DataFolderRig, TheLogLiesThere) {
    core.load();
    EXPECT_EQ(forms.form1.lblLog.Caption(), data + "\\log.dat");
}

TEST_F(DataFolderRig, TheCleanerStaysWithTheProgramAndItsDriveDoesNot) {
    core.load();
    forms.dlgAlert.lblAct[0].userClick();
    EXPECT_EQ(machine.files.count(data + "\\clen.dat"), 1U);
    EXPECT_EQ(machine.files.count(program + "\\clen.dat"), 0U);
    ASSERT_EQ(machine.executed.size(), 1U);
    EXPECT_EQ(machine.executed[0].file, program + "\\sorbane.exe");
}

TEST_F(DataFolderRig, TheHelpStaysWithTheProgram) {
    core.load();
    surface.host.answers.push_back(BoxAnswer::no);
    askForHelp(forms.form1, machine.platform(), surface.host);
    ASSERT_EQ(machine.executed.size(), 1U);
    EXPECT_EQ(machine.executed[0].file, program + "\\velmora.html");
}

}  // namespace
}  // namespace velmora::tests
