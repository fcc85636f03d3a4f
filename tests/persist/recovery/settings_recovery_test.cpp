// The way back after settings that end the start.
#include "persist/recovery/settings_recovery.h"

#include <gtest/gtest.h>

#include "base/text_sum.h"
#include "fake/fake_parts.h"
#include "persist/settings_rig.h"

namespace velmora::tests {
namespace {

struct RecoveryTest : testing::Test, SettingsRig {
    static std::string asHost(const std::string& path) { return "host's " + path; }
    /// What a start that fails with this file tells, in lines.
    Lines explained(const std::optional<std::string>& bytes) {
        machine.files.erase(path);
        if (bytes) machine.files[path] = *bytes;
        EXPECT_NE(run(2), 0);
        EXPECT_TRUE(settings.fault());
        return split(recovery.explain(settings.fault().value_or(SettingsFault{}), asHost), "\r\n");
    }
    std::string lineOfFault(const std::optional<std::string>& bytes) { return explained(bytes)[1]; }

    /// The error of a restore: its number and its words.
    std::string failureOfRestore() {
        try {
            recovery.restore(asHost);
        } catch (const RuntimeError& failure) {
            return std::to_string(failure.number()) + " " + failure.description();
        }
        return "none";
    }
    /// The name of a kept file, by its end.
    std::string nameOf(const std::string& end) {
        return "set-" + sumOfText(machine.platform().app.FolderKey) + end;
    }

