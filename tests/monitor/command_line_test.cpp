// The command line's paths and the send-to shortcut.
#include <gtest/gtest.h>

#include "monitor/rig.h"
#include "rows/listed_file.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* program = "C:\\Program Files\\Velmora\\velmora.exe";

struct CommandRig : Rig {
    /// The paths that the command line adds to the specified files.
    Texts added(const std::string& command) {
        machine.platform().app.Command = command;
        EXPECT_EQ(commandLine.prcCommandAdd(), 1);
        Texts paths;
        for (int i = 1; i <= form1.LVFile.Count(); ++i) {
            paths.push_back(ConstListedFile(form1.LVFile.ListItems(i)).path());
        }
        return paths;
    }
};

TEST(CommandLine, TwoQuotedPathsAddTwoRows) {
    CommandRig rig;
    EXPECT_EQ(rig.added("\"C:\\one.txt\" \"D:\\my files\\two.txt\""),
              (Texts{"C:\\one.txt", "D:\\my files\\two.txt"}));
    EXPECT_EQ(rig.form1.LVFile.ListItems(1).Text(), "one.txt");
    EXPECT_EQ(rig.form1.LVFile.ListItems(2).Text(), "two.txt");
}

TEST(CommandLine, NothingIsAddedForAnEmptyOne) {
    CommandRig rig;
    EXPECT_EQ(rig.added(""), Texts{});
}

TEST(CommandLine, WithoutQuotesItIsOnePath) {
    CommandRig rig;
    EXPECT_EQ(rig.added("C:\\one.txt D:\\two.txt"), Texts{"C:\\one.txt D:\\two.txt"});
}

TEST(CommandLine, EmptyPiecesAndSingleBlanksAreLeftOut) {
    CommandRig rig;
    EXPECT_EQ(rig.added("\"\""), Texts{});
    EXPECT_EQ(rig.added(" "), Texts{});
    EXPECT_EQ(rig.added("\" \""), Texts{});
    EXPECT_EQ(rig.added("\"\"\"C:\\a\"\"\""), Texts{"C:\\a"});
}

TEST(CommandLine, OtherPiecesBetweenTheQuotesArePathsToo) {
    CommandRig rig;
    EXPECT_EQ(rig.added("/x \"C:\\a\"  \"C:\\b\""), (Texts{"/x ", "C:\\a", "  ", "C:\\b"}));
}

TEST(CommandLine, AnUnclosedQuoteTakesTheRest) {
    CommandRig rig;
    EXPECT_EQ(rig.added("\"C:\\a\" \"C:\\b c"), (Texts{"C:\\a", "C:\\b c"}));
}

TEST(CommandLine, APathThatIsGivenTwiceIsListedTwice) {
    CommandRig rig;
    EXPECT_EQ(rig.added("\"C:\\a\" \"C:\\a\""), (Texts{"C:\\a", "C:\\a"}));
}

TEST(CommandLine, PathsInAnyScriptAreTaken) {
    CommandRig rig;
    EXPECT_EQ(rig.added("\"C:\\Größe\\日本 💾.txt\""), Texts{"C:\\Größe\\日本 💾.txt"});
    EXPECT_EQ(rig.form1.LVFile.ListItems(1).Text(), "日本 💾.txt");
}

TEST(CommandLine, NoFileIsOpenedForThem) {
    CommandRig rig;
    rig.added("\"C:\\a\"");
    EXPECT_EQ(rig.machine.log.countOf("readAll"), 0);
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(SendToShortcut, LeadsToTheProgramWithAllItsFields) {
    CommandRig rig;
    rig.added("");
    ASSERT_EQ(rig.machine.shortcuts.size(), 1u);
    const fake::FakeShortcut& made = rig.machine.shortcuts[0];
    EXPECT_EQ(made.file, std::string(sendToFolder) + "\\Velmora.lnk");
    EXPECT_EQ(made.TargetPath, program);
    EXPECT_EQ(made.IconLocation, program);
    EXPECT_EQ(made.WorkingDirectory, "C:\\Program Files\\Velmora");
    EXPECT_EQ(made.WindowStyle, 3);
    EXPECT_EQ(made.Arguments, "");
    EXPECT_EQ(made.HotKey, "");
}

TEST(SendToShortcut, IsNotCreatedAgainAtTheNextStart) {
    CommandRig rig;
    rig.added("");
    rig.added("");
    EXPECT_EQ(rig.machine.shortcuts.size(), 1u);
    EXPECT_EQ(rig.machine.log.countOf("CreateShortcut"), 1);
}

TEST(SendToShortcut, IsFoundInAnyLetterCase) {
    CommandRig rig;
    rig.machine.files[std::string(sendToFolder) + "\\velmora.LNK"] = "";
    rig.added("");
    EXPECT_TRUE(rig.machine.shortcuts.empty());
}

TEST(SendToShortcut, IsCreatedAgainAfterItsRemoval) {
    CommandRig rig;
    rig.added("");
    rig.machine.files.clear();
    rig.added("");
    EXPECT_EQ(rig.machine.shortcuts.size(), 2u);
}

TEST(SendToShortcut, NoFolderForItMeansNoShortcut) {
    CommandRig rig;
    rig.machine.specialFolders.clear();
    EXPECT_EQ(rig.added("\"C:\\a\""), Texts{"C:\\a"});
    EXPECT_EQ(rig.machine.log.countOf("CreateShortcut"), 0);
    EXPECT_EQ(rig.machine.log.countOf("FileExists C:\\Users"), 0);
}

TEST(SendToShortcut, AfterAnyFailureTheStartGoesOn) {
    CommandRig counting;
    counting.added("\"C:\\a\"");
    const int calls = counting.machine.log.count();
    ASSERT_EQ(calls, 7);
    for (int n = 1; n <= calls; ++n) {
        for (const int number : {5, 70, 76}) {
            CommandRig rig;
            rig.machine.log.failCall(n, number);
            EXPECT_EQ(rig.added("\"C:\\a\""), Texts{"C:\\a"}) << n;
            // The first two calls look at the listed path.
            EXPECT_EQ(rig.machine.shortcuts.empty(), n > 2) << n;
            EXPECT_TRUE(rig.host.boxes.empty()) << n;
        }
    }
}

}  // namespace
}  // namespace velmora::tests
