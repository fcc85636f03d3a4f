// A server on this machine's loopback address, made by the test: each connection is handled by a
// function of the test, on the server's thread.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <thread>

namespace velmora::network {

/// The server's side of one connection. Every call waits until it is done, at most ten seconds.
class Peer {
  public:
    explicit Peer(std::intptr_t socket) : socket_(socket) {}
    ~Peer() { close(); }
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    std::intptr_t socket() const { return socket_; }
    /// Whether all bytes were taken.
    bool send(const std::string& bytes);
    /// What comes next, at most so many bytes; empty at the end.
    std::string receive(std::size_t most = 1 << 16);
    /// So many bytes, fewer at the end.
    std::string receiveAll(std::size_t count);
    /// All up to and with this text, or up to the end.
    std::string receiveUntil(const std::string& text);
    /// Waits for 10 ms, or less when the other side has sent something or has ended.
    void pause();
    /// Waits until the other side has ended.
    void waitForEnd();
    void close();
    /// Closes in a way that the other side sees as a reset.
    void reset();

  private:
    std::intptr_t socket_;
};

enum class LoopbackFamily { v4, v6 };

class LoopbackServer {
  public:
    using Session = std::function<void(Peer&)>;

    /// Connections are served one after the other.
    explicit LoopbackServer(Session session, LoopbackFamily family = LoopbackFamily::v4);
    /// Waits for the session that runs: the client's side must have ended.
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    /// 0 when this machine has no such address.
    std::int32_t port() const { return port_; }
    /// How many connections were taken so far.
    int connections() const { return connections_; }

  private:
    void serve();

    Session session_;
    std::intptr_t listener_ = -1;
    std::int32_t port_ = 0;
    std::atomic<bool> isEnding_ = false;
    std::atomic<int> connections_ = 0;
    std::thread thread_;
};

/// A port on which nothing listens.
std::int32_t deafPort();

}  // namespace velmora::network