    SettingsRecovery recovery{machine.platform()};
};

TEST_F(RecoveryTest, TheFileAndTheLineAreNamed) {
    const Lines lines = explained(fileOf({"txtTime=60", "chkLog=x"}));
    EXPECT_EQ(lines[0], "The settings can't be read: host's " + path);
    EXPECT_EQ(lines[1], "Line 2 can't be read: chkLog= (Show Log, chkLog).");
}

TEST_F(RecoveryTest, TheLineIsThatInWhichTheTroubleBegan) {
    EXPECT_EQ(
        lineOfFault(fileOf({"txtTime=60", "notEmailPass=abc+!def", "custtime=0", "chkLog=1"})),
        "Line 2 can't be read: notEmailPass= (the password of the mail, frmNotify.txtPass).");
    EXPECT_EQ(lineOfFault(fileOf({"txtTime=60", "", "notCustMsg=my custtime=x"})),
              "Line 3 can't be read: notCustMsg= (the custom message of the mail, "
              "frmNotify.txtCustMsg).");
    EXPECT_EQ(lineOfFault(fileOf({"txtTime=60", "notlstTime=1\r\nnotlstTime=3\r\n"})),
              "Line 2 can't be read: notlstTime= (the send times of the mail, "
              "frmNotify.lstNotTime).");
}

TEST_F(RecoveryTest, TheFirstLineIsNamedToo) {
    EXPECT_EQ(lineOfFault(fileOf({"chkLog=x", "txtTime=60"})),
              "Line 1 can't be read: chkLog= (Show Log, chkLog).");
}

TEST_F(RecoveryTest, ALineWithoutAKeyHasItsNumber) {
    EXPECT_EQ(lineOfFault(fileOf({"txtTime=60"}) + std::string("\0\r\n", 3)),
              "Line 2 can't be read.");
}

TEST_F(RecoveryTest, AMissingFileOrIntervalIsSaid) {
    EXPECT_EQ(lineOfFault(std::nullopt), "The file can't be opened.");
    EXPECT_EQ(lineOfFault(""), "No line holds a number for txtTime= (the interval, DTPInterval).");
}

TEST_F(RecoveryTest, AReadingThatSucceedsLeavesNoFault) {
    explained("");
    EXPECT_EQ(read({}), 0);
    EXPECT_FALSE(settings.fault());
}

TEST_F(RecoveryTest, ThePlaceOfTheLastGoodCopyIsSaid) {
    EXPECT_EQ(explained("")[2],
              "There is no good copy. The help says how to make a new file: velmora.html, "
              "\"repair set.dat\".");
    EXPECT_FALSE(recovery.hasCopy());
    recovery.keep("good");
    EXPECT_EQ(explained("")[2],
              "The last settings that the program started with lie in the user's " +
                  machine.userState.kept.begin()->first + ".");
    EXPECT_TRUE(recovery.hasCopy());
}

TEST_F(RecoveryTest, RestoringPutsTheCopyBackAndKeepsWhatItReplaces) {
    recovery.keep("good");
    machine.files[path] = "broken";
    const auto [isDone, done] = recovery.restore(asHost);
    EXPECT_TRUE(isDone);
    EXPECT_EQ(content(), "good");
    EXPECT_TRUE(machine.privateFiles.contains(fake::keyOf(path)));  // the mail password is in it
    EXPECT_TRUE(done.starts_with("Settings were put back: host's " + path + ", from the user's "));
    EXPECT_TRUE(contains(done, "-replaced-1.dat"));
    bool isKept = false;
    for (const auto& [name, kept] : machine.userState.kept) isKept = isKept || kept == "broken";
    EXPECT_TRUE(isKept);
}

TEST_F(RecoveryTest, AMissingFileIsRestoredToo) {
    recovery.keep("good");
    recovery.restore(asHost);
    EXPECT_EQ(content(), "good");
}

TEST_F(RecoveryTest, WithoutACopyTheFileStays) {
    machine.files[path] = "broken";
    EXPECT_EQ(recovery.restore(asHost).text,
              "There is no other good copy of the settings: host's " + path);
    EXPECT_EQ(content(), "broken");
    recovery.keep("broken");
    EXPECT_FALSE(recovery.restore(asHost).isDone);
    EXPECT_EQ(content(), "broken");
}

TEST_F(RecoveryTest, AFullDiskLeavesTheFileAndSaysWhatWasTried) {
    recovery.keep("a longer good content");
    machine.files[path] = "broken";
    machine.diskFull = true;
    try {
        recovery.restore(asHost);
        FAIL();
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.number(), error::diskFull);
        EXPECT_EQ(failure.tried(), "put the settings back");
    }
    EXPECT_EQ(content(), "broken");
}

TEST_F(RecoveryTest, WhatCantBeKeptIsNotReplaced) {
    recovery.keep("good");
    machine.files[path] = "broken";
    machine.userState.writesUntilFull = machine.userState.writes;
    EXPECT_EQ(failureOfRestore(),
              "75 Settings were not put back, and nothing was changed: host's " + path +
                  " can't be kept first (the user's " + nameOf("-replaced-1.dat") +
                  " can't be written).");
    EXPECT_EQ(content(), "broken");
    EXPECT_EQ(machine.log.countOf("writeOver"), 0);
}

TEST_F(RecoveryTest, AFileThatCantBeReadIsNotReplacedEither) {
    recovery.keep("good");
    machine.files[path] = "broken";
    machine.lockedFiles[path] = error::permissionDenied;
    EXPECT_EQ(failureOfRestore(),
              "70 Settings were not put back, and nothing was changed: host's " + path +
                  " can't be kept first (Permission denied).");
    machine.lockedFiles.clear();
    EXPECT_EQ(content(), "broken");
}

TEST_F(RecoveryTest, ACopyThatIsReplacedNeedsNoRoom) {
    recovery.keep("older");
    recovery.keep("good");
    machine.files[path] = "good";
    machine.userState.writesUntilFull = machine.userState.writes;
    EXPECT_TRUE(recovery.restore(asHost).isDone);
    EXPECT_EQ(content(), "older");
}

TEST_F(RecoveryTest, AnEmptyFileHoldsNothingToKeep) {
    recovery.keep("good");
    machine.files[path] = "";
    machine.userState.writesUntilFull = machine.userState.writes;
    EXPECT_TRUE(recovery.restore(asHost).isDone);
    EXPECT_EQ(content(), "good");
}

TEST_F(RecoveryTest, SeveralThatWereReplacedAreKept) {
    recovery.keep("good");
    for (const char* each : {"first broken", "second broken"}) {
        machine.files[path] = each;
        recovery.restore(asHost);
    }
    EXPECT_EQ(machine.userState.read(nameOf("-replaced-1.dat")), "second broken");
    EXPECT_EQ(machine.userState.read(nameOf("-replaced-2.dat")), "first broken");
}

TEST_F(RecoveryTest, RestoringAgainGoesFurtherBack) {
    for (const char* each : {"oldest", "older", "good"}) recovery.keep(each);
    machine.files[path] = "broken";
    Lines put;
    for (int i = 0; i < 3; ++i) {
        recovery.restore(asHost);
        put.push_back(content());
    }
    EXPECT_EQ(put, (Lines{"good", "older", "oldest"}));
}

TEST_F(RecoveryTest, ACopyThatEndedTheStartIsPutBackNoMore) {
    recovery.keep("good");
    EXPECT_TRUE(recovery.hasCopy());
    recovery.endedStart("good");
    EXPECT_FALSE(recovery.hasCopy());
    machine.files[path] = "broken";
    EXPECT_FALSE(recovery.restore(asHost).isDone);
    EXPECT_EQ(content(), "broken");
}

TEST_F(RecoveryTest, AFailedWriteGivesTheCopyNoTurn) {
    recovery.keep("older");
    recovery.keep("good");
    machine.files[path] = "broken";
    machine.log.failCall(2, error::deviceIo);
    EXPECT_EQ(failureOfRestore(), "57 Device I/O error");
    recovery.restore(asHost);
    EXPECT_EQ(content(), "good");
}

}  // namespace
}  // namespace velmora::tests
