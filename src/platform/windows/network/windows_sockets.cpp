#include "platform/windows/network/windows_sockets.h"

// Before windows.h, which would bring in their predecessor.
#include <winsock2.h>
#include <ws2tcpip.h>

#include <algorithm>
#include <memory>

#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

using network::Progress;
using network::Transfer;

SOCKET handleOf(network::SocketNumber socket) {
    return static_cast<SOCKET>(socket);
}

const sockaddr* socketAddress(const network::Address& address) {
    return reinterpret_cast<const sockaddr*>(address.data());
}

Transfer transferOf(int count) {
    if (count >= 0) return {Progress::done, static_cast<std::size_t>(count)};
    return {WSAGetLastError() == WSAEWOULDBLOCK ? Progress::pending : Progress::failed};
}

int pieceOf(std::size_t count) {
    constexpr std::size_t greatestPiece = 1 << 20;
    return static_cast<int>(std::min(count, greatestPiece));
}

timeval durationOf(std::int32_t milliseconds) {
    return {milliseconds / 1000, milliseconds % 1000 * 1000};
}

}  // namespace

WindowsSockets::WindowsSockets() {
    WSADATA ignored{};
    isSetUp_ = WSAStartup(MAKEWORD(2, 2), &ignored) == 0;
}

WindowsSockets::~WindowsSockets() {
    if (isSetUp_) WSACleanup();
}

std::vector<network::Address> WindowsSockets::resolve(const std::string& host, std::int32_t port) {
    // An empty name would be this machine's own; any other would be read up to its first NUL.
    if (host.empty() || host.find('\0') != std::string::npos) return {};
    ADDRINFOW wanted{};
    wanted.ai_family = AF_UNSPEC;
    wanted.ai_socktype = SOCK_STREAM;
    wanted.ai_protocol = IPPROTO_TCP;
    ADDRINFOW* first = nullptr;
    const std::wstring service = std::to_wstring(port);
    if (GetAddrInfoW(toUtf16(host).c_str(), service.c_str(), &wanted, &first) != 0) return {};
    const std::unique_ptr<ADDRINFOW, decltype(&FreeAddrInfoW)> found(first, FreeAddrInfoW);
    std::vector<network::Address> addresses;
    for (const ADDRINFOW* one = first; one; one = one->ai_next) {
        addresses.emplace_back(reinterpret_cast<const char*>(one->ai_addr), one->ai_addrlen);
    }
    return addresses;
}

network::SocketNumber WindowsSockets::open(const network::Address& address) {
    const SOCKET socket = WSASocketW(socketAddress(address)->sa_family, SOCK_STREAM, IPPROTO_TCP,
                                     nullptr, 0, WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT);
    if (socket == INVALID_SOCKET) return network::noSocket;
    u_long nonBlocking = 1;
    if (ioctlsocket(socket, FIONBIO, &nonBlocking) == 0) {
        return static_cast<network::SocketNumber>(socket);
    }
    closesocket(socket);
    return network::noSocket;
}

Progress WindowsSockets::connect(network::SocketNumber socket, const network::Address& address) {
    const auto size = static_cast<int>(address.size());
    if (::connect(handleOf(socket), socketAddress(address), size) == 0) return Progress::done;
    return WSAGetLastError() == WSAEWOULDBLOCK ? Progress::pending : Progress::failed;
}

Progress WindowsSockets::outcomeOfConnect(network::SocketNumber socket) {
    int failure = 0;
    int size = sizeof failure;
    const int result = getsockopt(handleOf(socket), SOL_SOCKET, SO_ERROR,
                                  reinterpret_cast<char*>(&failure), &size);
    return result == 0 && failure == 0 ? Progress::done : Progress::failed;
}

Transfer WindowsSockets::send(network::SocketNumber socket, const char* bytes, std::size_t count) {
    return transferOf(::send(handleOf(socket), bytes, pieceOf(count), 0));
}

Transfer WindowsSockets::receive(network::SocketNumber socket, char* bytes, std::size_t count,
                                 bool peek) {
    const Transfer received =
        transferOf(recv(handleOf(socket), bytes, pieceOf(count), peek ? MSG_PEEK : 0));
    const bool isEnd = received.progress == Progress::done && received.bytes == 0;
    // Under Wine a reset reads as an end once a wait has seen it, but nothing can be sent then, not
    // even nothing.
    const bool isReset = isEnd && send(socket, "", 0).progress == Progress::failed;
    return isReset ? Transfer{} : received;
}

// Not WSAPoll: before Windows 10 2004 it doesn't report that connecting has failed.
Progress WindowsSockets::wait(network::SocketNumber socket, network::Interest interest,
                              std::int32_t milliseconds) {
    fd_set reading;
    fd_set writing;
    fd_set failing;
    for (fd_set* set : {&reading, &writing, &failing}) FD_ZERO(set);
    if (interest.reading) FD_SET(handleOf(socket), &reading);
    if (interest.writing) FD_SET(handleOf(socket), &writing);
    // Reading reports a failure by itself, and urgent bytes, which nobody reads, count as one here.
    if (!interest.reading) FD_SET(handleOf(socket), &failing);
    timeval longest = durationOf(milliseconds);
    const int ready = select(0, &reading, &writing, &failing, &longest);
    if (ready == SOCKET_ERROR) return Progress::failed;
    return ready > 0 ? Progress::done : Progress::pending;
}

void WindowsSockets::close(network::SocketNumber socket) {
    closesocket(handleOf(socket));
}

}  // namespace velmora::windows
