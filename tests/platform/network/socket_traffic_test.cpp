#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <future>
#include <string>

#include "loopback_server.h"
#include "socket_rig.h"

namespace velmora::network {
namespace {

using SocketTrafficTest = SocketTest;

constexpr std::size_t tenMegabytes = 10'000'000;

std::string patternOf(std::size_t count) {
    std::string bytes(count, '\0');
    for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<char>(i * 7 + i / 251);
    return bytes;
}

// Whether waiting for so long with nothing to come took all of that time, and at most two waits of
// the system.
void expectWholeWait(PolledSocket& socket, WatchedSockets& sockets, int state) {
    ASSERT_EQ(socket.State(), state);
    const int before = sockets.waits;
    const auto begin = std::chrono::steady_clock::now();
    constexpr std::chrono::milliseconds nap(30);
    socket.waitForActivity(static_cast<std::int32_t>(nap.count()));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, nap);
    EXPECT_LE(sockets.waits - before, 2);
    EXPECT_EQ(socket.State(), state);
}

TEST_F(SocketTrafficTest, ASilentServerCostsNoProcessor) {
    LoopbackServer server([](Peer& peer) { peer.waitForEnd(); });
    connectTo(server);
    expectWholeWait(socket, *sockets, socket_state::connected);
    EXPECT_EQ(socket.GetData(), "");
    socket.Close();
}

TEST_F(SocketTrafficTest, AStateThatIsFinalCostsNoProcessor) {
    expectWholeWait(socket, *sockets, socket_state::closed);
    LoopbackServer leaving([](Peer&) {});
    connectTo(leaving);
    ASSERT_TRUE(reaches(socket, socket_state::closing));
    expectWholeWait(socket, *sockets, socket_state::closing);
    socket.Close();
    connectTo("127.0.0.1", deafPort());
    expectWholeWait(socket, *sockets, socket_state::failed);
}

TEST_F(SocketTrafficTest, NegativeTimesAreNone) {
    socket.waitForActivity(-1);
    EXPECT_EQ(sockets->waits, 0);
}

TEST_F(SocketTrafficTest, DataEndsTheWaiting) {
    std::promise<void> mayAnswer;
    LoopbackServer server([&](Peer& peer) {
        mayAnswer.get_future().wait();
        peer.send("x");
        peer.waitForEnd();
    });
    connectTo(server);
    std::thread permitting([&] { mayAnswer.set_value(); });
    socket.waitForActivity(3'600'000);
    permitting.join();
    EXPECT_EQ(socket.GetData(), "x");
    socket.Close();
}

TEST_F(SocketTrafficTest, TheEndOfTheOtherSideEndsTheWaiting) {
    std::promise<void> mayEnd;
    LoopbackServer server([&](Peer&) { mayEnd.get_future().wait(); });
    connectTo(server);
    std::thread permitting([&] { mayEnd.set_value(); });
    socket.waitForActivity(3'600'000);
    permitting.join();
    EXPECT_EQ(socket.State(), socket_state::closing);
}

TEST_F(SocketTrafficTest, RepliesMayComeByteByByte) {
    const std::string reply = "250-mail.example\r\n250 AUTH LOGIN\r\n";
    LoopbackServer server([&](Peer& peer) {
        for (const char letter : reply) {
            peer.send({letter});
            // Until the client has it, the next one doesn't come.
            peer.receiveAll(1);
        }
        peer.waitForEnd();
    });
    connectTo(server);
    std::string received;
    EXPECT_TRUE(polledUntil(socket, [&] {
        const std::string piece = socket.GetData();
        EXPECT_LE(piece.size(), 1U);
        if (!piece.empty()) socket.SendData("+");
        received += piece;
        return received.size() == reply.size();
    }));
    EXPECT_EQ(received, reply);
    socket.Close();
}

TEST_F(SocketTrafficTest, EveryByteArrivesAsItIs) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    LoopbackServer server([&](Peer& peer) { peer.send(peer.receiveAll(all.size())); });
    connectTo(server);
    socket.SendData(all);
    EXPECT_EQ(readAll(socket, all.size()), all);
    socket.Close();
}

TEST_F(SocketTrafficTest, PiecesGoInTheirOrder) {
    sockets->mostSent = 3;
    LoopbackServer server([](Peer& peer) { peer.send(peer.receiveUntil(".")); });
    connectTo(server);
    for (const char* piece : {"HELO a", "", "\r\n", "a longer piece", "."}) socket.SendData(piece);
    EXPECT_EQ(readAll(socket, 23), "HELO a\r\na longer piece.");
    socket.Close();
}

