// The service manager that the environment names, by a datagram socket as systemd's.
#include "app/service_manager.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"

namespace velmora::tests {
namespace {

using linuxhost::Environment;

class NotifySocket {
  public:
    /// A name that begins with "@" is one without a file.
    explicit NotifySocket(const std::string& name) : socket_(socket(AF_UNIX, SOCK_DGRAM, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::copy(name.begin(), name.end(), address.sun_path);
        if (name.starts_with('@')) address.sun_path[0] = '\0';
        const auto size = offsetof(sockaddr_un, sun_path) + name.size();
        isOpen_ = bind(socket_, reinterpret_cast<const sockaddr*>(&address),
                       static_cast<socklen_t>(size)) == 0;
    }
    ~NotifySocket() { close(socket_); }
    NotifySocket(const NotifySocket&) = delete;
    NotifySocket& operator=(const NotifySocket&) = delete;

    bool isOpen() const { return isOpen_; }
    /// The next message; it is there as soon as it was sent.
    std::string next() const {
        std::vector<char> message(4096);
        const ssize_t size = recv(socket_, message.data(), message.size(), MSG_DONTWAIT);
        return size < 0 ? "nothing" : std::string(message.data(), static_cast<std::size_t>(size));
    }

  private:
    int socket_;
    bool isOpen_ = false;
};

struct ServiceManagerTest : testing::Test {
    void SetUp() override {
#ifndef VELMORA_HAS_SYSTEMD
        GTEST_SKIP() << "built without libsystemd";
#endif
    }

    linuxhost::TestFolder folder;
    const std::string path = folder / "notify";
    Environment noSocket{"NOTIFY_SOCKET", std::nullopt};
    Environment noTime{"WATCHDOG_USEC", std::nullopt};
    Environment noProcess{"WATCHDOG_PID", std::nullopt};
};

TEST_F(ServiceManagerTest, WithoutASocketThereIsNone) {
    const Environment time("WATCHDOG_USEC", "5000000");
    const ServiceManager manager = serviceManagerOfProcess();
    EXPECT_FALSE(manager.send);
    EXPECT_EQ(manager.watchdog, 0);
}

TEST_F(ServiceManagerTest, MessagesComeToTheSocket) {
    const NotifySocket made(path);
    ASSERT_TRUE(made.isOpen());
    const Environment socket("NOTIFY_SOCKET", path);
    const ServiceManager manager = serviceManagerOfProcess();
    ASSERT_TRUE(manager.send);
    manager.send("READY=1\nSTATUS=fine");
    EXPECT_EQ(made.next(), "READY=1\nSTATUS=fine");
    manager.send("STOPPING=1");
    EXPECT_EQ(made.next(), "STOPPING=1");
    EXPECT_EQ(manager.watchdog, 0);
}

TEST_F(ServiceManagerTest, AlsoToOneWithoutAFile) {
    const std::string name = "@velmora-test-" + std::to_string(getpid());
    const NotifySocket made(name);
    ASSERT_TRUE(made.isOpen());
    const Environment socket("NOTIFY_SOCKET", name);
    serviceManagerOfProcess().send("READY=1");
    EXPECT_EQ(made.next(), "READY=1");
}

TEST_F(ServiceManagerTest, TheTimeOfTheWatchdogIsReadInMilliseconds) {
    const Environment socket("NOTIFY_SOCKET", path);
    const Environment time("WATCHDOG_USEC", "120000000");
    EXPECT_EQ(serviceManagerOfProcess().watchdog, 120'000);
}

TEST_F(ServiceManagerTest, ThatOfAnotherProcessDoesNotCount) {
    const Environment socket("NOTIFY_SOCKET", path);
    const Environment time("WATCHDOG_USEC", "120000000");
    const Environment process("WATCHDOG_PID", std::to_string(getppid()));
    EXPECT_EQ(serviceManagerOfProcess().watchdog, 0);
}

TEST_F(ServiceManagerTest, AManagerThatIsGoneEndsNothing) {
    const Environment socket("NOTIFY_SOCKET", path);
    EXPECT_NO_THROW(serviceManagerOfProcess().send("READY=1"));
}

}  // namespace
}  // namespace velmora::tests
