#include <gtest/gtest.h>

#include <cstdint>
#include <future>
#include <string>

#include "base/runtime_error.h"
#include "loopback_server.h"
#include "socket_rig.h"

namespace velmora::network {
namespace {

using PolledSocketTest = SocketTest;
using Fate = WatchedSockets::Fate;

const std::string greeting = "220 ready\r\n";

void greet(Peer& peer) {
    peer.send(greeting);
    peer.waitForEnd();
}

TEST_F(PolledSocketTest, ConnectsByNameThoughNotAllItsAddressesAnswer) {
    LoopbackServer server(greet);
    connectTo("localhost", server.port());
    EXPECT_EQ(socket.State(), socket_state::connected);
    EXPECT_EQ(readAll(socket, greeting.size()), greeting);
    socket.Close();
}

TEST_F(PolledSocketTest, ConnectsByAddress) {
    LoopbackServer server(greet);
    connectTo("127.0.0.1", server.port());
    EXPECT_EQ(readAll(socket, greeting.size()), greeting);
    EXPECT_EQ(sockets->mostPeeked, 1u) << "one byte tells whether there are any";
    socket.Close();
}

TEST_F(PolledSocketTest, ConnectsByAddressOfVersionSix) {
    LoopbackServer server(greet, LoopbackFamily::v6);
    if (server.port() == 0) GTEST_SKIP() << "this machine has no IPv6 loopback address";
    connectTo("::1", server.port());
    EXPECT_EQ(readAll(socket, greeting.size()), greeting);
    socket.Close();
}

TEST_F(PolledSocketTest, PortsGoFrom1To65535) {
    for (const std::int32_t port : {1, 65535}) {
        socket.Connect("127.0.0.1", port);
        EXPECT_NE(socket.State(), socket_state::closed) << port;
        socket.Close();
    }
    for (const std::int32_t port : {0, -1, 65536}) {
        EXPECT_THROW(socket.Connect("127.0.0.1", port), RuntimeError) << port;
        EXPECT_EQ(socket.State(), socket_state::closed) << port;
    }
}

TEST_F(PolledSocketTest, ARefusedConnectionHasFailed) {
    connectTo("127.0.0.1", deafPort());
    EXPECT_EQ(socket.State(), socket_state::failed);
    EXPECT_EQ(sockets->openSockets, 0);
}

TEST_F(PolledSocketTest, ANameWithoutAddressHasFailed) {
    for (const std::string& host :
         {std::string("nowhere.invalid"), std::string(), std::string("localhost\0x", 11)}) {
        connectTo(host, 25);
        EXPECT_EQ(socket.State(), socket_state::failed) << host;
        socket.Close();
    }
}

TEST_F(PolledSocketTest, EachAddressIsTriedInTurn) {
    LoopbackServer server(greet);
    const std::int32_t deaf = deafPort();
    sockets->onResolve = [&](Sockets& system) {
        std::vector<Address> addresses;
        for (const std::int32_t port : {deaf, deaf, server.port(), deaf}) {
            addresses.push_back(system.resolve("127.0.0.1", port).at(0));
        }
        return addresses;
    };
    connectTo("mail.example", 25);
    EXPECT_EQ(readAll(socket, greeting.size()), greeting);
    EXPECT_EQ(sockets->openSockets, 1);
    socket.Close();
    EXPECT_EQ(sockets->openSockets, 0);
}

TEST_F(PolledSocketTest, ItHasFailedWhenTheLastAddressHas) {
    int attempts = 0;
    const std::int32_t deaf = deafPort();
    sockets->onResolve = [deaf](Sockets& system) {
        return std::vector<Address>(3, system.resolve("127.0.0.1", deaf).at(0));
    };
    sockets->onCall = [&attempts](const std::string& call) {
        if (call == "connect") ++attempts;
        return Fate::real;
    };
    connectTo("mail.example", 25);
    EXPECT_EQ(socket.State(), socket_state::failed);
    EXPECT_EQ(attempts, 3);
    EXPECT_EQ(sockets->openSockets, 0);
}

TEST_F(PolledSocketTest, ARepeatedConnectIsAnErrorInEveryStateButClosed) {
    LoopbackServer server(greet);
    const auto connectAgain = [&] {
        return errorOf([&] { socket.Connect("127.0.0.1", server.port()); });
    };
    socket.Connect("127.0.0.1", server.port());
    EXPECT_EQ(connectAgain(), 40020);
    EXPECT_TRUE(reaches(socket, socket_state::connected));
    EXPECT_EQ(connectAgain(), 40020);
    socket.Close();
    connectTo("127.0.0.1", deafPort());
    EXPECT_EQ(connectAgain(), 40020);
    EXPECT_EQ(socket.State(), socket_state::failed);
    socket.Close();
    EXPECT_EQ(connectAgain(), 0);
    EXPECT_TRUE(reaches(socket, socket_state::connected));
    socket.Close();
}

TEST_F(PolledSocketTest, PortsOutsideTheRangeAreRefusedAndChangeNothing) {
    for (const std::int32_t port : {0, -1, 65536, 99999}) {
        EXPECT_EQ(errorOf([&] { socket.Connect("127.0.0.1", port); }), 380) << port;
        EXPECT_EQ(socket.State(), socket_state::closed);
    }
}

TEST_F(PolledSocketTest, NothingIsSentOrReadWithoutAConnection) {
    const auto expectRefusal = [this] {
        EXPECT_EQ(errorOf([this] { socket.SendData("x"); }), 40006);
        EXPECT_EQ(errorOf([this] { socket.GetData(); }), 40006);
    };
    expectRefusal();
    connectTo("127.0.0.1", deafPort());
    expectRefusal();
}

// A name server that answers when the test says so.
class SlowNameServer : public PolledSocketTest {
  protected:
    SlowNameServer() {
        sockets->onCall = [answered = answer_.get_future().share()](const std::string& call) {
            if (call == "resolve") answered.wait();
            return Fate::real;
        };
    }
    void letItAnswer() { answer_.set_value(); }

