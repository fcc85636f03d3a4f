// Emptying the recycle bin and feeding it, the disk cleaner, sounds, listed programs, properties.
#include "alerts/system/system_actions.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "base/runtime_error.h"
#include "fake/fake_surface.h"
#include "forms/forms.h"

namespace velmora::tests {
namespace {

struct Windows : fake::FakeUser32 {
    std::string GetActiveWindow() override {
        if (fails) throw RuntimeError(error::invalidCall);
        return active;
    }
    std::string active;
    bool fails = false;
};

struct SystemActionsTest : testing::Test {
    fake::FakeMachine machine;
    Windows windows;
    Forms forms;
    SystemActions actions{forms.form1, machine.platform(), windows};

    std::uint32_t flagsOf(std::int16_t noConfirmation, std::int16_t noProgress,
                          std::int16_t noSound) {
        actions.MakeRecycleBinEmpty("", noConfirmation, noProgress, noSound);
        return machine.emptied.back().flags;
    }
};

TEST_F(SystemActionsTest, AnEmptyDriveMeansTheBinsOfAllDrives) {
    actions.MakeRecycleBinEmpty("", 0, 0, 0);
    ASSERT_EQ(machine.emptied.size(), 1u);
    EXPECT_EQ(machine.emptied[0].root, "");
    EXPECT_EQ(machine.emptied[0].flags, 0u);
}

TEST_F(SystemActionsTest, ADriveIsTheFirstLetterOfItsText) {
    for (const auto& [drive, root] : std::initializer_list<std::pair<const char*, const char*>>{
             {"dat", "d:\\"}, {"C:\\", "C:\\"}, {"e", "e:\\"}}) {
        actions.MakeRecycleBinEmpty(drive, 0, 0, 0);
        EXPECT_EQ(machine.emptied.back().root, root);
    }
}

TEST_F(SystemActionsTest, EachSwitchCountsByItsOwnBit) {
    EXPECT_EQ(flagsOf(1, 0, 0), 1u);
    EXPECT_EQ(flagsOf(0, 2, 0), 2u);
    EXPECT_EQ(flagsOf(0, 0, 4), 4u);
    EXPECT_EQ(flagsOf(1, 2, 4), 7u);
    EXPECT_EQ(flagsOf(-1, -1, -1), 7u);
}

TEST_F(SystemActionsTest, ASwitchWithoutItsBitAsksForNothing) {
    EXPECT_EQ(flagsOf(0, 1, 0), 0u);
    EXPECT_EQ(flagsOf(1, 1, 1), 1u);
    EXPECT_EQ(flagsOf(6, 5, 3), 0u);
}

TEST_F(SystemActionsTest, TheWindowInFrontOwnsTheSystemsQuestion) {
    windows.active = "dlgAlert";
    actions.MakeRecycleBinEmpty("", 0, 0, 0);
    EXPECT_EQ(machine.emptied[0].owner, "dlgAlert");
}

TEST_F(SystemActionsTest, WithNoWindowInFrontItHasNoOwner) {
    actions.MakeRecycleBinEmpty("", 0, 0, 0);
    EXPECT_EQ(machine.emptied[0].owner, "");
}

TEST_F(SystemActionsTest, AnErrorBeforehandIsIgnoredAndTheBinIsStillEmptied) {
    windows.fails = true;
    EXPECT_NO_THROW(actions.MakeRecycleBinEmpty("D", 0, 0, 0));
    ASSERT_EQ(machine.emptied.size(), 1u);
    EXPECT_EQ(machine.emptied[0].owner, "");
}

TEST_F(SystemActionsTest, ARefusalOfTheSystemIsIgnored) {
    machine.log.failCall(1, 15);
    EXPECT_NO_THROW(actions.MakeRecycleBinEmpty("D", 0, 0, 0));
    EXPECT_TRUE(machine.emptied.empty());
}

TEST_F(SystemActionsTest, TheCleanerIsStartedForTheMainWindowInANormalWindow) {
    actions.prcCleanMan("", "");
    ASSERT_EQ(machine.executed.size(), 1u);
    EXPECT_EQ(machine.executed[0].owner, "Form1");
    EXPECT_EQ(machine.executed[0].verb, "open");
    EXPECT_EQ(machine.executed[0].file, "cleanmgr");
    EXPECT_EQ(machine.executed[0].directory, "");
    EXPECT_EQ(machine.executed[0].showCommand, 1);
}

TEST_F(SystemActionsTest, TheCleanersParametersAreTheDriveABlankAndTheSet) {
    const struct {
        const char* drive;
        const char* sage;
        const char* parameters;
    } cases[] = {{"C", "12", " /d C  /sagerun: 12"},
                 {"C:", "", " /d C: "},
                 {"", "12", "  /sagerun: 12"},
                 {"", "", " "}};
    for (const auto& each : cases) {
        actions.prcCleanMan(each.drive, each.sage);
        EXPECT_EQ(machine.executed.back().parameters, each.parameters);
    }
}

TEST_F(SystemActionsTest, ACleanerThatCantBeStartedIsIgnored) {
    machine.executes = false;
    EXPECT_NO_THROW(actions.prcCleanMan("C", "12"));
}

TEST_F(SystemActionsTest, EmptyingTheBinOfDatEmptiesThatOfDriveD) {
    actions.MakeRecycleBinEmpty("dat", 1, 2, 4);
    ASSERT_EQ(machine.emptied.size(), 1u);
    EXPECT_EQ(machine.emptied[0].root, "d:\\");
    EXPECT_EQ(machine.emptied[0].flags, 7u);
}

TEST_F(SystemActionsTest, ASetWithoutADrivePassesALeadingBlank) {
    actions.prcCleanMan("", "12");
    EXPECT_TRUE(machine.executed.back().parameters.starts_with("  /sagerun: 12"));
}

TEST_F(SystemActionsTest, AFileGoesToTheBinAsAListOfOnePathThatEndsInANul) {
    machine.files["C:\\größe.txt"] = "x";
    actions.prcSendToBin("C:\\größe.txt", file_operation::allowUndo);
    ASSERT_EQ(machine.operations.size(), 1u);
    EXPECT_EQ(machine.operations[0].wFunc, 3u);
    EXPECT_EQ(machine.operations[0].pFrom, std::string("C:\\größe.txt") + '\0');
    EXPECT_EQ(machine.operations[0].fFlags, 64u);
    EXPECT_EQ(machine.recycled, std::vector<std::string>{"C:\\größe.txt"});
}

TEST_F(SystemActionsTest, NoSpellingOfADrivesRootIsPassedToTheShell) {
    for (const char* path : {"",
                             "D:",
                             "D:\\",
                             "d:/",
                             "D:\\\\",
                             "D:\\.",
                             "D:\\.\\",
                             "D:.",
                             "D:\\ ",
                             "D:\\...",
                             "D:\\..",
                             "D:\\old\\..",
                             "D:\\old\\..\\",
                             "D:/old/..",
                             "D:\\old\\.. ",
                             "D:\\a\\..\\b",
                             "D:..",
                             "\\",
                             "..",
                             "old",
                             "\\\\host\\share",
                             "\\\\host\\share\\",
                             "\\\\host\\share\\a\\..",
                             "\\\\?\\D:\\",
                             "D:\\*",
                             "D:\\*.*",
                             "D:\\old\\a?.txt"}) {
        EXPECT_EQ(errorOf([&] { actions.prcSendToBin(path, file_operation::allowUndo); }),
                  error::permissionDenied)
            << path;
    }
    EXPECT_TRUE(machine.operations.empty());
    EXPECT_EQ(machine.log.countOf("SHFileOperationA"), 0);
}

TEST_F(SystemActionsTest, PathsBelowARootArePassedToTheShellUnchanged) {
    machine.files["C:\\really?"] = "x";  // where names may hold it
    for (const char* path : {"D:\\a", "D:\\a\\", "D:/a", "D:\\.a", "D:\\..a", "D:\\a..b\\c",
                             "D:\\.\\a", "D:\\a b", "\\\\host\\share\\a", "C:\\really?"}) {
        actions.prcSendToBin(path, file_operation::allowUndo);
        EXPECT_EQ(machine.operations.back().pFrom, std::string(path) + '\0');
    }
}

// A root is never a file, so what is one lies below it, where the system takes such names.
TEST_F(SystemActionsTest, AFileWithANameOfDotsGoesToTheBin) {
    for (const char* path : {"D:\\...", "D:\\....", "D:\\. ."}) {
        machine.files[path] = "x";
        actions.prcSendToBin(path, file_operation::allowUndo);
        EXPECT_EQ(machine.recycled.back(), path);
    }
    machine.folders.insert("d:\\.....");
    EXPECT_EQ(errorOf([&] { actions.prcSendToBin("D:\\.....", file_operation::allowUndo); }),
              error::permissionDenied);
}

TEST_F(SystemActionsTest, ARefusalOfTheBinIsIgnored) {
    for (const int code : {2, 5, 1223}) {
        machine.operationResult = code;
        EXPECT_NO_THROW(actions.prcSendToBin("C:\\a", file_operation::allowUndo));
    }
    machine.log.failCall(1, 5);
    EXPECT_NO_THROW(actions.prcSendToBin("C:\\a", file_operation::allowUndo));
    EXPECT_TRUE(machine.recycled.empty());
}

TEST_F(SystemActionsTest, AListedProgramThatDoesNotStartIsNamed) {
    machine.files["C:\\one.exe"] = "x";
    forms.form1.cboProg.AddItem("C:\\one.exe");
    machine.onCall = [](const std::string& call) {
        if (call.starts_with("Shell ")) throw RuntimeError(error::fileNotFound);
    };
    EXPECT_EQ(attemptOf([&] { actions.prcRunListedProg(); }), "run the program C:\\one.exe");
}

TEST_F(SystemActionsTest, ASoundIsPlayedWithItsFlagsAndReturnsItsSuccess) {
    EXPECT_EQ(actions.prcPlaySound("C:\\a.wav", 2), 1);
    EXPECT_EQ(machine.played.back(), (std::pair<std::string, std::int32_t>{"C:\\a.wav", 2}));
    machine.playResult = 0;
    EXPECT_EQ(actions.prcPlaySound("C:\\a.wav", 0), 0);
    EXPECT_EQ(machine.played.back().second, 0);
}

struct ListedPrograms : SystemActionsTest {
    const std::string ran = " - Specified Program Executed: \r\n";
    const std::string missing = " - Specified Program Execution Failed (File Does Not Exist): \r\n";