TEST_F(SocketTrafficTest, TenMegabytesGoBothWays) {
    const std::string body = patternOf(tenMegabytes);
    std::promise<bool> arrived;
    LoopbackServer server([&](Peer& peer) {
        arrived.set_value(peer.receiveAll(body.size()) == body);
        peer.send(body);
    });
    connectTo(server);
    socket.SendData(body);
    auto outcome = arrived.get_future();
    EXPECT_TRUE(polledUntil(socket, [&] {
        socket.State();
        return outcome.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    }));
    EXPECT_TRUE(outcome.get());

    std::string received;
    EXPECT_TRUE(polledUntil(socket, [&] {
        const std::string piece = socket.GetData();
        EXPECT_LE(piece.size(), std::size_t{1} << 20);
        received += piece;
        return received.size() >= body.size() || socket.State() != socket_state::connected;
    }));
    EXPECT_TRUE(received == body);
    EXPECT_TRUE(reaches(socket, socket_state::closing));
}

TEST_F(SocketTrafficTest, SendingNeverWaitsForTheOtherSide) {
    std::promise<void> mayRead;
    std::promise<std::size_t> read;
    LoopbackServer server([&](Peer& peer) {
        mayRead.get_future().wait();
        read.set_value(peer.receiveAll(2 * tenMegabytes).size());
    });
    connectTo(server);
    socket.SendData(std::string(tenMegabytes, 'a'));
    socket.SendData(std::string(tenMegabytes, 'b'));
    EXPECT_EQ(socket.State(), socket_state::connected);
    mayRead.set_value();
    EXPECT_TRUE(reaches(socket, socket_state::closing));
    EXPECT_EQ(read.get_future().get(), 2 * tenMegabytes);
}

TEST_F(SocketTrafficTest, AServerThatClosesAtOnceLeavesItClosing) {
    LoopbackServer server([](Peer&) {});
    connectTo(server);
    EXPECT_TRUE(reaches(socket, socket_state::closing));
    EXPECT_EQ(socket.GetData(), "");
    EXPECT_EQ(errorOf([this] { socket.SendData("x"); }), 40006);
}

TEST_F(SocketTrafficTest, AConnectionThatEndsAtOnceIsReportedBefore) {
    LoopbackServer server([](Peer&) {});
    socket.Connect("127.0.0.1", server.port());
    std::vector<int> states;
    while (states.empty() || states.back() < socket_state::connected) {
        states.push_back(socket.State());
        socket.waitForActivity(10);
    }
    EXPECT_EQ(states.back(), socket_state::connected);
    EXPECT_TRUE(reaches(socket, socket_state::closing));
}

TEST_F(SocketTrafficTest, ItCountsAsConnectedUntilAllIsRead) {
    std::promise<void> hasEnded;
    LoopbackServer server([&](Peer& peer) {
        peer.send("421 too busy\r\n");
        peer.close();
        hasEnded.set_value();
    });
    connectTo(server);
    hasEnded.get_future().wait();
    EXPECT_EQ(socket.State(), socket_state::connected);
    EXPECT_EQ(readAll(socket, 14), "421 too busy\r\n");
    EXPECT_TRUE(reaches(socket, socket_state::closing));
    EXPECT_EQ(socket.GetData(), "");
}

TEST_F(SocketTrafficTest, AResetIsAFailure) {
    LoopbackServer server([](Peer& peer) {
        peer.receiveAll(1);
        peer.reset();
    });
    connectTo(server);
    socket.SendData("x");
    EXPECT_TRUE(reaches(socket, socket_state::failed));
    EXPECT_EQ(errorOf([this] { socket.GetData(); }), 40006);
    EXPECT_EQ(errorOf([this] { socket.SendData("x"); }), 40006);
    EXPECT_EQ(sockets->openSockets, 0);
}

TEST_F(SocketTrafficTest, SendingIntoAResetEndsNothingButTheConnection) {
    LoopbackServer server([](Peer& peer) {
        peer.receiveAll(1);
        peer.reset();
    });
    connectTo(server);
    EXPECT_TRUE(polledUntil(socket, [this] {
        return errorOf([this] { socket.SendData(std::string(100'000, 'x')); }) == 40006;
    }));
    EXPECT_EQ(socket.State(), socket_state::failed);
}

TEST_F(SocketTrafficTest, WhatAClosedServerDoesNotTakeKeepsNobodyBusy) {
    // Much is still to be sent when the other side goes without reading it.
    LoopbackServer server([](Peer& peer) { peer.receiveAll(1); });
    connectTo(server);
    socket.SendData(std::string(tenMegabytes, 'x'));
    EXPECT_TRUE(polledUntil(socket, [this] { return socket.State() != socket_state::connected; }));
    socket.waitForActivity(0);
    const int state = socket.State();
    EXPECT_TRUE(state == socket_state::closing || state == socket_state::failed) << state;
    socket.Close();
    EXPECT_EQ(sockets->openSockets, 0);
}

}  // namespace
}  // namespace velmora::network
