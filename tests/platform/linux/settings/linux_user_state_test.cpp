#include "platform/linux/settings/linux_user_state.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "platform/linux/support/child_process.h"
#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;

constexpr uid_t someoneElse = 65534;

class LinuxUserStateTest : public testing::Test {
  protected:
    static mode_t modeOf(const std::string& path) {
        struct stat status {};
        EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
        return status.st_mode & 07777;
    }
    static std::set<std::string> namesIn(const std::string& folder) {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder))
            names.insert(entry.path().filename().string());
        return names;
    }

    TestFolder home_;
    OtherUser user_{home_.path()};
    std::string folder_ = home_ / ".local/state/velmora";
    LinuxUserState state_;
};

TEST_F(LinuxUserStateTest, ItLiesInTheHomeUnlessAVariableNamesAnotherFolder) {
    EXPECT_TRUE(state_.write("place", "home"));
    EXPECT_EQ(contentsOf(folder_ + "/place"), "home");
    const Environment variable("XDG_STATE_HOME", home_ / "other/state");
    EXPECT_EQ(state_.read("place"), std::nullopt);
    EXPECT_TRUE(state_.write("place", "other"));
    EXPECT_EQ(contentsOf(home_ / "other/state/velmora/place"), "other");
}

TEST_F(LinuxUserStateTest, ReadingMakesNothing) {
    EXPECT_EQ(state_.read("place"), std::nullopt);
    EXPECT_TRUE(fs::is_empty(home_.path()));
}

TEST_F(LinuxUserStateTest, WhatIsMadeIsForTheUserAlone) {
    const mode_t before = umask(0);
    EXPECT_TRUE(state_.write("place", "x"));
    umask(before);
    for (const char* made : {".local", ".local/state", ".local/state/velmora"})
        EXPECT_EQ(modeOf(home_ / made), 0700u) << made;
    EXPECT_EQ(modeOf(folder_ + "/place"), 0600u);
    EXPECT_EQ(namesIn(folder_), std::set<std::string>{"place"});
}

TEST_F(LinuxUserStateTest, AFolderThatOthersMayEnterIsClosedBeforeItIsUsed) {
    fs::create_directories(folder_);
    std::ofstream(folder_ + "/place") << "x";
    for (const mode_t mode : {0755u, 0770u, 0707u}) {
        ASSERT_EQ(chmod(folder_.c_str(), mode), 0);
        EXPECT_EQ(state_.read("place"), "x");
        EXPECT_EQ(modeOf(folder_), 0700u);
        ASSERT_EQ(chmod(folder_.c_str(), mode), 0);
        EXPECT_TRUE(state_.write("place", "x"));
        EXPECT_EQ(modeOf(folder_), 0700u);
    }
}

TEST_F(LinuxUserStateTest, FoldersThatAreThereAboveItStayAsTheyAre) {
    fs::create_directories(home_ / ".local/state");
    ASSERT_EQ(chmod((home_ / ".local/state").c_str(), 0755), 0);
    EXPECT_TRUE(state_.write("place", "x"));
    EXPECT_EQ(modeOf(home_ / ".local/state"), 0755u);
}

TEST_F(LinuxUserStateTest, ALinkInItsPlaceIsRefused) {
    fs::create_directories(home_ / ".local/state");
    fs::create_directories(home_ / "elsewhere");
    std::ofstream(home_ / "elsewhere/place") << "x";
    fs::create_directory_symlink(home_ / "elsewhere", folder_);
    EXPECT_EQ(state_.read("place"), std::nullopt);
    EXPECT_FALSE(state_.write("place", "y"));
    EXPECT_FALSE(state_.write("other", "y"));
    EXPECT_EQ(contentsOf(home_ / "elsewhere/place"), "x");
    EXPECT_EQ(namesIn(home_ / "elsewhere"), std::set<std::string>{"place"});
}

TEST_F(LinuxUserStateTest, ALinkAboveItIsTheUsersOwnWay) {
    fs::create_directories(home_ / "large disk");
    fs::create_directory_symlink(home_ / "large disk", home_ / ".local");
    EXPECT_TRUE(state_.write("place", "x"));
    EXPECT_EQ(contentsOf(home_ / "large disk/state/velmora/place"), "x");
}

TEST_F(LinuxUserStateTest, AFileInItsPlaceIsRefused) {
    fs::create_directories(home_ / ".local/state");
    std::ofstream(folder_) << "mine";
    EXPECT_EQ(state_.read("place"), std::nullopt);
    EXPECT_FALSE(state_.write("place", "y"));
    EXPECT_EQ(contentsOf(folder_), "mine");
}

