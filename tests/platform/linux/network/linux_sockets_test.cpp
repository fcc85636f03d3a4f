#include "platform/linux/network/linux_sockets.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <iterator>

#include "platform/linux/support/child_process.h"
#include "platform/network/loopback_server.h"
#include "platform/network/polled_socket.h"
#include "platform/winsock.h"

namespace velmora::linuxhost {
namespace {

std::ptrdiff_t openDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

// The state in which a connection ends that is to send and receive, in tens, and how many
// descriptors it leaves.
int endOfConversation(std::int32_t port) {
    const std::ptrdiff_t before = openDescriptors();
    network::PolledSocket socket(std::make_shared<LinuxSockets>());
    socket.Connect("127.0.0.1", port);
    while (socket.State() == socket_state::resolvingHost ||
           socket.State() == socket_state::connecting) {
        socket.waitForActivity(100);
    }
    if (socket.State() == socket_state::connected) socket.SendData("x");
    while (socket.State() == socket_state::connected) {
        socket.waitForActivity(100);
        if (socket.State() == socket_state::connected) socket.GetData();
    }
    const int state = socket.State();
    socket.Close();
    return state * 10 + static_cast<int>(openDescriptors() - before);
}

int progressOfConnect() {
    LinuxSockets sockets;
    const network::Address address = sockets.resolve("127.0.0.1", 9).at(0);
    return static_cast<int>(sockets.connect(sockets.open(address), address));
}

TEST(LinuxSockets, AnInterruptedConnectGoesOnAndARefusedOneHasFailed) {
    using network::Progress;
    EXPECT_EQ(withoutCall(SYS_connect, EINTR, progressOfConnect),
              static_cast<int>(Progress::pending));
    EXPECT_EQ(withoutCall(SYS_connect, EINPROGRESS, progressOfConnect),
              static_cast<int>(Progress::pending));
    EXPECT_EQ(withoutCall(SYS_connect, ENETUNREACH, progressOfConnect),
              static_cast<int>(Progress::failed));
}

void echoOnce(network::Peer& peer) {
    peer.send(peer.receiveAll(1));
}

// A server in a process of its own: a fork beside a thread copies the locks that this holds at that
// moment.
class ServerProcess {
  public:
    ServerProcess() {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) return;
        process_ = fork();
        if (process_ == 0) serve(ends[1]);
        close(ends[1]);
        if (read(ends[0], &port_, sizeof port_) != sizeof port_) port_ = 0;
        close(ends[0]);
    }
    ~ServerProcess() {
        if (process_ <= 0) return;
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;
    std::int32_t port() const { return port_; }

  private:
    [[noreturn]] static void serve(int told) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        const network::LoopbackServer server(echoOnce);
        const std::int32_t port = server.port();
        if (write(told, &port, sizeof port) != sizeof port) _exit(1);
        while (true) pause();
    }

    pid_t process_ = -1;
    std::int32_t port_ = 0;
};

TEST(LinuxSockets, EveryCallOfTheSystemMayFail) {
    const ServerProcess server;
    const std::int32_t port = server.port();
    ASSERT_NE(port, 0);
    const auto run = [port] { return endOfConversation(port); };
    EXPECT_EQ(inChild(run), socket_state::closing * 10);
    for (const auto& [call, failure] : {std::pair<long, int>{SYS_socket, EMFILE},
                                        {SYS_connect, ENETUNREACH},
                                        {SYS_sendto, ENOBUFS},
                                        {SYS_recvfrom, ENOMEM},
                                        {SYS_poll, ENOMEM}}) {
        EXPECT_EQ(withoutCall(call, failure, run), socket_state::failed * 10) << call;
    }
}

}  // namespace
}  // namespace velmora::linuxhost