    void list(const std::vector<std::string>& programs) {
        for (const std::string& program : programs) forms.form1.cboProg.AddItem(program);
    }
};

TEST_F(ListedPrograms, WithNoneListedTheReportIsEmpty) {
    EXPECT_EQ(actions.prcRunListedProg(), "");
    EXPECT_EQ(machine.log.count(), 0);
}

TEST_F(ListedPrograms, EachExistingOneIsStartedInOrderAndEachIsReported) {
    machine.files["C:\\one.exe"] = machine.files["C:\\Program Files\\two.exe"] = "MZ";
    list({"C:\\one.exe", "C:\\gone.exe", "C:\\Program Files\\two.exe"});
    EXPECT_EQ(actions.prcRunListedProg(), ran + "C:\\one.exe\r\n" + missing + "C:\\gone.exe\r\n" +
                                              ran + "C:\\Program Files\\two.exe\r\n");
    EXPECT_EQ(
        machine.log.calls(),
        (std::vector<std::string>{
            "FileExists C:\\one.exe", "Shell C:\\one.exe | 1", "FileExists C:\\gone.exe",
            "FileExists C:\\Program Files\\two.exe", "Shell \"C:\\Program Files\\two.exe\" | 1"}));
}

TEST_F(ListedPrograms, AFailureGoesToTheCallerAndNoLaterProgramIsStarted) {
    const std::vector<std::string> programs{"C:\\one.exe", "C:\\two.exe"};
    for (const std::string& program : programs) machine.files[program] = "MZ";
    list(programs);
    const std::size_t startedBefore[] = {0, 0, 1, 1};
    for (int n = 1; n <= 4; ++n) {
        machine.started.clear();
        machine.log.clear();
        machine.log.failCall(n, error::invalidCall);
        EXPECT_THROW(actions.prcRunListedProg(), RuntimeError) << n;
        EXPECT_EQ(machine.started.size(), startedBefore[n - 1]) << n;
        EXPECT_EQ(machine.log.count(), n);
    }
}

TEST_F(SystemActionsTest, PropertiesOpenTheSystemsSheetForTheOwner) {
    actions.prcShowProperties("C:\\data\\file", "Form1");
    ASSERT_EQ(machine.executed.size(), 1u);
    EXPECT_EQ(machine.executed[0].mask, 1100u);
    EXPECT_EQ(machine.executed[0].owner, "Form1");
    EXPECT_EQ(machine.executed[0].verb, "properties");
    EXPECT_EQ(machine.executed[0].file, "C:\\data\\file");
}

TEST_F(SystemActionsTest, ASheetThatTheSystemRefusesIsPassedOver) {
    machine.executes = false;
    EXPECT_NO_THROW(actions.prcShowProperties("C:\\data\\file", "Form1"));
}

}  // namespace
}  // namespace velmora::tests
