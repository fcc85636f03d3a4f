#include "platform/linux/drives/mount_watch.h"

#include <fcntl.h>
#include <poll.h>
#include <time.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace velmora::linuxhost {

namespace {

constexpr std::chrono::milliseconds betweenLooks{50};

std::chrono::nanoseconds coarseTime() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

}  // namespace

MountWatch::MountWatch() : file_(open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC)) {}

bool MountWatch::hasChanged() {
    lastLook_ = coarseTime();
    pollfd table{file_.get(), POLLPRI, 0};
    return poll(&table, 1, 0) > 0 && (table.revents & (POLLPRI | POLLERR)) != 0;
}

bool MountWatch::hasChangedLately() {
    return coarseTime() - lastLook_ >= betweenLooks && hasChanged();
}

std::string MountWatch::read() const {
    std::string text;
    std::array<char, 16384> piece;
    if (!file_.isOpen() || lseek(file_.get(), 0, SEEK_SET) != 0) return text;
    while (true) {
        const auto size = ::read(file_.get(), piece.data(), piece.size());
        if (size < 0 && errno == EINTR) continue;
        if (size <= 0) return text;
        text.append(piece.data(), static_cast<std::size_t>(size));
    }
}

}  // namespace velmora::linuxhost
