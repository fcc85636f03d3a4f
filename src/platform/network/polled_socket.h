// The socket control over the system's non-blocking sockets. It has no thread but the resolver's:
// every call first does what has become possible since the last one.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/network/resolution.h"
#include "platform/network/sockets.h"
#include "platform/winsock.h"

namespace velmora::network {

class PolledSocket final : public Winsock {
  public:
    explicit PolledSocket(std::shared_ptr<Sockets> sockets) : sockets_(std::move(sockets)) {}
    ~PolledSocket() override { end(); }
    PolledSocket(const PolledSocket&) = delete;
    PolledSocket& operator=(const PolledSocket&) = delete;

    int State() override;
    void Connect(const std::string& host, std::int32_t port) override;
    void SendData(const std::string& data) override;
    std::string GetData() override;
    void Close() override;
    /// What can be sent meanwhile is sent.
    void waitForActivity(std::int32_t milliseconds) override;

  private:
    /// Does what can be done without waiting.
    void advance();
    void tryNextAddress();
    void takeOutcomeOfConnect();
    void sendQueue();
    void lookAtInput();
    void endOfInput();
    /// Sends the beginning of the bytes and gives the count; all of them when the other side
    /// takes no more, since then they go nowhere.
    std::size_t sendNow(const char* bytes, std::size_t count);

    Interest interest() const;
    bool isNewlyConnected() const {
        return state_ == socket_state::connected && !knowsOfConnection_;
    }
    /// Waits for the resolver, the socket, or time to pass.
    void waitOnce(std::chrono::milliseconds longest);
    void end();
    void fail();

    std::shared_ptr<Sockets> sockets_;
    int state_ = socket_state::closed;
    int seen_ = socket_state::closed;  // the state that the caller knows
    SocketNumber socket_ = noSocket;
    std::optional<Resolution> resolution_;
    std::vector<Address> untried_;  // the next one last
    std::string queue_;             // not yet sent from `queueStart_` on
    std::size_t queueStart_ = 0;
    bool hasInput_ = false;           // something can be read
    bool isBroken_ = false;           // sending has failed
    bool knowsOfConnection_ = false;  // the caller knows that it is connected
};

}  // namespace velmora::network
