#include "platform/network/polled_socket.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "base/runtime_error.h"

namespace velmora::network {

namespace {

using std::chrono::milliseconds;

constexpr std::int32_t greatestPort = 65535;
constexpr std::size_t greatestReading = 1 << 20;  // bytes of one GetData
constexpr std::size_t greatestPiece = 1 << 16;    // bytes of one call of the system

milliseconds until(std::chrono::steady_clock::time_point end) {
    const auto rest = end - std::chrono::steady_clock::now();
    return std::max(std::chrono::ceil<milliseconds>(rest), milliseconds(0));
}

}  // namespace

int PolledSocket::State() {
    advance();
    knowsOfConnection_ = state_ == socket_state::connected;
    return seen_ = state_;
}

void PolledSocket::Connect(const std::string& host, std::int32_t port) {
    if (state_ != socket_state::closed) throw RuntimeError(socket_error::wrongState);
    if (port < 1 || port > greatestPort) throw RuntimeError(error::invalidPropertyValue);
    resolution_.emplace(sockets_, host, port);
    seen_ = state_ = socket_state::resolvingHost;
}

void PolledSocket::SendData(const std::string& data) {
    State();
    if (state_ != socket_state::connected) throw RuntimeError(socket_error::notConnected);
    const std::size_t sent = queue_.empty() ? sendNow(data.data(), data.size()) : 0;
    queue_.append(data, sent);
}

std::string PolledSocket::GetData() {
    State();
    if (state_ != socket_state::connected && state_ != socket_state::closing) {
        throw RuntimeError(socket_error::notConnected);
    }
    std::string data;
    while (state_ == socket_state::connected && data.size() < greatestReading) {
        const std::size_t before = data.size();
        const std::size_t room = std::min(greatestPiece, greatestReading - before);
        data.resize(before + room);
        const Transfer piece = sockets_->receive(socket_, data.data() + before, room, false);
        data.resize(before + piece.bytes);
        hasInput_ = piece.progress == Progress::done;
        if (piece.progress == Progress::pending) break;
        if (piece.progress == Progress::failed) isBroken_ = true;
        if (piece.bytes == 0) endOfInput();
    }
    return data;
}

void PolledSocket::Close() {
    end();
    seen_ = state_ = socket_state::closed;
}

void PolledSocket::waitForActivity(std::int32_t longest) {
    const auto end = std::chrono::steady_clock::now() + milliseconds(std::max(longest, 0));
    advance();
    // A change that the caller hasn't seen yet counts too.
    while (state_ == seen_ && !hasInput_ && !isNewlyConnected()) {
        const milliseconds rest = until(end);
        if (rest == milliseconds(0)) break;
        waitOnce(rest);
        advance();
    }
    seen_ = state_;
}

void PolledSocket::waitOnce(milliseconds longest) {
    if (resolution_) {
        resolution_->answer(longest);
    } else if (const Interest wanted = interest(); wanted.reading || wanted.writing) {
        const auto count = static_cast<std::int32_t>(longest.count());
        // Failing again at once, it would keep the processor busy.
        if (sockets_->wait(socket_, wanted, count) == Progress::failed) fail();
    } else {
        std::this_thread::sleep_for(longest);
    }
}

Interest PolledSocket::interest() const {
    return {.reading = state_ == socket_state::connected,
            .writing = state_ == socket_state::connecting || !queue_.empty()};
}

void PolledSocket::advance() {
    if (state_ == socket_state::resolvingHost) {
        auto addresses = resolution_->answer(milliseconds(0));
        if (!addresses) return;
        resolution_.reset();
        untried_.assign(addresses->rbegin(), addresses->rend());
        tryNextAddress();
    }
    if (state_ == socket_state::connecting) takeOutcomeOfConnect();
    if (!queue_.empty()) sendQueue();
    // A connection that ends at once is reported as one before.
    if (state_ == socket_state::connected && knowsOfConnection_) lookAtInput();
}

void PolledSocket::tryNextAddress() {
    while (!untried_.empty()) {
        const Address address = std::move(untried_.back());
        untried_.pop_back();
        if (socket_ != noSocket) sockets_->close(socket_);
        socket_ = sockets_->open(address);
        if (socket_ == noSocket) continue;
        const Progress begun = sockets_->connect(socket_, address);
        if (begun == Progress::failed) continue;
        state_ = begun == Progress::done ? socket_state::connected : socket_state::connecting;
        return;
    }
    fail();
}

void PolledSocket::takeOutcomeOfConnect() {
    while (state_ == socket_state::connecting) {
        Progress outcome = sockets_->wait(socket_, {.writing = true}, 0);
        if (outcome == Progress::done) outcome = sockets_->outcomeOfConnect(socket_);
        if (outcome == Progress::pending) return;
        if (outcome == Progress::failed) {
            tryNextAddress();
        } else {
            state_ = socket_state::connected;
        }
    }
}

std::size_t PolledSocket::sendNow(const char* bytes, std::size_t count) {
    std::size_t sent = 0;
    while (sent < count && !isBroken_) {
        const Transfer piece = sockets_->send(socket_, bytes + sent, count - sent);
        if (piece.progress == Progress::pending) return sent;
        if (piece.progress == Progress::failed) isBroken_ = true;
        sent += piece.bytes;
    }
    return count;
}

void PolledSocket::sendQueue() {
    queueStart_ += sendNow(queue_.data() + queueStart_, queue_.size() - queueStart_);
    if (queueStart_ < queue_.size()) return;
    queue_ = {};
    queueStart_ = 0;
}

// What was received before the other side has closed or failed can still be read.
void PolledSocket::lookAtInput() {
    char next = 0;
    const Transfer seen = sockets_->receive(socket_, &next, 1, true);
    hasInput_ = seen.progress == Progress::done && seen.bytes > 0;
    if (seen.progress == Progress::failed) isBroken_ = true;
    const bool isOver = seen.progress != Progress::pending || isBroken_;
    if (isOver && !hasInput_) endOfInput();
}

void PolledSocket::endOfInput() {
    hasInput_ = false;
    if (isBroken_) {
        fail();
    } else {
        state_ = socket_state::closing;
    }
}

void PolledSocket::fail() {
    end();
    state_ = socket_state::failed;
}

void PolledSocket::end() {
    resolution_.reset();
    untried_.clear();
    if (socket_ != noSocket) sockets_->close(std::exchange(socket_, noSocket));
    queue_ = {};
    queueStart_ = 0;
    hasInput_ = false;
    isBroken_ = false;
    knowsOfConnection_ = false;
}

}  // namespace velmora::network
