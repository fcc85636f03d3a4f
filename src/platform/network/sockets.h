// The system's calls for TCP connections, as the socket control needs them. Sockets never block;
// only the resolver and `wait` do.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace velmora::network {

/// A socket as the system numbers it.
using SocketNumber = std::intptr_t;
inline constexpr SocketNumber noSocket = -1;

/// One address with its port, in the bytes that the system's calls take.
using Address = std::string;

/// How far a call has come: pending means that it has to be asked again later.
enum class Progress { done, pending, failed };

/// What was moved. Receiving no byte with success is the end of what the other side sends.
struct Transfer {
    Progress progress = Progress::failed;
    std::size_t bytes = 0;
};

/// What a socket is waited for: that something can be read, or written.
struct Interest {
    bool reading = false;
    bool writing = false;
};

/// Calls may come from several threads, though only `resolve` does.
class Sockets {
  public:
    virtual ~Sockets() = default;
    /// The addresses of a host, in the order in which they are to be tried; empty when it has
    /// none. Waits for name servers, which can take a minute.
    virtual std::vector<Address> resolve(const std::string& host, std::int32_t port) = 0;
    /// A new socket for such an address, or `noSocket`. The caller closes it.
    virtual SocketNumber open(const Address& address) = 0;
    /// Begins to connect.
    virtual Progress connect(SocketNumber socket, const Address& address) = 0;
    /// How a connecting went that was begun, once the socket can be written.
    virtual Progress outcomeOfConnect(SocketNumber socket) = 0;
    /// Sends the beginning of the bytes, as much as the socket takes.
    virtual Transfer send(SocketNumber socket, const char* bytes, std::size_t count) = 0;
    /// Receives at most so many bytes; with `peek` they stay to be received again.
    virtual Transfer receive(SocketNumber socket, char* bytes, std::size_t count, bool peek) = 0;
    /// Waits until a call of that interest would not be pending, at most so long. Pending when
    /// nothing has come until then.
    virtual Progress wait(SocketNumber socket, Interest interest, std::int32_t milliseconds) = 0;
    virtual void close(SocketNumber socket) = 0;
};

}  // namespace velmora::network
