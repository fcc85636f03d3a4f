#include <gtest/gtest.h>

#include "platform/linux/inventory/at_job.h"

namespace velmora::linuxhost {
namespace {

const std::string atHeader =
    "#!/bin/sh\n"
    "# atrun uid=1000 gid=1000\n"
    "# mail me 0\n"
    "umask 22\n"
    "LANG=C.UTF-8; export LANG\n"
    "NOTE=two\\ words\"\n\"and\\ another\\ line; export NOTE\n"
    "cd /home/me/my\\ files || {\n"
    "\t echo 'Execution directory inaccessible' >&2\n"
    "\t exit 1\n"
    "}\n";

TEST(JobAtName, HasQueueNumberAndMinutes) {
    // 0x01c8f1aa is 29946282: so many minutes after 1970.
    const auto job = readAtJobName("a0002301c8f1aa");
    ASSERT_TRUE(job);
    EXPECT_EQ(job->number, 35u);
    EXPECT_EQ(job->start, 29946282LL * 60 * 1'000'000);
    for (const char* name : {"=0002301c8f1aa", "Z0002301c8f1aa", "bfffffffffffff"})
        EXPECT_TRUE(readAtJobName(name)) << name;
    EXPECT_EQ(readAtJobName("bfffffffffffff")->number, 0xFFFFFu);
}

TEST(JobAtName, OtherNamesAreNoJobs) {
    for (const char* name :
         {"", ".SEQ", ".lockfile", "a0002301c8f1a", "a0002301c8f1aa0", "10002301c8f1aa",
          "a0002g01c8f1aa", "a0002301c8f1ag", "a-002301c8f1aa", "a 002301c8f1aa", "spool"})
        EXPECT_FALSE(readAtJobName(name)) << name;
}

TEST(JobAtCommands, FollowTheHeader) {
    EXPECT_EQ(atCommands(atHeader + "echo hello\n"), "echo hello");
    EXPECT_EQ(atCommands(atHeader + "\necho one\n \nX=1; export X\nsecond  command"),
              "echo one; X=1; export X; second  command");
    EXPECT_EQ(atCommands(atHeader), "");
}

TEST(JobAtCommands, MayStandInAHereDocument) {
    EXPECT_EQ(atCommands(atHeader + "${SHELL:-/bin/sh} << 'marcinDELIMITER1a2b3c4d'\n"
                                    "echo one\necho two\n\nmarcinDELIMITER1a2b3c4d\n"),
              "echo one; echo two");
    // The end of one that is still being written.
    EXPECT_EQ(atCommands(atHeader + "${SHELL:-/bin/sh} << 'marcinDELIMITER1a2b3c4d'\necho one\n"),
              "echo one");
    // A here-document of the user's own isn't taken apart.
    EXPECT_EQ(atCommands(atHeader + "cat << 'END'\ntext\nEND\n"), "cat << 'END'; text; END");
}

TEST(JobAtCommands, BeginWithoutAFolderAfterTheVariables) {
    EXPECT_EQ(atCommands("#!/bin/sh\n# atrun uid=0 gid=0\n# mail root 1\numask 77\n"
                         "A=b; export A\n# my note\necho x\n"),
              "# my note; echo x");
    EXPECT_EQ(atCommands("echo alone"), "echo alone");
    EXPECT_EQ(atCommands(""), "");
    EXPECT_EQ(atCommands("cd /x || {\n echo cut"), "cd /x || {;  echo cut");
}

}  // namespace
}  // namespace velmora::linuxhost
