#include <gtest/gtest.h>

#include <map>
#include <string>

#include "loopback_server.h"
#include "socket_rig.h"

namespace velmora::network {
namespace {

using Fate = WatchedSockets::Fate;

// One connection from its beginning to its end, with a mail dialogue's kinds of calls.
struct Conversation {
    explicit Conversation(std::function<Fate(const std::string&)> onCall) {
        sockets->onCall = std::move(onCall);
        LoopbackServer server([](Peer& peer) {
            peer.send("220\r\n");
            peer.send(peer.receiveUntil("\n"));
        });
        PolledSocket socket(sockets);
        try {
            socket.Connect("127.0.0.1", server.port());
            polledUntil(socket, [&] { return isSettled(socket); });
            if (socket.State() == socket_state::connected) {
                socket.SendData("EHLO\r\n");
                received = readAll(socket, 11);
            }
            hasEnded = polledUntil(socket, [&] {
                if (socket.State() == socket_state::connected) received += socket.GetData();
                return socket.State() != socket_state::connected;
            });
        } catch (const RuntimeError& error) {
            raised = error.number();
        }
        last = socket.State();
        socket.Close();
        afterClose = socket.State();
    }

    std::shared_ptr<WatchedSockets> sockets = std::make_shared<WatchedSockets>();
    std::string received;
    bool hasEnded = false;
    int raised = 0;
    int last = -1;
    int afterClose = -1;
};

// Lets only the n-th call of a kind have that fate.
class Fault {
  public:
    Fault(std::string call, int n, Fate fate) : call_(std::move(call)), n_(n), fate_(fate) {}

    Fate operator()(const std::string& call) {
        if (call != call_ || ++*seen_ != n_) return Fate::real;
        return fate_;
    }
    bool hasHappened() const { return *seen_ >= n_; }

  private:
    std::string call_;
    int n_;
    Fate fate_;
    // Copies of this object count together; the resolver's thread counts too, but only its calls.
    std::shared_ptr<std::atomic<int>> seen_ = std::make_shared<std::atomic<int>>(0);
};

const char* const allCalls[] = {"resolve", "open", "connect", "outcomeOfConnect",
                                "send",    "peek", "receive", "wait"};
constexpr int mostCalls = 12;  // of one kind; with a faultless machine it takes fewer

TEST(SocketFaults, WithoutAFaultAllArrives) {
    const Conversation run(nullptr);
    EXPECT_EQ(run.received, "220\r\nEHLO\r\n");
    EXPECT_EQ(run.last, socket_state::closing);
    EXPECT_EQ(run.raised, 0);
}

TEST(SocketFaults, EveryFailedCallEndsInADocumentedWay) {
    std::map<std::string, int> happened;
    for (const char* call : allCalls) {
        for (int n = 1; n <= mostCalls; ++n) {
            SCOPED_TRACE(std::string(call) + ' ' + std::to_string(n));
            const Fault fault(call, n, Fate::fails);
            const Conversation run(fault);
            if (!fault.hasHappened()) break;
            ++happened[call];
            EXPECT_TRUE(run.raised == 0 || run.raised == 40006) << run.raised;
            EXPECT_TRUE(run.hasEnded || run.raised != 0);
            EXPECT_TRUE(run.last == socket_state::failed || run.last == socket_state::closing)
                << run.last;
            EXPECT_TRUE(std::string("220\r\nEHLO\r\n").starts_with(run.received)) << run.received;
            EXPECT_EQ(run.afterClose, socket_state::closed);
            EXPECT_EQ(run.sockets->openSockets, 0);
        }
    }
    for (const char* call : {"resolve", "open", "connect", "send", "peek", "receive"}) {
        EXPECT_GT(happened[call], 0) << call;
    }
}

TEST(SocketFaults, ACallThatIsToBeRepeatedChangesNothing) {
    for (const char* call : {"outcomeOfConnect", "send", "peek", "receive", "wait"}) {
        for (int n = 1; n <= mostCalls; ++n) {
            SCOPED_TRACE(std::string(call) + ' ' + std::to_string(n));
            const Fault fault(call, n, Fate::pends);
            const Conversation run(fault);
            EXPECT_EQ(run.received, "220\r\nEHLO\r\n");
            EXPECT_EQ(run.last, socket_state::closing);
            EXPECT_EQ(run.raised, 0);
            EXPECT_EQ(run.sockets->openSockets, 0);
            if (!fault.hasHappened()) break;
        }
    }
}

}  // namespace
}  // namespace velmora::network
