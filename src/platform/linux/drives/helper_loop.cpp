#include <errno.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>

#include "platform/linux/drives/helper_messages.h"
#include "platform/linux/system/forked_child.h"

namespace velmora::linuxhost {

namespace {

constexpr int socketNumber = forkedChildSocket;

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

void runHelper() {
    HelperRequest request;
    while (receive(request)) {
        HelperReply reply;
        reply.error = answer(request, reply);
        if (send(socketNumber, &reply, sizeof reply, MSG_NOSIGNAL) < 0) break;
    }
}

}  // namespace velmora::linuxhost
