#include "platform/linux/network/linux_sockets.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>

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

void echoOnce(network::Peer& peer) {
    peer.send(peer.receiveAll(1));
}

TEST(LinuxSockets, EveryCallOfTheSystemMayFail) {
    network::LoopbackServer server(echoOnce);
    const std::int32_t port = server.port();
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
