#include "platform/linux/drives/helper_process.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "platform/linux/system/forked_child.h"

namespace velmora::linuxhost {

bool HelperProcess::start() {
    reapStopped();
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) return false;
    UniqueFd ownEnd(ends[0]);
    const UniqueFd helperEnd(ends[1]);
    const pid_t child = forkChild(helperEnd.get(), "velmora-drive", runHelper);
    if (child < 0) return false;
    socket_ = std::move(ownEnd);
    process_ = child;
    return true;
}

void HelperProcess::stop() {
    if (socket_.isOpen()) {
        // An idle helper ends at once; waiting for it keeps it from staying as a zombie process.
        shutdown(socket_.get(), SHUT_WR);
        const bool isEnding = !pending_ && waitForEnd();
        socket_.reset();
        if (isEnding) {
            while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) continue;
        } else {
            stopped_.push_back(process_);
        }
    }
    process_ = -1;
    pending_ = false;
    reapStopped();
}

void HelperProcess::reapStopped() {
    const auto isGone = [](pid_t process) {
        const pid_t reaped = waitpid(process, nullptr, WNOHANG);
        return reaped == process || (reaped < 0 && errno != EINTR);
    };
    stopped_.erase(std::remove_if(stopped_.begin(), stopped_.end(), isGone), stopped_.end());
}

bool HelperProcess::send(HelperQuestion question, const std::string& path) {
    HelperRequest request;
    request.question = question;
    std::memcpy(request.path, path.c_str(), path.size() + 1);
    const auto size = HelperRequest::headSize() + path.size() + 1;
    return ::send(socket_.get(), &request, size, MSG_NOSIGNAL | MSG_DONTWAIT) ==
           static_cast<ssize_t>(size);
}

HelperProcess::Received HelperProcess::receive(HelperReply& reply) const {
    ssize_t size = 0;
    do {
        size = recv(socket_.get(), &reply, sizeof reply, MSG_DONTWAIT);
    } while (size < 0 && errno == EINTR);
    if (size == static_cast<ssize_t>(sizeof reply)) return Received::answer;
    const bool isEmpty = size < 0 && (errno == EAGAIN || errno == EWOULDBLOCK);
    return isEmpty ? Received::nothing : Received::end;
}

bool HelperProcess::waitForAnswer() const {
    return waitFor(POLLIN, deadline_);
}

bool HelperProcess::waitForEnd() const {
    // The hang-up is always reported.
    return waitFor(0, std::chrono::milliseconds(100));
}

bool HelperProcess::waitFor(short events, std::chrono::milliseconds deadline) const {
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

std::optional<HelperReply> HelperProcess::ask(HelperQuestion question, const std::string& path) {
    if (path.size() >= PATH_MAX || path.find('\0') != std::string::npos) return std::nullopt;
    HelperReply reply;
    if (pending_) {
        const Received late = receive(reply);
        if (late == Received::nothing) return std::nullopt;
        if (late == Received::end) stop();
        pending_ = false;
    }
    if (!socket_.isOpen() && !start()) return std::nullopt;
    if (!send(question, path)) {
        stop();
        if (!start() || !send(question, path)) return std::nullopt;
    }
    pending_ = true;
    if (!waitForAnswer()) return std::nullopt;
    const Received received = receive(reply);
    if (received == Received::nothing) return std::nullopt;
    pending_ = false;
    if (received == Received::answer) return reply;
    stop();
    return std::nullopt;
}

}  // namespace velmora::linuxhost
