// The system's TCP sockets.
#pragma once

#include "platform/network/sockets.h"

namespace velmora::windows {

class WindowsSockets final : public network::Sockets {
  public:
    /// Sets the system's library up. Without it every call fails.
    WindowsSockets();
    ~WindowsSockets() override;
    WindowsSockets(const WindowsSockets&) = delete;
    WindowsSockets& operator=(const WindowsSockets&) = delete;

    std::vector<network::Address> resolve(const std::string& host, std::int32_t port) override;
    network::SocketNumber open(const network::Address& address) override;
    network::Progress connect(network::SocketNumber socket,
                              const network::Address& address) override;
    network::Progress outcomeOfConnect(network::SocketNumber socket) override;
    network::Transfer send(network::SocketNumber socket, const char* bytes,
                           std::size_t count) override;
    network::Transfer receive(network::SocketNumber socket, char* bytes, std::size_t count,
                              bool peek) override;
    network::Progress wait(network::SocketNumber socket, network::Interest interest,
                           std::int32_t milliseconds) override;
    void close(network::SocketNumber socket) override;

  private:
    bool isSetUp_;
};

}  // namespace velmora::windows
