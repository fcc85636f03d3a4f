#include "platform/linux/inventory/record_channel.h"

#include <poll.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstdint>
#include <cstring>

#include "platform/linux/inventory/record_messages.h"

namespace velmora::linuxhost {

namespace {

using MessageSize = std::uint32_t;
constexpr std::size_t pieceSize = 16384;

bool mustWait() {
    return errno == EAGAIN || errno == EWOULDBLOCK;
}

}  // namespace

bool RecordChannel::waitFor(short events) const {
    using std::chrono::milliseconds;
    using std::chrono::steady_clock;
    const auto end = steady_clock::now() + patience_.value_or(milliseconds(0));
    pollfd waiting{socket_, events, 0};
    while (true) {
        milliseconds left{-1};
        if (patience_) left = std::chrono::ceil<milliseconds>(end - steady_clock::now());
        if (patience_ && left.count() <= 0) return false;
        const int ready = poll(&waiting, 1, static_cast<int>(left.count()));
        if (ready > 0) return true;
        if (ready < 0 && errno != EINTR) return false;
    }
}

bool RecordChannel::sendAll(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto sent = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        } else if (errno == EINTR) {
            continue;
        } else if (!mustWait() || !waitFor(POLLOUT)) {
            return false;
        }
    }
    return true;
}

bool RecordChannel::send(std::string_view message) {
    if (message.size() > longestRecordMessage) return false;
    const auto size = static_cast<MessageSize>(message.size());
    std::string bytes(sizeof size, '\0');
    std::memcpy(bytes.data(), &size, sizeof size);
    bytes += message;
    return sendAll(bytes);
}

bool RecordChannel::receiveMore() {
    char bytes[pieceSize];
    while (!patience_ || waitFor(POLLIN)) {
        const auto size = recv(socket_, bytes, sizeof bytes, patience_ ? MSG_DONTWAIT : 0);
        if (size > 0) received_.append(bytes, static_cast<std::size_t>(size));
        if (size >= 0) return size > 0;
        if (errno != EINTR && !mustWait()) return false;
    }
    return false;
}

bool RecordChannel::hasReceived(std::size_t size) {
    while (received_.size() < size) {
        if (!receiveMore()) return false;
    }
    return true;
}

std::optional<std::string> RecordChannel::receive() {
    MessageSize size = 0;
    if (!hasReceived(sizeof size)) return std::nullopt;
    std::memcpy(&size, received_.data(), sizeof size);
    if (size > longestRecordMessage || !hasReceived(sizeof size + size)) return std::nullopt;
    std::string message = received_.substr(sizeof size, size);
    received_.erase(0, sizeof size + size);
    return message;
}

}  // namespace velmora::linuxhost
