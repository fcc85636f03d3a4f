#include "loopback_server.h"

#include <cstring>
#include <utility>

#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <netinet/in.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>
#endif

namespace velmora::network {

namespace {

constexpr int secondsOfPatience = 10;

#ifdef _WIN32

using Handle = SOCKET;

void closeHandle(Handle socket) {
    closesocket(socket);
}

void limitWaiting(Handle socket) {
    const DWORD milliseconds = secondsOfPatience * 1000;
    setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, reinterpret_cast<const char*>(&milliseconds),
               sizeof milliseconds);
}

// For as long as the test program runs.
void startSockets() {
    static const int started = [] {
        WSADATA ignored{};
        return WSAStartup(MAKEWORD(2, 2), &ignored);
    }();
    static_cast<void>(started);
}

constexpr int sendFlags = 0;

#else

using Handle = int;

void closeHandle(Handle socket) {
    close(socket);
}

void limitWaiting(Handle socket) {
    const timeval time{secondsOfPatience, 0};
    setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &time, sizeof time);
}

void startSockets() {}

constexpr int sendFlags = MSG_NOSIGNAL;

#endif

Handle handle(std::intptr_t socket) {
    return static_cast<Handle>(socket);
}

/// Listens on a free port of the loopback address and gives the port; 0 when there is none.
std::int32_t listenOnLoopback(Handle socket, LoopbackFamily family) {
    sockaddr_storage address{};
    socklen_t size = 0;
    if (family == LoopbackFamily::v4) {
        auto& v4 = reinterpret_cast<sockaddr_in&>(address);
        v4.sin_family = AF_INET;
        v4.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        size = sizeof v4;
    } else {
        auto& v6 = reinterpret_cast<sockaddr_in6&>(address);
        v6.sin6_family = AF_INET6;
        v6.sin6_addr = in6addr_loopback;
        size = sizeof v6;
    }
    auto* const plain = reinterpret_cast<sockaddr*>(&address);
    if (bind(socket, plain, size) != 0 || listen(socket, 8) != 0 ||
        getsockname(socket, plain, &size) != 0) {
        return 0;
    }
    // The port lies at the same place in both.
    return ntohs(reinterpret_cast<const sockaddr_in&>(address).sin_port);
}

std::intptr_t newSocket(LoopbackFamily family) {
    startSockets();
    const int domain = family == LoopbackFamily::v4 ? AF_INET : AF_INET6;
    return static_cast<std::intptr_t>(socket(domain, SOCK_STREAM, 0));
}

bool isReadableSoon(Handle socket) {
    fd_set watched;
    FD_ZERO(&watched);
    FD_SET(socket, &watched);
    timeval time{0, 10'000};
    return select(static_cast<int>(socket) + 1, &watched, nullptr, nullptr, &time) > 0;
}

}  // namespace

bool Peer::send(const std::string& bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const auto count = ::send(handle(socket_), bytes.data() + sent,
                                  static_cast<int>(bytes.size() - sent), sendFlags);
        if (count <= 0) return false;
        sent += static_cast<std::size_t>(count);
    }
    return true;
}

std::string Peer::receive(std::size_t most) {
    std::string bytes(most, '\0');
    const auto count = recv(handle(socket_), bytes.data(), static_cast<int>(most), 0);
    bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return bytes;
}

std::string Peer::receiveAll(std::size_t count) {
    std::string bytes;
    while (bytes.size() < count) {
        const std::string piece = receive(count - bytes.size());
        if (piece.empty()) break;
        bytes += piece;
    }
    return bytes;
}

std::string Peer::receiveUntil(const std::string& text) {
    std::string bytes;
    while (!bytes.ends_with(text)) {
        const std::string piece = receive(1);
        if (piece.empty()) break;
        bytes += piece;
    }
    return bytes;
}

void Peer::pause() {
    isReadableSoon(handle(socket_));
}

void Peer::waitForEnd() {
    while (!receive().empty()) {
    }
}

void Peer::close() {
    if (socket_ >= 0) closeHandle(handle(std::exchange(socket_, -1)));
}

void Peer::reset() {
    const linger hard{1, 0};
    setsockopt(handle(socket_), SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&hard),
               sizeof hard);
    close();
}

LoopbackServer::LoopbackServer(Session session, LoopbackFamily family)
    : session_(std::move(session)), listener_(newSocket(family)) {
    if (listener_ >= 0) port_ = listenOnLoopback(handle(listener_), family);
    if (port_ != 0) thread_ = std::thread([this] { serve(); });
}

LoopbackServer::~LoopbackServer() {
    isEnding_ = true;
    if (thread_.joinable()) thread_.join();
    if (listener_ >= 0) closeHandle(handle(listener_));
}

void LoopbackServer::serve() {
    while (!isEnding_) {
        if (!isReadableSoon(handle(listener_))) continue;
        const auto socket = static_cast<std::intptr_t>(accept(handle(listener_), nullptr, nullptr));
        if (socket < 0) continue;
        limitWaiting(handle(socket));
        ++connections_;
        Peer peer(socket);
        session_(peer);
    }
}

std::int32_t deafPort() {
    const std::intptr_t socket = newSocket(LoopbackFamily::v4);
    const std::int32_t port = listenOnLoopback(handle(socket), LoopbackFamily::v4);
    closeHandle(handle(socket));
    return port;
}

}  // namespace velmora::network
