#include "platform/linux/drives/filesystem_reading.h"

#include <sys/vfs.h>

#include <cerrno>
#include <cstring>

namespace velmora::linuxhost {

int readFilesystem(const char* path, FilesystemReading& reading) {
    struct statfs answer {};
    int result = 0;
    do {
        result = statfs(path, &answer);
    } while (result != 0 && errno == EINTR);
    if (result != 0) return errno;

    const auto fragment = answer.f_frsize > 0 ? answer.f_frsize : answer.f_bsize;
    reading.fragmentSize = static_cast<std::uint64_t>(fragment);
    reading.blocks = answer.f_blocks;
    // Reserved blocks in use make the count negative, in an unsigned field.
    const bool isNegative = static_cast<std::int64_t>(answer.f_bavail) < 0;
    reading.availableBlocks = isNegative ? 0 : answer.f_bavail;
    reading.type = static_cast<std::uint64_t>(answer.f_type);
    static_assert(sizeof(answer.f_fsid) == sizeof(reading.id));
    std::memcpy(&reading.id, &answer.f_fsid, sizeof(reading.id));
    return 0;
}

}  // namespace velmora::linuxhost
