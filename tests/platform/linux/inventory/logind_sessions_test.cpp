#include <gtest/gtest.h>
#include <sys/mount.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <utility>

#include "base/scope_guard.h"
#include "platform/linux/support/mounting.h"

#ifdef VELMORA_HAS_SYSTEMD
#include "platform/linux/inventory/systemd/logind_sessions.h"
#endif

namespace velmora::linuxhost {
namespace {

// The login service keeps a file of each session, which its library reads.
TEST(LogindSessions, ThoseOfUsersAreLogins) {
#ifndef VELMORA_HAS_SYSTEMD
    GTEST_SKIP() << "built without libsystemd";
#else
    if (const std::string reason = whyNoMounting(); !reason.empty()) GTEST_SKIP() << reason;
    ASSERT_EQ(mount("tmpfs", "/run", "tmpfs", 0, "size=1m"), 0);
    const ScopeGuard unmounting([] { umount2("/run", MNT_DETACH); });
    EXPECT_TRUE(logindSessions().empty());
    const std::string folder = "/run/systemd/sessions/";
    std::filesystem::create_directories(folder);
    std::ofstream(folder + "c1") << "UID=0\nUSER=root\nCLASS=user\nTTY=tty7\n";
    std::ofstream(folder + "c2") << "UID=0\nUSER=root\nCLASS=greeter\nTTY=tty1\n";
    std::ofstream(folder + "c3") << "UID=0\nUSER=root\nCLASS=user-early\n";
    std::ofstream(folder + "c4") << "UID=0\nUSER=root\nCLASS=background\n";
    std::set<std::pair<std::string, std::string>> logins;
    for (const Login& login : logindSessions()) logins.emplace(login.user, login.line);
    EXPECT_EQ(logins,
              (std::set<std::pair<std::string, std::string>>{{"root", "tty7"}, {"root", "c3"}}));
#endif
}

}  // namespace
}  // namespace velmora::linuxhost
