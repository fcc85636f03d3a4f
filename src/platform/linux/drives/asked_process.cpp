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

AskedProcess::Received AskedProcess::receive(void* answer, std::size_t answerSize) const {
    ssize_t size = 0;
    do {
        size = recv(socket_.get(), answer, answerSize, MSG_DONTWAIT);
    } while (size < 0 && errno == EINTR);
    if (size == static_cast<ssize_t>(answerSize)) return Received::answer;
    const bool isEmpty = size < 0 && (errno == EAGAIN || errno == EWOULDBLOCK);
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

bool AskedProcess::ask(const void* question, std::size_t size, void* answer, std::size_t answerSize,
                       std::chrono::milliseconds deadline) {
    if (pending_) {
        const Received late = receive(answer, answerSize);
        if (late == Received::nothing) return false;
        if (late == Received::end) stop();
        pending_ = false;
    }
    if (!socket_.isOpen() && !start()) return false;
    if (!send(question, size)) {
        stop();
        if (!start() || !send(question, size)) return false;
    }
    pending_ = true;
    if (!waitFor(POLLIN, deadline)) return false;
    const Received received = receive(answer, answerSize);
    if (received == Received::nothing) return false;
    pending_ = false;
    if (received == Received::answer) return true;
    stop();
    return false;
}

}  // namespace velmora::linuxhost
