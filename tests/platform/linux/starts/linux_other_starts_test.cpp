#include "platform/linux/starts/linux_other_starts.h"

#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <ctime>
#include <string>
#include <thread>
#include <vector>

#include "base/text_sum.h"
#include "platform/linux/support/child_process.h"
#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"
#include "platform/linux/system/unique_fd.h"
#include "platform/other_starts_cases.h"

namespace velmora::linuxhost {
namespace {

struct LinuxStarts : tests::OtherStartsCases<LinuxOtherStarts> {
    std::string folder() override { return folder_.path(); }
    TestFolder folder_;
};

TEST_F(LinuxStarts, AFolderIsHeldOnce) {
    aFolderIsHeldOnce();
}

TEST_F(LinuxStarts, ACommandLineReachesWhoListens) {
    aCommandLineReachesWhoListens();
}

TEST_F(LinuxStarts, AnEmptyOneToo) {
    anEmptyOneToo();
}

TEST_F(LinuxStarts, SeveralFollowEachOther) {
    severalFollowEachOther();
}

TEST_F(LinuxStarts, WhatIsNotTakenGetsNoAnswer) {
    whatIsNotTakenGetsNoAnswer();
}

TEST_F(LinuxStarts, OnlyOneListens) {
    onlyOneListens();
}

TEST_F(LinuxStarts, WithoutAListenerNothingIsHandedOver) {
    withoutAListenerNothingIsHandedOver();
}

constexpr auto takeAny = [](const std::string&) { return true; };

TEST_F(LinuxStarts, AStartOnAnotherDisplayIsNotTaken) {
    LinuxOtherStarts first(folder(), ":0");
    ASSERT_TRUE(first.listen(takeAny));
    EXPECT_FALSE(LinuxOtherStarts(folder(), ":1").handOver("a"));
    EXPECT_FALSE(LinuxOtherStarts(folder(), "").handOver("a"));
    EXPECT_TRUE(LinuxOtherStarts(folder(), ":0").handOver("a"));
    LinuxOtherStarts other(folder(), ":1");
    EXPECT_TRUE(other.listen(takeAny)) << "each display has a program of its own";
}

TEST(DisplayOfSession, IsTheOneThatWindowsComeTo) {
    const Environment wayland("WAYLAND_DISPLAY", "wayland-1");
    const Environment display("DISPLAY", ":0");
    EXPECT_EQ(displayOfSession(), "wayland-1");
    const Environment none("WAYLAND_DISPLAY", "");
    EXPECT_EQ(displayOfSession(), ":0");
    const Environment screen("DISPLAY", "a.host:10.1");
    EXPECT_EQ(displayOfSession(), "a.host:10") << "the host's name has points too";
}

// Takes all descriptors of this process but those that are open.
class NoDescriptors {
  public:
    NoDescriptors() {
        getrlimit(RLIMIT_NOFILE, &before_);
        rlimit few = before_;
        few.rlim_cur = 256;
        setrlimit(RLIMIT_NOFILE, &few);
        for (int taken = 0; taken >= 0;) {
            taken = dup(STDERR_FILENO);
            if (taken >= 0) taken_.emplace_back(taken);
        }
    }
    ~NoDescriptors() { setrlimit(RLIMIT_NOFILE, &before_); }
    NoDescriptors(const NoDescriptors&) = delete;
    NoDescriptors& operator=(const NoDescriptors&) = delete;
    void giveOne() { taken_.pop_back(); }

  private:
    rlimit before_{};
    std::vector<UniqueFd> taken_;
};

TEST_F(LinuxStarts, WithoutADescriptorAStartIsSentAwayAtOnce) {
    LinuxOtherStarts first(folder());
    std::vector<std::string> got;
    ASSERT_TRUE(first.listen([&got](const std::string& command) {
        got.push_back(command);
        return true;
    }));
    {
        NoDescriptors none;
        none.giveOne();  // for the start's own end
        EXPECT_FALSE(LinuxOtherStarts(folder()).handOver("a"));
    }
    EXPECT_TRUE(LinuxOtherStarts(folder()).handOver("b")) << "the next one is taken";
    first.release();
    EXPECT_EQ(got, std::vector<std::string>{"b"});
}

std::atomic<int> interruptions = 0;

bool isInterruptedBefore(std::chrono::steady_clock::time_point end) {
    const int before = interruptions;
    kill(getpid(), SIGUSR2);
    while (interruptions == before && std::chrono::steady_clock::now() < end)
        std::this_thread::yield();
    return interruptions != before;
}

// The thread that listens has the signals as the program's own; only it gets this one here.
TEST_F(LinuxStarts, ASignalDoesNotEndTheListening) {
    struct sigaction noting {};
    noting.sa_handler = [](int) { ++interruptions; };
    struct sigaction before {};
    sigaction(SIGUSR2, &noting, &before);
    LinuxOtherStarts first(folder());
    ASSERT_TRUE(first.listen(takeAny));
    EXPECT_TRUE(LinuxOtherStarts(folder()).handOver("it listens"));
    sigset_t own;
    sigset_t mask;
    sigemptyset(&own);
    sigaddset(&own, SIGUSR2);
    pthread_sigmask(SIG_BLOCK, &own, &mask);
    // It comes between two waits now and then.
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    for (int i = 0; i < 20; ++i) ASSERT_TRUE(isInterruptedBefore(end));
    pthread_sigmask(SIG_SETMASK, &mask, nullptr);
    EXPECT_TRUE(LinuxOtherStarts(folder()).handOver("it still does"));
    first.release();
    sigaction(SIGUSR2, &before, nullptr);
}

// To the socket of a folder without a display. It has no file: its name begins with a zero byte.
UniqueFd connectedTo(const std::string& folder) {
    const std::string name =
        '\0' + ("velmora-" + std::to_string(geteuid()) + "-") + sumOfText(folder + '\0');
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    name.copy(address.sun_path, sizeof address.sun_path);
    UniqueFd socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
    if (connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), size) != 0)
        socket.reset();
    return socket;
}

TEST_F(LinuxStarts, HalfACommandLineIsNotTaken) {
    LinuxOtherStarts first(folder(), "", std::chrono::seconds(1));
    std::vector<std::string> got;
    ASSERT_TRUE(first.listen([&got](const std::string& command) {
        got.push_back(command);
        return true;
    }));
    const UniqueFd half = connectedTo(folder());
    ASSERT_TRUE(half.isOpen());
    ASSERT_EQ(send(half.get(), "remove C:\\", 10, MSG_NOSIGNAL), 10);
    char answer[16];
    EXPECT_EQ(recv(half.get(), answer, sizeof answer, 0), 0) << "it is sent away without an answer";
    first.release();
    EXPECT_EQ(got, std::vector<std::string>{});
}

// A start waits that can neither be taken nor sent away.
int listenWithoutAccepting(const std::string& folder) {
    if (!letCallsFail(SYS_accept4, ENFILE)) return 99;
    LinuxOtherStarts first(folder);
    if (!first.listen([](const std::string&) { return true; })) return 1;
    const UniqueFd start = connectedTo(folder);
    const std::clock_t before = std::clock();
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    const double used = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    first.release();
    return start.isOpen() && used < 0.1 ? 0 : 2;
}

TEST_F(LinuxStarts, AStartThatCanNotBeTakenCostsNoProcessor) {
    EXPECT_EQ(inChild([this] { return listenWithoutAccepting(folder()); }), 0);
}

}  // namespace
}  // namespace velmora::linuxhost
