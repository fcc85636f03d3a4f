#include <errno.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/system/forked_child.h"
#include "platform/linux/volumes/device_messages.h"
#include "platform/linux/volumes/file_system_probe.h"

namespace velmora::linuxhost {

namespace {

int openDevice(const char* path, int& device) {
    struct stat status {};
    if (stat(path, &status) != 0) return errno;
    if (!S_ISBLK(status.st_mode)) return ENOTBLK;
    device = open(path, O_RDONLY | O_CLOEXEC);
    return device >= 0 ? 0 : errno;
}

int readPiece(int device, const DeviceRequest& request, DeviceReply& reply) {
    if (request.bytes > DeviceReply::mostBytes) return EINVAL;
    while (reply.bytes < request.bytes) {
        const auto place = static_cast<off_t>(request.position + reply.bytes);
        const ssize_t size =
            pread(device, reply.content + reply.bytes, request.bytes - reply.bytes, place);
        if (size < 0 && errno == EINTR) continue;
        if (size < 0) return errno;
        if (size == 0) break;
        reply.bytes += static_cast<std::uint32_t>(size);
    }
    return 0;
}

int answerAbout(int& device, const DeviceRequest& request, DeviceReply& reply) {
    switch (request.question) {
        case DeviceQuestion::open:
            return openDevice(request.path, device);
        case DeviceQuestion::read:
            return readPiece(device, request, reply);
        case DeviceQuestion::probe:
            return probeFileSystem(device, reply.names);
    }
    return EINVAL;
}

bool receiveRequest(DeviceRequest& request) {
    while (true) {
        const auto size = recv(forkedChildSocket, &request, sizeof request, 0);
        if (size < 0 && errno == EINTR) continue;
        if (size <= static_cast<ssize_t>(DeviceRequest::headSize())) return false;
        request.path[sizeof request.path - 1] = '\0';
        return true;
    }
}

}  // namespace

void runDeviceProcess() {
    int device = -1;
    DeviceRequest request;
    while (receiveRequest(request)) {
        DeviceReply reply;
        reply.error = answerAbout(device, request, reply);
        if (send(forkedChildSocket, &reply, sizeof reply, MSG_NOSIGNAL) < 0) break;
    }
}

}  // namespace velmora::linuxhost
