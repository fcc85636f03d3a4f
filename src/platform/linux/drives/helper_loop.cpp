#include <errno.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>

#include <cstddef>

#include "platform/linux/drives/helper_listings.h"
#include "platform/linux/drives/helper_messages.h"
#include "platform/linux/drives/listing_block.h"
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
            return countEntries(request.path, reply.counted);
        case HelperQuestion::listing:
        case HelperQuestion::endOfListing:
            break;
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

bool reply(const void* message, std::size_t size) {
    return ::send(socketNumber, message, size, MSG_NOSIGNAL) >= 0;
}

// False when the other end is closed.
bool serve(const HelperRequest& request) {
    // Large, and of this process alone.
    static ListingBlock block;
    switch (request.question) {
        case HelperQuestion::listing:
            readListing(request, block);
            return reply(&block, block.size());
        case HelperQuestion::endOfListing:
            endListing(request);
            return true;
        default: {
            HelperReply found;
            found.error = answer(request, found);
            return reply(&found, sizeof found);
        }
    }
}

}  // namespace

void runHelper() {
    HelperRequest request;
    bool goesOn = true;
    while (goesOn && receive(request)) goesOn = serve(request);
}

}  // namespace velmora::linuxhost
