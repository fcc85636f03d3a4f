#include "platform/linux/paths/user_folders.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

TEST(UserFolders, WithoutVariablesTheyLieInTheHome) {
    const OtherUser user("/home/somebody");
    EXPECT_EQ(homeFolder(), "/home/somebody");
    EXPECT_EQ(configFolder(), "/home/somebody/.config");
    EXPECT_EQ(dataFolder(), "/home/somebody/.local/share");
    EXPECT_EQ(stateFolder(), "/home/somebody/.local/state");
    EXPECT_EQ(userFolder("XDG_DESKTOP_DIR", "Desktop"), "/home/somebody/Desktop");
}

TEST(UserFolders, VariablesCountWhenTheyHoldAnAbsolutePath) {
    const OtherUser user("/home/somebody");
    const Environment config("XDG_CONFIG_HOME", "/etc/mine/");
    const Environment data("XDG_DATA_HOME", "not/absolute");
    const Environment state("XDG_STATE_HOME", "/var/mine");
    EXPECT_EQ(configFolder(), "/etc/mine");
    EXPECT_EQ(stateFolder(), "/var/mine");
    EXPECT_EQ(dataFolder(), "/home/somebody/.local/share");
}

TEST(UserFolders, WithoutAHomeVariableTheUserDatabaseCounts) {
    const Environment home("HOME", std::nullopt);
    EXPECT_EQ(homeFolder().front(), '/');
}

TEST(UserFolders, TheUsersChoiceIsRead) {
    const TestFolder home;
    const OtherUser user(home.path());
    std::filesystem::create_directories(home / ".config");
    std::ofstream(home / ".config/user-dirs.dirs") << "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n";
    EXPECT_EQ(userFolder("XDG_DESKTOP_DIR", "Desktop"), home / "Schreibtisch");
    EXPECT_EQ(userFolder("XDG_DOCUMENTS_DIR", "Documents"), home / "Documents");
}

TEST(UserFolders, AFileOfChoicesThatCanNotBeReadLeavesTheUsualFolders) {
    const TestFolder home;
    const OtherUser user(home.path());
    std::filesystem::create_directories(home / ".config/user-dirs.dirs");
    EXPECT_EQ(userFolder("XDG_DESKTOP_DIR", "Desktop"), home / "Desktop");
}

TEST(UserFolders, TheFileOfChoicesIsTakenLineByLine) {
    const std::string key = "XDG_DESKTOP_DIR";
    const auto in = [&key](const std::string& text) { return userFolderIn(text, key, "/h"); };
    EXPECT_EQ(in("XDG_DESKTOP_DIR=\"$HOME/Desk top/\""), "/h/Desk top");
    EXPECT_EQ(in("  XDG_DESKTOP_DIR=\"/data/desk\"  \n"), "/data/desk");
    EXPECT_EQ(in("XDG_DESKTOP_DIR=\"$HOME\""), "/h");
    EXPECT_EQ(in("XDG_DESKTOP_DIR=\"/a\\\"b\\\\c\\$d\""), "/a\"b\\c$d");
    EXPECT_EQ(in("XDG_DESKTOP_DIR=\"/a\"\nXDG_DESKTOP_DIR=\"/b\""), "/b");
    EXPECT_EQ(in("#XDG_DESKTOP_DIR=\"/a\"\nXDG_DOCUMENTS_DIR=\"/b\""), "");
    EXPECT_EQ(in("XDG_DESKTOP_DIR=\"relative\""), "");
    EXPECT_EQ(in("XDG_DESKTOP_DIR=\"$HOMELESS/x\""), "");
    EXPECT_EQ(in("XDG_DESKTOP_DIR=\"/unclosed"), "/unclosed");
    EXPECT_EQ(in("XDG_DESKTOP_DIR=\""), "");
    EXPECT_EQ(in("XDG_DESKTOP_DIR"), "");
}

}  // namespace
}  // namespace velmora::linuxhost
