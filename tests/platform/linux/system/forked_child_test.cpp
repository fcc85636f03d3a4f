#include "platform/linux/system/forked_child.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <map>
#include <string>

#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {
namespace {

void doNothing(int) {}

// Handlers of this process for some signals, and one that is kept back, for as long as it exists.
class OwnSignals {
  public:
    OwnSignals() {
        struct sigaction own {};
        own.sa_handler = doNothing;
        for (const int number : {SIGHUP, SIGINT, SIGUSR1, SIGTERM, SIGWINCH, SIGRTMAX})
            sigaction(number, &own, &before_[number]);
        sigset_t kept;
        sigemptyset(&kept);
        sigaddset(&kept, SIGUSR2);
        sigprocmask(SIG_BLOCK, &kept, &mask_);
    }
    ~OwnSignals() {
        for (const auto& [number, action] : before_) sigaction(number, &action, nullptr);
        sigprocmask(SIG_SETMASK, &mask_, nullptr);
    }
    OwnSignals(const OwnSignals&) = delete;
    OwnSignals& operator=(const OwnSignals&) = delete;

  private:
    std::map<int, struct sigaction> before_;
    sigset_t mask_{};
};

// What a child is to have of its own; empty when all is well.
std::string faultOfThisProcess() {
    for (int number = 1; number < NSIG; ++number) {
        struct sigaction now {};
        if (sigaction(number, nullptr, &now) == 0 && now.sa_handler != SIG_DFL)
            return "a handler of signal " + std::to_string(number);
    }
    sigset_t mask;
    sigprocmask(SIG_SETMASK, nullptr, &mask);
    if (sigismember(&mask, SIGUSR2) != 0) return "a signal that is kept back";
    if (getsid(0) != getpid()) return "another's session";
    char folder[8] = "";
    if (getcwd(folder, sizeof folder) == nullptr || std::strcmp(folder, "/") != 0)
        return "another folder";
    return {};
}

TEST(ForkedChild, HasNothingOfItsParentButTheSocket) {
    const OwnSignals signals;
    int ends[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
    const UniqueFd own(ends[0]);
    UniqueFd others(ends[1]);
    const pid_t child = forkChild(others.get(), "velmora-test", [] {
        const std::string fault = faultOfThisProcess() + '.';
        static_cast<void>(send(forkedChildSocket, fault.data(), fault.size(), MSG_NOSIGNAL));
    });
    ASSERT_GT(child, 0);
    others.reset();
    std::string fault;
    char piece[64];
    for (ssize_t size = 1; size > 0;) {
        size = recv(own.get(), piece, sizeof piece, 0);
        if (size > 0) fault.append(piece, static_cast<std::size_t>(size));
    }
    EXPECT_EQ(fault, ".");
    EXPECT_EQ(waitpid(child, nullptr, 0), child);
}

}  // namespace
}  // namespace velmora::linuxhost
