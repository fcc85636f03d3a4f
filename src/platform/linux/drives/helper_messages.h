// What a drive's helper process is asked and what it answers: one datagram each.
#pragma once

#include <limits.h>
#include <sys/stat.h>

#include <cstddef>
#include <cstdint>

#include "platform/linux/drives/entry_counts.h"
#include "platform/linux/drives/filesystem_reading.h"

namespace velmora::linuxhost {

/// `listing` is answered by a block of entries, `endOfListing` by nothing.
enum class HelperQuestion : std::uint32_t { space, status, entries, listing, endOfListing };

/// `other` is what must never be taken for a file: a pipe, a socket, a device.
enum class FileKind { none, folder, file, other };

inline FileKind kindOf(const struct statx& status) {
    if (S_ISDIR(status.stx_mode)) return FileKind::folder;
    return S_ISREG(status.stx_mode) ? FileKind::file : FileKind::other;
}

struct HelperRequest {
    HelperQuestion question = HelperQuestion::space;
    // Of a listing: its own number, and what it begins with.
    bool isFirst = false;
    bool hasDots = false;
    char unused[2] = {};  // would be sent as they happen to be otherwise
    std::uint64_t listing = 0;
    char path[PATH_MAX] = {};  // sent up to its NUL

    static constexpr std::size_t headSize() { return offsetof(HelperRequest, path); }
};

static_assert(HelperRequest::headSize() == 16, "bytes that nobody sets would be sent");

struct HelperReply {
    int error = 0;           ///< 0 or the errno
    struct statx status {};  ///< of what a link points to
    FilesystemReading reading;
    CountedFolder counted;
};

/// The child's whole life: answers until the other end of its socket is closed. Only makes calls
/// that are safe after a fork.
void runHelper();

}  // namespace velmora::linuxhost
