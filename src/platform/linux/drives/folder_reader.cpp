#include "platform/linux/drives/folder_reader.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <utility>

#include "platform/kernel32.h"
#include "platform/linux/paths/path_names.h"
#include "platform/linux/system/file_time.h"

namespace velmora::linuxhost {

namespace {

constexpr unsigned wantedFields =
    STATX_TYPE | STATX_MODE | STATX_SIZE | STATX_ATIME | STATX_MTIME | STATX_BTIME;
// What the kernel knows already is enough, so that no server is asked for each entry.
constexpr int lookFlags = AT_SYMLINK_NOFOLLOW | AT_STATX_DONT_SYNC | AT_NO_AUTOMOUNT;
constexpr std::uint32_t archive = 32;
constexpr std::uint32_t link = 1024;

std::uint32_t attributesOf(unsigned mode, const char* name) {
    std::uint32_t attributes = S_ISDIR(mode) ? file_attribute::directory : archive;
    if (S_ISLNK(mode)) attributes |= link;
    if ((mode & S_IWUSR) == 0) attributes |= file_attribute::readOnly;
    if (name[0] == '.' && !isDots(name)) attributes |= file_attribute::hidden;
    return attributes;
}

}  // namespace

int FolderReader::begin(UniqueFd folder, bool hasDots, bool asksServer) {
    struct statx status {};
    // Where not even the status of "." can be read, no entry's can.
    if (statx(folder.get(), ".", lookFlags, STATX_TYPE, &status) != 0) return errno;
    folder_ = std::move(folder);
    listedDots_ = hasDots ? 0 : 2;
    asksServer_ = asksServer;
    major_ = status.stx_dev_major;
    minor_ = status.stx_dev_minor;
    at_ = 0;
    size_ = 0;
    return 0;
}

bool FolderReader::fill(int& failure) {
    ssize_t size = 0;
    do {
        size = getdents64(folder_.get(), buffer_, sizeof buffer_);
    } while (size < 0 && errno == EINTR);
    failure = size < 0 ? errno : 0;
    at_ = 0;
    size_ = static_cast<std::size_t>(std::max<ssize_t>(size, 0));
    return size > 0;
}

// The server of another filesystem mounted here is never asked: it may not answer.
bool FolderReader::look(const char* name, struct statx& status) const {
    if (statx(folder_.get(), name, lookFlags, wantedFields, &status) != 0) return false;
    if (!asksServer_ || status.stx_dev_major != major_ || status.stx_dev_minor != minor_)
        return true;
    struct statx now {};
    constexpr int asking = (lookFlags & ~AT_STATX_DONT_SYNC) | AT_STATX_SYNC_AS_STAT;
    if (statx(folder_.get(), name, asking, wantedFields, &now) == 0) status = now;
    return true;
}

bool FolderReader::describe(const char* name, unsigned char kind, ListedEntry& entry) const {
    struct statx status {};
    if (!look(name, status)) {
        if (errno == ENOENT) return false;  // gone since the names were read
        // A mount point that may not be looked at, say. It is there all the same.
        status = {};
        status.stx_mode = static_cast<std::uint16_t>(DTTOIF(kind) | S_IWUSR);
    }
    const bool hasTimes = (status.stx_mask & STATX_MTIME) != 0;
    const bool hasBirth = (status.stx_mask & STATX_BTIME) != 0;
    entry.attributes = attributesOf(status.stx_mode, name);
    entry.accessed = hasTimes ? fileTimeOf(status.stx_atime) : 0;
    entry.written = hasTimes ? fileTimeOf(status.stx_mtime) : 0;
    entry.created = hasBirth ? fileTimeOf(status.stx_btime) : entry.written;
    entry.size = S_ISREG(status.stx_mode) ? status.stx_size : 0;
    entry.name = name;
    return true;
}

bool FolderReader::nextDots(ListedEntry& entry) {
    constexpr const char* dots[] = {".", ".."};
    while (listedDots_ < std::size(dots)) {
        if (describe(dots[listedDots_++], DT_DIR, entry)) return true;
    }
    return false;
}

int FolderReader::next(ListedEntry& entry) {
    if (!isOpen()) return noMoreEntries;
    if (nextDots(entry)) return 0;
    int failure = 0;
    while (at_ < size_ || fill(failure)) {
        const auto& found = *reinterpret_cast<const dirent64*>(buffer_ + at_);
        at_ += found.d_reclen;
        if (!isDots(found.d_name) && describe(found.d_name, found.d_type, entry)) return 0;
    }
    end();
    return failure == 0 ? noMoreEntries : failure;
}

}  // namespace velmora::linuxhost