TEST_F(LinuxUserStateTest, AFolderOfAnotherUserIsRefused) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can give a folder away";
    fs::create_directories(folder_);
    std::ofstream(folder_ + "/place") << "x";
    ASSERT_EQ(chmod(folder_.c_str(), 0777), 0);
    ASSERT_EQ(chown(folder_.c_str(), someoneElse, someoneElse), 0);
    EXPECT_EQ(state_.read("place"), std::nullopt);
    EXPECT_FALSE(state_.write("place", "y"));
    EXPECT_EQ(contentsOf(folder_ + "/place"), "x");
    EXPECT_EQ(modeOf(folder_), 0777u);
}

TEST_F(LinuxUserStateTest, NothingIsMadeInAnotherUsersHome) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can write there";
    ASSERT_EQ(chown(home_.path().c_str(), someoneElse, someoneElse), 0);
    EXPECT_FALSE(state_.write("place", "y"));
    EXPECT_TRUE(fs::is_empty(home_.path()));
}

TEST_F(LinuxUserStateTest, AFileOfAnotherUserIsNotReadButReplaced) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can give a file away";
    ASSERT_TRUE(state_.write("place", "x"));
    ASSERT_EQ(chown((folder_ + "/place").c_str(), someoneElse, someoneElse), 0);
    EXPECT_EQ(state_.read("place"), std::nullopt);
    EXPECT_TRUE(state_.write("place", "mine"));
    EXPECT_EQ(state_.read("place"), "mine");
}

TEST_F(LinuxUserStateTest, ALinkInTheFolderIsNotFollowed) {
    ASSERT_TRUE(state_.write("place", "x"));
    std::ofstream(home_ / "target") << "theirs";
    fs::remove(folder_ + "/place");
    fs::create_symlink(home_ / "target", folder_ + "/place");
    EXPECT_EQ(state_.read("place"), std::nullopt);
    EXPECT_TRUE(state_.write("place", "y"));
    EXPECT_EQ(contentsOf(home_ / "target"), "theirs");
    EXPECT_EQ(state_.read("place"), "y");
}

TEST_F(LinuxUserStateTest, APipeOrAFolderUnderTheNameIsNothing) {
    ASSERT_TRUE(state_.write("other", "x"));
    ASSERT_EQ(mkfifo((folder_ + "/pipe").c_str(), 0600), 0);
    fs::create_directory(folder_ + "/folder");
    EXPECT_EQ(state_.read("pipe"), std::nullopt);
    EXPECT_EQ(state_.read("folder"), std::nullopt);
    EXPECT_FALSE(state_.write("folder", "x"));
    EXPECT_EQ(namesIn(folder_), (std::set<std::string>{"folder", "other", "pipe"}));
}

TEST_F(LinuxUserStateTest, AFileThatCanNotBeFilledLeavesTheOldOne) {
    ASSERT_TRUE(state_.write("place", "old"));
    // No file of this process may grow beyond a few bytes.
    const int result = inChild([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4, 4};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
        return state_.write("place", "longer than that") ? 2 : 0;
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(state_.read("place"), "old");
    EXPECT_EQ(namesIn(folder_), std::set<std::string>{"place"});
}

TEST_F(LinuxUserStateTest, WhatAKilledProcessLeftGoesAndThatOfALivingOneStays) {
    ASSERT_TRUE(state_.write("place", "x"));
    // Greater than any number that the system gives.
    const std::string left = ".place.2000000000";
    const std::string living = ".place." + std::to_string(getpid());
    for (const std::string& name : {left, living, std::string(".place.x")})
        std::ofstream(folder_ + "/" + name) << "half";
    removeLeftUserState();
    EXPECT_EQ(namesIn(folder_), (std::set<std::string>{"place", living, ".place.x"}));
}

TEST_F(LinuxUserStateTest, NothingIsMadeWhereNothingWasLeft) {
    removeLeftUserState();
    EXPECT_TRUE(fs::is_empty(home_.path()));
}

TEST_F(LinuxUserStateTest, AFolderThatWentIsMadeAgain) {
    ASSERT_TRUE(state_.write("place", "x"));
    fs::remove_all(folder_);
    EXPECT_EQ(state_.read("place"), std::nullopt);
    EXPECT_TRUE(state_.write("place", "y"));
    EXPECT_EQ(state_.read("place"), "y");
}

TEST_F(LinuxUserStateTest, AHomeThatCanNotBeWrittenKeepsNothing) {
    const Environment home("HOME", "/proc/velmora/none");
    EXPECT_FALSE(state_.write("place", "x"));
    EXPECT_EQ(state_.read("place"), std::nullopt);
}

}  // namespace
}  // namespace velmora::linuxhost
