#include "platform/linux/network/linux_sockets.h"

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

namespace velmora::linuxhost {

namespace {

using network::Progress;
using network::Transfer;

int descriptor(network::SocketNumber socket) {
    return static_cast<int>(socket);
}

const sockaddr* socketAddress(const network::Address& address) {
    return reinterpret_cast<const sockaddr*>(address.data());
}

bool isPending(int failure) {
    return failure == EAGAIN || failure == EWOULDBLOCK || failure == EINTR;
}

Transfer transferOf(ssize_t count) {
    if (count >= 0) return {Progress::done, static_cast<std::size_t>(count)};
    return {isPending(errno) ? Progress::pending : Progress::failed};
}

}  // namespace

std::vector<network::Address> LinuxSockets::resolve(const std::string& host, std::int32_t port) {
    // The resolver would read a name up to its first NUL.
    if (host.empty() || host.find('\0') != std::string::npos) return {};
    addrinfo wanted{};
    wanted.ai_family = AF_UNSPEC;
    wanted.ai_socktype = SOCK_STREAM;
    wanted.ai_flags = AI_NUMERICSERV | AI_IDN;
    addrinfo* first = nullptr;
    const std::string service = std::to_string(port);
    if (getaddrinfo(host.c_str(), service.c_str(), &wanted, &first) != 0) return {};
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> found(first, freeaddrinfo);
    std::vector<network::Address> addresses;
    for (const addrinfo* one = first; one; one = one->ai_next) {
        addresses.emplace_back(reinterpret_cast<const char*>(one->ai_addr), one->ai_addrlen);
    }
    return addresses;
}

network::SocketNumber LinuxSockets::open(const network::Address& address) {
    return socket(socketAddress(address)->sa_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
}

Progress LinuxSockets::connect(network::SocketNumber socket, const network::Address& address) {
    const auto size = static_cast<socklen_t>(address.size());
    if (::connect(descriptor(socket), socketAddress(address), size) == 0) return Progress::done;
    return errno == EINPROGRESS || errno == EINTR ? Progress::pending : Progress::failed;
}

Progress LinuxSockets::outcomeOfConnect(network::SocketNumber socket) {
    int failure = 0;
    socklen_t size = sizeof failure;
    if (getsockopt(descriptor(socket), SOL_SOCKET, SO_ERROR, &failure, &size) != 0) {
        return Progress::failed;
    }
    return failure == 0 ? Progress::done : Progress::failed;
}

Transfer LinuxSockets::send(network::SocketNumber socket, const char* bytes, std::size_t count) {
    return transferOf(::send(descriptor(socket), bytes, count, MSG_NOSIGNAL));
}

Transfer LinuxSockets::receive(network::SocketNumber socket, char* bytes, std::size_t count,
                               bool peek) {
    return transferOf(recv(descriptor(socket), bytes, count, peek ? MSG_PEEK : 0));
}

Progress LinuxSockets::wait(network::SocketNumber socket, network::Interest interest,
                            std::int32_t milliseconds) {
    const int events = (interest.reading ? POLLIN : 0) | (interest.writing ? POLLOUT : 0);
    pollfd watched{descriptor(socket), static_cast<short>(events), 0};
    const int ready = poll(&watched, 1, milliseconds);
    if (ready < 0) return isPending(errno) ? Progress::pending : Progress::failed;
    if ((watched.revents & POLLNVAL) != 0) return Progress::failed;
    return ready > 0 ? Progress::done : Progress::pending;
}

void LinuxSockets::close(network::SocketNumber socket) {
    ::close(descriptor(socket));
}

}  // namespace velmora::linuxhost
