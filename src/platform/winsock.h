// The socket control: one TCP connection, driven by polling. Nothing of it waits but
// waitForActivity.
#pragma once

#include <cstdint>
#include <string>

namespace velmora {

/// The states of the control, by its numbers.
namespace socket_state {
inline constexpr int closed = 0;
inline constexpr int resolvingHost = 4;
inline constexpr int connecting = 6;
inline constexpr int connected = 7;
inline constexpr int closing = 8;  ///< the other side has closed, and all that it sent was read
inline constexpr int failed = 9;
}  // namespace socket_state

/// Its errors, besides 380 for a property's value.
namespace socket_error {
inline constexpr int notConnected = 40006;
inline constexpr int wrongState = 40020;
}  // namespace socket_error

class Winsock {
  public:
    virtual ~Winsock() = default;

    /// The present state. A connection counts as connected until all that was received is read.
    virtual int State() = 0;
    /// Begins to connect; the state reports the outcome. The host is a name or an address, which
    /// is resolved meanwhile, and each of its addresses is tried in turn. Error 40020 unless the
    /// state is closed, 380 for a port outside 1 to 65535.
    virtual void Connect(const std::string& host, std::int32_t port) = 0;
    /// Hands bytes over for sending, in order. What the network doesn't take at once goes with the
    /// calls that follow. Error 40006 unless connected.
    virtual void SendData(const std::string& data) = 0;
    /// The bytes that were received since the last call, empty when there are none; of more than
    /// 1 MB the rest comes with the next calls. Error 40006 unless the state is connected or
    /// closing.
    virtual std::string GetData() = 0;
    /// Ends the connection at once, whatever its state. Bytes not yet sent are dropped.
    virtual void Close() = 0;

    /// Waits until the socket's state has changed or there are bytes to get, at most so long. With
    /// nothing under way it waits all that time, so that a loop that polls costs no processor.
    virtual void waitForActivity(std::int32_t milliseconds) = 0;
};

}  // namespace velmora
