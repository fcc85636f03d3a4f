#include "platform/linux/drives/asked_process.h"

#include <poll.h>
#include <signal.h>
#include <sys/socket.h>

#include <cerrno>
#include <utility>

#include "platform/linux/system/forked_child.h"
#include "platform/linux/system/left_children.h"

namespace velmora::linuxhost {

bool AskedProcess::start() {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) return false;
    UniqueFd ownEnd(ends[0]);
    const UniqueFd childsEnd(ends[1]);
    const pid_t child = forkChild(childsEnd.get(), name_, live_);
    if (child < 0) return false;
    socket_ = std::move(ownEnd);
    process_ = child;
    return true;
}

void AskedProcess::stop() {
    if (socket_.isOpen()) {
        shutdown(socket_.get(), SHUT_WR);
        socket_.reset();
        // An idle child ends at once; one that waits for an answer ends with that.
        leaveChild(process_, pending_ ? std::chrono::milliseconds(0) : endingTime);
    }
    process_ = -1;
    pending_ = false;
    reapLeftChildren();
}

void AskedProcess::end() {
    if (process_ > 0) kill(process_, SIGKILL);
    stop();
}

bool AskedProcess::send(const void* question, std::size_t size) {
    return ::send(socket_.get(), question, size, MSG_NOSIGNAL | MSG_DONTWAIT) ==
           static_cast<ssize_t>(size);
}

void AskedProcess::tell(const void* order, std::size_t size) {
    if (socket_.isOpen()) send(order, size);
}

// `size` is that of the room and becomes that of the answer.
AskedProcess::Received AskedProcess::receive(void* answer, std::size_t& size) const {
    ssize_t received = 0;
    do {
        received = recv(socket_.get(), answer, size, MSG_DONTWAIT);
    } while (received < 0 && errno == EINTR);
    size = received > 0 ? static_cast<std::size_t>(received) : 0;
    if (received > 0) return Received::answer;
    const bool isEmpty = received < 0 && (errno == EAGAIN || errno == EWOULDBLOCK);
    return isEmpty ? Received::nothing : Received::end;
}

bool AskedProcess::waitFor(short events, std::chrono::milliseconds deadline) const {
    using std::chrono::steady_clock;
    const auto end = steady_clock::now() + deadline;
    pollfd waiting{socket_.get(), events, 0};
    while (true) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(end - steady_clock::now()).count();
        if (left <= 0) return false;
        const int ready = poll(&waiting, 1, static_cast<int>(left));
        if (ready > 0) return true;
        if (ready < 0 && errno != EINTR) return false;
    }
}

std::size_t AskedProcess::ask(const void* question, std::size_t size, void* answer,
                              std::size_t answerSize, std::chrono::milliseconds deadline) {
    if (pending_) {
        std::size_t lateSize = answerSize;
        const Received late = receive(answer, lateSize);
        if (late == Received::nothing) return 0;
        if (late == Received::end) stop();
        pending_ = false;
    }
    if (!socket_.isOpen() && !start()) return 0;
    if (!send(question, size)) {
        stop();
        if (!start() || !send(question, size)) return 0;
    }
    ++sent_;
    pending_ = true;
    if (!waitFor(POLLIN, deadline)) return 0;
    const Received received = receive(answer, answerSize);
    if (received == Received::nothing) return 0;
    pending_ = false;
    if (received == Received::end) stop();
    return answerSize;
}

}  // namespace velmora::linuxhost
