// Messages of any length over a stream socket.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace velmora::linuxhost {

class RecordChannel {
  public:
    /// Over the open socket, which stays the caller's. Neither sending nor receiving waits for
    /// longer than `patience` without moving any bytes; without a patience they wait for ever.
    explicit RecordChannel(int socket,
                           std::optional<std::chrono::milliseconds> patience = std::nullopt)
        : socket_(socket), patience_(patience) {}

    /// False when the other end is closed, takes nothing, or the message is too long.
    bool send(std::string_view message);
    /// The next message; nothing when the other end is closed, is silent, or announces a message
    /// that is too long.
    std::optional<std::string> receive();

  private:
    bool sendAll(std::string_view bytes);
    bool receiveMore();
    bool waitFor(short events) const;
    bool hasReceived(std::size_t size);

    int socket_;
    std::optional<std::chrono::milliseconds> patience_;
    std::string received_;  // and not yet given away
};

}  // namespace velmora::linuxhost
