#include "platform/linux/files/linux_find.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>

#include "base/text.h"
#include "platform/linux/paths/path_names.h"
#include "platform/linux/system/file_time.h"
#include "platform/linux/system/system_errors.h"

namespace velmora::linuxhost {

namespace {

constexpr std::size_t bufferSize = 256 * 1024;
constexpr unsigned wantedFields =
    STATX_TYPE | STATX_MODE | STATX_SIZE | STATX_ATIME | STATX_MTIME | STATX_BTIME;
// What the kernel knows already is enough, so that no server is asked for each entry.
constexpr int lookFlags = AT_SYMLINK_NOFOLLOW | AT_STATX_DONT_SYNC | AT_NO_AUTOMOUNT;
constexpr std::uint32_t archive = 32;
constexpr std::uint32_t link = 1024;

// A listing reports only these failures apart.
std::uint32_t listingCodeOf(int failure) {
    const std::uint32_t result = codeWithoutLoops(failure);
    const bool isApart = result == code::pathNotFound || result == code::accessDenied;
    return isApart ? result : code::generalFailure;
}

std::uint32_t attributesOf(unsigned mode, const char* name) {
    std::uint32_t attributes = S_ISDIR(mode) ? file_attribute::directory : archive;
    if (S_ISLNK(mode)) attributes |= link;
    if ((mode & S_IWUSR) == 0) attributes |= file_attribute::readOnly;
    if (name[0] == '.' && !isDots(name)) attributes |= file_attribute::hidden;
    return attributes;
}

// Of the names that come as they are: plain ones and most others.
bool isSameInDrivePath(std::string_view name) {
    bool isPlain = true;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\\' || c == '"') return false;
        if (byte >= 0x80) isPlain = false;
        // The first byte of every stand-in.
        if (byte == 0xEF) return false;
    }
    return isPlain || isValidUtf8(name);
}

}  // namespace

std::uint64_t fileTimeOf(const struct statx_timestamp& time) {
    return fileTimeOf(time.tv_sec, time.tv_nsec);
}

void setDriveName(std::string& text, std::string_view name) {
    if (isSameInDrivePath(name)) {
        text.assign(name);
    } else {
        text = toDriveNames(name);
    }
}

FolderListing::FolderListing(const std::string& hostPath, bool hasDots, bool asksServer)
    : folder_(open(hostPath.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
      failure_(folder_.isOpen() ? 0 : errno),
      listedDots_(hasDots ? 0 : 2),
      asksServer_(asksServer) {
    if (!folder_.isOpen()) return;
    struct statx status {};
    // Where not even the status of "." can be read, no entry's can.
    if (statx(folder_.get(), ".", lookFlags, STATX_TYPE, &status) != 0) failure_ = errno;
    major_ = status.stx_dev_major;
    minor_ = status.stx_dev_minor;
    buffer_ = std::make_unique_for_overwrite<char[]>(bufferSize);
}

bool FolderListing::fill(int& failure) {
    ssize_t size = 0;
    do {
        size = getdents64(folder_.get(), buffer_.get(), bufferSize);
    } while (size < 0 && errno == EINTR);
    failure = size < 0 ? errno : 0;
    at_ = 0;
    size_ = static_cast<std::size_t>(std::max<ssize_t>(size, 0));
    return size > 0;
}

// The server of another filesystem mounted here is never asked: it may not answer.
bool FolderListing::look(const char* name, struct statx& status) const {
    if (statx(folder_.get(), name, lookFlags, wantedFields, &status) != 0) return false;
    if (!asksServer_ || status.stx_dev_major != major_ || status.stx_dev_minor != minor_)
        return true;
    struct statx now {};
    constexpr int asking = (lookFlags & ~AT_STATX_DONT_SYNC) | AT_STATX_SYNC_AS_STAT;
    if (statx(folder_.get(), name, asking, wantedFields, &now) == 0) status = now;
    return true;
}

bool FolderListing::describe(const char* name, unsigned char kind, FindData& entry) const {
    struct statx status {};
    if (!look(name, status)) {
        if (errno == ENOENT) return false;  // gone since the names were read
        // A mount point that may not be looked at, say. It is there all the same.
        status = {};
        status.stx_mode = static_cast<std::uint16_t>(DTTOIF(kind) | S_IWUSR);
    }
    const bool hasTimes = (status.stx_mask & STATX_MTIME) != 0;
    const bool hasBirth = (status.stx_mask & STATX_BTIME) != 0;
    entry.dwFileAttributes = attributesOf(status.stx_mode, name);
    entry.ftLastAccessTime = hasTimes ? fileTimeOf(status.stx_atime) : 0;
    entry.ftLastWriteTime = hasTimes ? fileTimeOf(status.stx_mtime) : 0;
    entry.ftCreationTime = hasBirth ? fileTimeOf(status.stx_btime) : entry.ftLastWriteTime;
    entry.nFileSize = S_ISREG(status.stx_mode) ? status.stx_size : 0;
    setDriveName(entry.cFileName, name);
    return true;
}

bool FolderListing::nextDots(FindData& entry) {
    constexpr const char* dots[] = {".", ".."};
    while (listedDots_ < std::size(dots)) {
        if (describe(dots[listedDots_++], DT_DIR, entry)) return true;
    }
    return false;
}

std::uint32_t FolderListing::next(FindData& entry) {
    if (!folder_.isOpen() && failure_ == 0) return noMoreFiles;
    if (failure_ == 0 && nextDots(entry)) return 0;
    while (failure_ == 0) {
        if (at_ >= size_ && !fill(failure_)) break;
        const auto& found = *reinterpret_cast<const dirent64*>(buffer_.get() + at_);
        at_ += found.d_reclen;
        if (!isDots(found.d_name) && describe(found.d_name, found.d_type, entry)) return 0;
    }
    const std::uint32_t result = failure_ == 0 ? noMoreFiles : listingCodeOf(failure_);
    folder_.reset();
    failure_ = 0;
    return result;
}

}  // namespace velmora::linuxhost
