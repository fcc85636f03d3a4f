#include "platform/linux/system/write_all.h"

#include <unistd.h>

#include <cerrno>

namespace velmora::linuxhost {

int writeAll(int fd, std::string_view& bytes) {
    while (!bytes.empty()) {
        const auto written = write(fd, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        if (written == 0) return ENOSPC;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

}  // namespace velmora::linuxhost