  private:
    std::promise<void> answer_;
};

TEST_F(SlowNameServer, NothingWaitsForIt) {
    LoopbackServer server(greet);
    socket.Connect("127.0.0.1", server.port());
    EXPECT_EQ(socket.State(), socket_state::resolvingHost);
    socket.waitForActivity(20);
    EXPECT_EQ(socket.State(), socket_state::resolvingHost);
    EXPECT_EQ(errorOf([this] { socket.SendData("x"); }), 40006);
    EXPECT_EQ(errorOf([this] { socket.GetData(); }), 40006);
    letItAnswer();
    EXPECT_TRUE(reaches(socket, socket_state::connected));
    socket.Close();
}

TEST_F(SlowNameServer, ItsAnswerEndsTheWaiting) {
    socket.Connect("127.0.0.1", deafPort());
    std::thread answering([this] { letItAnswer(); });
    socket.waitForActivity(3'600'000);
    EXPECT_NE(socket.State(), socket_state::resolvingHost);
    answering.join();
}

TEST_F(SlowNameServer, ALateAnswerIsForNobody) {
    LoopbackServer server(greet);
    socket.Connect("127.0.0.1", server.port());
    socket.Close();
    EXPECT_EQ(socket.State(), socket_state::closed);
    socket.Connect("127.0.0.1", server.port());
    {
        PolledSocket other(sockets);
        other.Connect("127.0.0.1", server.port());
    }
    letItAnswer();
    EXPECT_TRUE(reaches(socket, socket_state::connected));
    EXPECT_EQ(sockets->openSockets, 1);
    socket.Close();
}

TEST_F(PolledSocketTest, ClosesWhileItConnects) {
    LoopbackServer server(greet);
    // As if the other side didn't answer.
    sockets->onCall = [](const std::string& call) {
        return call == "connect" || call == "wait" ? Fate::pends : Fate::real;
    };
    socket.Connect("127.0.0.1", server.port());
    EXPECT_TRUE(polledUntil(socket, [this] { return socket.State() == socket_state::connecting; }));
    socket.Close();
    EXPECT_EQ(socket.State(), socket_state::closed);
    EXPECT_EQ(sockets->openSockets, 0);
}

TEST_F(PolledSocketTest, ClosesInEveryState) {
    socket.Close();
    EXPECT_EQ(socket.State(), socket_state::closed);
    LoopbackServer leaving([](Peer&) {});
    connectTo(leaving);
    EXPECT_TRUE(reaches(socket, socket_state::closing));
    socket.Close();
    EXPECT_EQ(socket.State(), socket_state::closed);
    connectTo("127.0.0.1", deafPort());
    socket.Close();
    socket.Close();
    EXPECT_EQ(socket.State(), socket_state::closed);
    EXPECT_EQ(sockets->openSockets, 0);
}

TEST_F(PolledSocketTest, TheOtherSideLearnsOfTheClosing) {
    std::promise<std::string> rest;
    LoopbackServer server([&rest](Peer& peer) { rest.set_value(peer.receive()); });
    {
        PolledSocket own(sockets);
        own.Connect("127.0.0.1", server.port());
        EXPECT_TRUE(reaches(own, socket_state::connected));
    }
    EXPECT_EQ(rest.get_future().get(), "");
    EXPECT_EQ(sockets->openSockets, 0);
}

}  // namespace
}  // namespace velmora::network
