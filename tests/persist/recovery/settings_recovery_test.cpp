// The way back after settings that end the start.
#include "persist/recovery/settings_recovery.h"

#include <gtest/gtest.h>

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
    EXPECT_TRUE(contains(explained("")[2], "There is no good copy."));
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
    const std::string done = recovery.restore(asHost);
    EXPECT_EQ(content(), "good");
    EXPECT_TRUE(done.starts_with("Settings were put back: host's " + path + ", from the user's "));
    EXPECT_TRUE(contains(done, "-replaced.dat"));
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
    EXPECT_EQ(recovery.restore(asHost),
              "There is no other good copy of the settings: host's " + path);
    EXPECT_EQ(content(), "broken");
    recovery.keep("broken");
    recovery.restore(asHost);
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

}  // namespace
}  // namespace velmora::tests
