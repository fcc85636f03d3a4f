#include "platform/linux/starts/linux_other_starts.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "base/text_sum.h"

namespace velmora::linuxhost {

namespace {

// Until it is tried again to take a start for which there was no room.
constexpr int retryTime = 1000;  // milliseconds
constexpr std::string_view takenAnswer = "taken";

struct Address {
    sockaddr_un name{};
    socklen_t size = 0;
};

// Without a file: it is gone with the program that has it, also with one that was killed.
Address addressOf(const std::string& folder, const std::string& display) {
    const std::string sum = sumOfText(folder + '\0' + display);
    const std::string text = "velmora-" + std::to_string(geteuid()) + "-" + sum;
    Address address;
    address.name.sun_family = AF_UNIX;
    text.copy(address.name.sun_path + 1, text.size());
    address.size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + text.size());
    return address;
}

UniqueFd openSocket() {
    return UniqueFd(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
}

// Any user could have the name.
bool isOfThisUser(int socket) {
    ucred other{};
    socklen_t size = sizeof other;
    return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &other, &size) == 0 &&
           other.uid == geteuid();
}

void waitAtMost(int socket, std::chrono::milliseconds time) {
    const timeval limit{.tv_sec = time.count() / 1000, .tv_usec = time.count() % 1000 * 1000};
    setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
}

// To its end; false when it doesn't come in time or is too long.
bool readToEnd(int socket, std::string& text) {
    char piece[4096];
    while (text.size() <= mostHandedOver) {
        const auto got = recv(socket, piece, sizeof piece, 0);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return false;
        if (got == 0) return true;
        text.append(piece, static_cast<std::size_t>(got));
    }
    return false;
}

bool sendAll(int socket, std::string_view text) {
    while (!text.empty()) {
        const auto sent = send(socket, text.data(), text.size(), MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR) continue;
        if (sent <= 0) return false;
        text.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

std::string environmentOf(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string{} : std::string(value);
}

UniqueFd openSpare() {
    return UniqueFd(open("/dev/null", O_RDONLY | O_CLOEXEC));
}

UniqueFd acceptFrom(int socket) {
    return UniqueFd(accept4(socket, nullptr, nullptr, SOCK_CLOEXEC));
}

}  // namespace

std::string displayOfSession() {
    std::string wayland = environmentOf("WAYLAND_DISPLAY");
    if (!wayland.empty()) return wayland;
    const std::string display = environmentOf("DISPLAY");
    // ":0.1" is another screen of ":0".
    return display.substr(0, display.find('.', display.rfind(':') + 1));
}

void LinuxOtherStarts::stopListening() {
    if (!listener_.joinable()) return;
    eventfd_write(end_.get(), 1);
    listener_.join();
    socket_.reset();
}

void LinuxOtherStarts::release() {
    stopListening();
    watched_.reset();
}

bool LinuxOtherStarts::holdFolder() {
    watched_.reset(open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!watched_.isOpen()) return true;
    // A filesystem without locks can't tell of others.
    return flock(watched_.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool LinuxOtherStarts::listen(Taken taken) {
    const Address address = addressOf(folder_, display_);
    UniqueFd socket = openSocket();
    const bool isFirst =
        socket.isOpen() &&
        bind(socket.get(), reinterpret_cast<const sockaddr*>(&address.name), address.size) == 0 &&
        ::listen(socket.get(), SOMAXCONN) == 0;
    if (!isFirst) return false;
    end_.reset(eventfd(0, EFD_CLOEXEC));
    if (!end_.isOpen()) return false;
    socket_ = std::move(socket);
    spare_ = openSpare();
    listener_ = std::thread([this, taken = std::move(taken)] { takeStarts(taken); });
    return true;
}

// With no descriptor left, a start that waits would wake this thread again and again: it is sent
// away, and starts by itself.
bool LinuxOtherStarts::sendAway() {
    spare_.reset();
    const bool isGone = acceptFrom(socket_.get()).isOpen();
    spare_ = openSpare();
    return isGone;
}

void LinuxOtherStarts::takeOne(int start, const Taken& taken) const {
    waitAtMost(start, patience_);
    std::string command;
    if (!isOfThisUser(start) || !readToEnd(start, command)) return;
    if (taken(command)) sendAll(start, takenAnswer);
}

void LinuxOtherStarts::takeStarts(const Taken& taken) {
    pollfd waiting[] = {{.fd = socket_.get(), .events = POLLIN, .revents = 0},
                        {.fd = end_.get(), .events = POLLIN, .revents = 0}};
    while (true) {
        if (poll(waiting, 2, -1) < 0 && errno != EINTR) return;
        if (waiting[1].revents != 0) return;
        if ((waiting[0].revents & POLLIN) == 0) continue;
        const UniqueFd start = acceptFrom(socket_.get());
        if (start.isOpen()) {
            takeOne(start.get(), taken);
        } else if (!sendAway()) {
            poll(&waiting[1], 1, retryTime);
        }
    }
}

bool LinuxOtherStarts::handOver(const std::string& command) {
    const Address address = addressOf(folder_, display_);
    const UniqueFd socket = openSocket();
    if (!socket.isOpen()) return false;
    waitAtMost(socket.get(), patience_);
    if (connect(socket.get(), reinterpret_cast<const sockaddr*>(&address.name), address.size) != 0)
        return false;
    std::string answer;
    return isOfThisUser(socket.get()) && sendAll(socket.get(), command) &&
           shutdown(socket.get(), SHUT_WR) == 0 && readToEnd(socket.get(), answer) &&
           answer == takenAnswer;
}

}  // namespace velmora::linuxhost
