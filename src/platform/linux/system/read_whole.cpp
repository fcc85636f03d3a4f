#include "platform/linux/system/read_whole.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

int readWhole(int fd, std::size_t most, std::string& content) {
    constexpr std::size_t piece = 64 * 1024;
    while (content.size() <= most) {
        const std::size_t size = content.size();
        content.resize(size + piece);
        const ssize_t got = read(fd, content.data() + size, piece);
        const int failure = got < 0 ? errno : 0;
        content.resize(size + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (got == 0) return 0;
        if (failure != 0 && failure != EINTR) return failure;
    }
    return EFBIG;
}

// The library's iterators over a stream raise what nobody takes when a disk fails.
std::string contentOfFile(const std::string& path) {
    constexpr std::size_t most = std::size_t{64} << 20;
    const UniqueFd file(open(path.c_str(), O_RDONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    std::string content;
    if (!file.isOpen() || readWhole(file.get(), most, content) != 0) return {};
    return content;
}

}  // namespace velmora::linuxhost
