// The system's sockets with a test between them and the socket control, and steps over the control.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "base/runtime_error.h"
#include "loopback_server.h"
#include "platform/network/polled_socket.h"
#include "platform/network/sockets.h"
#ifdef _WIN32
#include "platform/windows/network/windows_sockets.h"
#else
#include "platform/linux/network/linux_sockets.h"
#endif

namespace velmora::network {

inline std::shared_ptr<Sockets> systemSockets() {
#ifdef _WIN32
    return std::make_shared<windows::WindowsSockets>();
#else
    return std::make_shared<linuxhost::LinuxSockets>();
#endif
}

/// Passes the calls on, unless the test's function wants something else of one.
class WatchedSockets final : public Sockets {
  public:
    enum class Fate { real, fails, pends };

    std::vector<Address> resolve(const std::string& host, std::int32_t port) override {
        if (decide("resolve") != Fate::real) return {};
        return onResolve ? onResolve(*real_) : real_->resolve(host, port);
    }
    SocketNumber open(const Address& address) override {
        const Fate fate = decide("open");
        const SocketNumber socket = fate == Fate::fails ? noSocket : real_->open(address);
        if (socket != noSocket) ++openSockets;
        return socket;
    }
    Progress connect(SocketNumber socket, const Address& address) override {
        const Fate fate = decide("connect");
        if (fate == Fate::fails) return Progress::failed;
        // Begun all the same: a socket that was never told to connect can't be waited for.
        const Progress begun = real_->connect(socket, address);
        return fate == Fate::pends && begun == Progress::done ? Progress::pending : begun;
    }
    Progress outcomeOfConnect(SocketNumber socket) override {
        const Fate fate = decide("outcomeOfConnect");
        return fate == Fate::real ? real_->outcomeOfConnect(socket) : progressOf(fate);
    }
    Transfer send(SocketNumber socket, const char* bytes, std::size_t count) override {
        const Fate fate = decide("send");
        if (fate != Fate::real) return {progressOf(fate)};
        return real_->send(socket, bytes, std::min(count, mostSent));
    }
    Transfer receive(SocketNumber socket, char* bytes, std::size_t count, bool peek) override {
        const Fate fate = decide(peek ? "peek" : "receive");
        if (peek) mostPeeked = std::max(mostPeeked, count);
        return fate == Fate::real ? real_->receive(socket, bytes, count, peek)
                                  : Transfer{progressOf(fate)};
    }
    Progress wait(SocketNumber socket, Interest interest, std::int32_t milliseconds) override {
        const Fate fate = decide("wait");
        if (milliseconds > 0) ++waits;
        return fate == Fate::real ? real_->wait(socket, interest, milliseconds) : progressOf(fate);
    }
    void close(SocketNumber socket) override {
        --openSockets;
        real_->close(socket);
    }

    /// What becomes of a call; runs on the resolver's thread too.
    std::function<Fate(const std::string& call)> onCall;
    /// The answer to every name, when the test has one.
    std::function<std::vector<Address>(Sockets& system)> onResolve;
    std::size_t mostSent = static_cast<std::size_t>(-1);  ///< bytes of one call
    std::size_t mostPeeked = 0;                           ///< bytes of one call
    std::atomic<int> openSockets = 0;
    std::atomic<int> waits = 0;  ///< those that may take time

  private:
    static Progress progressOf(Fate fate) {
        return fate == Fate::pends ? Progress::pending : Progress::failed;
    }
    Fate decide(const std::string& call) { return onCall ? onCall(call) : Fate::real; }

    std::shared_ptr<Sockets> real_ = systemSockets();
};

/// Polls the control as the program does until the condition holds. Whether it came to that.
template <typename Condition>
bool polledUntil(Winsock& socket, Condition&& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        socket.waitForActivity(100);
    }
    return true;
}

inline bool reaches(Winsock& socket, int state) {
    return polledUntil(socket, [&] { return socket.State() == state; });
}

/// Whether connecting has ended, one way or the other.
inline bool isSettled(Winsock& socket) {
    const int state = socket.State();
    return state != socket_state::resolvingHost && state != socket_state::connecting;
}

/// Reads until so many bytes have come or the connection has ended.
inline std::string readAll(Winsock& socket, std::size_t count) {
    std::string bytes;
    polledUntil(socket, [&] {
        if (socket.State() != socket_state::connected) return true;
        bytes += socket.GetData();
        return bytes.size() >= count;
    });
    return bytes;
}

/// The number of the run-time error that a step raises; 0 for none.
template <typename Step>
int errorOf(Step&& step) {
    try {
        step();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

class SocketTest : public testing::Test {
  protected:
    /// Begins to connect and waits until that has ended.
    void connectTo(const std::string& host, std::int32_t port) {
        socket.Connect(host, port);
        EXPECT_TRUE(polledUntil(socket, [this] { return isSettled(socket); }));
    }
    void connectTo(const LoopbackServer& server) { connectTo("127.0.0.1", server.port()); }

    std::shared_ptr<WatchedSockets> sockets = std::make_shared<WatchedSockets>();
    PolledSocket socket{sockets};
};

}  // namespace velmora::network
