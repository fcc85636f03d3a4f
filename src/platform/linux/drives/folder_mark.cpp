#include "platform/linux/drives/folder_mark.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <time.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace velmora::linuxhost {

namespace {

constexpr std::int64_t wholeSecond = 1'000'000'000;
// More than two steps of the clock, which are of 10 ms at most.
constexpr std::int64_t settlingTime = 100'000'000;

// No overlay, whose lower layers change unseen, and nothing that other machines write to.
constexpr std::array<std::uint64_t, 5> datingTypes{
    EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC, TMPFS_MAGIC, F2FS_SUPER_MAGIC};

std::int64_t inNanoseconds(std::int64_t seconds, std::int64_t part) {
    return seconds * wholeSecond + part;
}

}  // namespace

bool readMark(int folder, FolderMark& mark) {
    constexpr unsigned wanted = STATX_CTIME | STATX_MTIME | STATX_INO | STATX_NLINK | STATX_MNT_ID;
    struct statx status {};
    if (statx(folder, "", AT_EMPTY_PATH | AT_STATX_DONT_SYNC, wanted, &status) != 0) return false;
    if ((status.stx_mask & wanted) != wanted) return false;
    mark = {.mount = status.stx_mnt_id,
            .inode = status.stx_ino,
            .major = status.stx_dev_major,
            .minor = status.stx_dev_minor,
            .changed = inNanoseconds(status.stx_ctime.tv_sec, status.stx_ctime.tv_nsec),
            .written = inNanoseconds(status.stx_mtime.tv_sec, status.stx_mtime.tv_nsec)};
    // One that was removed is still open.
    return status.stx_nlink > 0;
}

bool datesEveryChange(int folder) {
    struct statfs filesystem {};
    int result = 0;
    do {
        result = fstatfs(folder, &filesystem);
    } while (result != 0 && errno == EINTR);
    const auto type = static_cast<std::uint64_t>(filesystem.f_type);
    return result == 0 &&
           std::find(datingTypes.begin(), datingTypes.end(), type) != datingTypes.end();
}

std::int64_t changeClock() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME_COARSE, &now);
    return inNanoseconds(now.tv_sec, now.tv_nsec);
}

bool isSettled(const FolderMark& mark, std::int64_t asked) {
    return mark.changed % wholeSecond != 0 && asked - mark.changed >= settlingTime;
}

}  // namespace velmora::linuxhost
