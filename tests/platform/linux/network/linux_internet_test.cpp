#include "platform/linux/network/linux_internet.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "platform/network/loopback_server.h"

namespace velmora::linuxhost {
namespace {

using network::LoopbackServer;
using network::Peer;

// Gives up far below the patience of these servers, ten seconds.
void expectGivenUp(const LoopbackServer& server) {
    LinuxInternet internet(std::chrono::milliseconds(200));
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(internet.OpenURL("http://127.0.0.1:" + std::to_string(server.port()) + "/"), "");
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(8));
}

TEST(LinuxInternet, AServerThatSaysNothingIsGivenUp) {
    expectGivenUp(LoopbackServer([](Peer& peer) { peer.waitForEnd(); }));
}

TEST(LinuxInternet, APageThatDripsIsGivenUp) {
    expectGivenUp(LoopbackServer([](Peer& peer) {
        peer.receiveUntil("\r\n\r\n");
        peer.send("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n");
        // Something now and then, until the client goes.
        for (int i = 0; i < 500 && peer.send("."); ++i) peer.pause();
    }));
}

}  // namespace
}  // namespace velmora::linuxhost
