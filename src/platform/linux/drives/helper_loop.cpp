#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/drives/helper_messages.h"

namespace velmora::linuxhost {

namespace {

constexpr int socketNumber = 0;

// The program's handlers must not run here, and a key pressed at its terminal is not for this
// process.
void leaveSession() {
    setsid();
    struct sigaction standard {};
    standard.sa_handler = SIG_DFL;
    for (int number = 1; number < NSIG; ++number) sigaction(number, &standard, nullptr);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    prctl(PR_SET_NAME, "velmora-drive");
}

// The reader of a pipe sees its end only when every process has closed it, and a filesystem can't
// be unmounted while it holds the working folder of a process.
void giveUpFiles(int socket) {
    if (socket != socketNumber) dup2(socket, socketNumber);
    if (close_range(socketNumber + 1, ~0U, 0) != 0) {
        const long most = sysconf(_SC_OPEN_MAX);
        for (int file = socketNumber + 1; file < (most > 0 ? most : 65536); ++file) close(file);
    }
    // A failure leaves it where the program was started, which is no worse than the program itself.
    if (chdir("/") != 0) return;
}

int readStatus(const char* path, struct statx& status) {
    constexpr unsigned wanted = STATX_BASIC_STATS | STATX_BTIME;
    return statx(AT_FDCWD, path, AT_NO_AUTOMOUNT, wanted, &status) == 0 ? 0 : errno;
}

int answer(const HelperRequest& request, HelperReply& reply) {
    switch (request.question) {
        case HelperQuestion::space:
            return readFilesystem(request.path, reply.reading);
        case HelperQuestion::status:
            return readStatus(request.path, reply.status);
        case HelperQuestion::entries:
            return countEntries(request.path, reply.entries);
        case HelperQuestion::listing:
            return beginListing(request.path);
    }
    return EINVAL;
}

bool receive(HelperRequest& request) {
    while (true) {
        const auto size = recv(socketNumber, &request, sizeof request, 0);
        if (size < 0 && errno == EINTR) continue;
        if (size <= static_cast<ssize_t>(HelperRequest::headSize())) return false;
        request.path[sizeof request.path - 1] = '\0';
        return true;
    }
}

}  // namespace

void runHelper(int socket) {
    leaveSession();
    giveUpFiles(socket);
    HelperRequest request;
    while (receive(request)) {
        HelperReply reply;
        reply.error = answer(request, reply);
        if (send(socketNumber, &reply, sizeof reply, MSG_NOSIGNAL) < 0) break;
    }
    _exit(0);
}

}  // namespace velmora::linuxhost
