// Later starts: what is handed over to a program that runs, and what it does with it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/single_start.h"
#include "console_session.h"
#include "rows/listed_file.h"
#include "wired_rig.h"

namespace velmora::tests {
namespace {

struct SecondStartTest : testing::Test, WiredRig {
    SecondStartTest() {
        core.load();
        surface.user32.calls.clear();
    }
    bool isInFront(const std::string& form) {
        return surface.user32.countOf("SetForegroundWindow " + form) == 1;
    }
    std::vector<std::string> listed() {
        std::vector<std::string> paths;
        for (int i = 1; i <= forms.form1.LVFile.Count(); ++i) {
            paths.push_back(ConstListedFile(forms.form1.LVFile.ListItems(i)).path());
        }
        return paths;
    }
};

TEST_F(SecondStartTest, ItsPathsJoinTheListAndTheWindowComesToTheFront) {
    forms.form1.Hide();
    forms.form1.mnuHide.setChecked(true);
    core.secondStart().take("\"C:\\a.log\" \"C:\\b.log\"");
    EXPECT_EQ(listed(), (std::vector<std::string>{"C:\\a.log", "C:\\b.log"}));
    EXPECT_TRUE(forms.form1.Visible());
    EXPECT_FALSE(forms.form1.mnuHide.Checked());
    EXPECT_TRUE(isInFront("Form1"));
    core.secondStart().take("\"C:\\c.log\"");
    EXPECT_EQ(listed().size(), 3u) << "those of the start before aren't added again";
}

TEST_F(SecondStartTest, AMinimisedWindowIsRestored) {
    forms.form1.setState(WindowState::minimised);
    core.secondStart().take("");
    EXPECT_EQ(forms.form1.State(), WindowState::normal);
    EXPECT_TRUE(listed().empty());
}

TEST_F(SecondStartTest, WhileItIsLockedTheLockComesToTheFront) {
    forms.globals.bLocked = true;
    forms.form1.Hide();
    core.secondStart().take("\"C:\\a.log\"");
    EXPECT_FALSE(forms.form1.Visible());
    EXPECT_TRUE(forms.frmLock.Visible());
    EXPECT_TRUE(isInFront("frmLock"));
    EXPECT_EQ(listed().size(), 1u);
}

struct SingleStart : testing::Test {
    SingleStart() {
        machine.platform().app.Options.single = true;
        machine.platform().app.ForOthers = "/c/a";
    }
    StartAs started() {
        return startAs(machine.platform(), [this](const std::string& command) {
            taken.push_back(command);
            return true;
        });
    }
    fake::FakeMachine machine;
    std::vector<std::string> taken;
};

TEST_F(SingleStart, TheFirstStartTakesThoseAfterIt) {
    EXPECT_EQ(started(), StartAs::ownProgram);
    EXPECT_TRUE(machine.otherStarts.start("later"));
    EXPECT_EQ(taken, std::vector<std::string>{"later"});
}

TEST_F(SingleStart, ASecondOneIsHandedOver) {
    machine.otherStarts.answers = true;
    EXPECT_EQ(started(), StartAs::handedOver);
    EXPECT_EQ(machine.otherStarts.handedOver, std::vector<std::string>{"/c/a"});
    EXPECT_FALSE(machine.otherStarts.start("later")) << "it listens no more";
}

TEST_F(SingleStart, StartedPlainlyItIsAProgramOfItsOwn) {
    machine.platform().app.Options.single = false;
    machine.otherStarts.answers = true;
    EXPECT_EQ(started(), StartAs::ownProgram);
    EXPECT_TRUE(machine.otherStarts.handedOver.empty());
}

TEST_F(SingleStart, AProgramThatDoesNotTakeItKeepsNobodyFromStarting) {
    machine.otherStarts.isTakenByAnother = true;
    EXPECT_EQ(started(), StartAs::ownProgram);
}

TEST_F(SingleStart, OfTwoAtOnceTheSlowerOneIsHandedOver) {
    machine.otherStarts.isTakenByAnother = true;
    machine.otherStarts.answersOnceAsked = true;
    EXPECT_EQ(started(), StartAs::handedOver);
    EXPECT_EQ(machine.otherStarts.handedOver, std::vector<std::string>{"/c/a"});
}

TEST_F(SingleStart, RestoringSettingsBesideARunningProgramIsRefused) {
    machine.platform().app.Options.restoreSettings = true;
    machine.otherStarts.answers = true;
    EXPECT_EQ(started(), StartAs::refused);
    EXPECT_EQ(machine.otherStarts.handedOver, std::vector<std::string>{""})
        << "it comes to the front, and takes no paths of a start that did nothing";
}

TEST_F(SingleStart, RestoringSettingsOfAProgramThatTakesNothingGoesOn) {
    machine.platform().app.Options.restoreSettings = true;
    EXPECT_EQ(started(), StartAs::ownProgram);
}

struct SecondWatch : testing::Test, ConsoleSession {
    std::string errorsOf(const std::string& input) {
        testing::internal::CaptureStderr();
        run(input);
        return testing::internal::GetCapturedStderr();
    }
};

TEST_F(SecondWatch, TheConsoleTellsOfAnother) {
    EXPECT_EQ(errorsOf("get txtAmt\n"), "");
    machine.otherStarts.isFolderFree = false;
    EXPECT_EQ(errorsOf("get txtAmt\n"),
              "Another watch runs on this folder: C:\\Program Files\\Velmora\n");
    EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace velmora::tests
