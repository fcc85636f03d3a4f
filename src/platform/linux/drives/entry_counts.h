// How much lies in one folder. Plain data, since it also travels between processes.
#pragma once

#include <cstdint>

#include "platform/linux/drives/folder_mark.h"
#include "platform/linux/drives/link_notes.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

struct EntryCounts {
    std::uint64_t files = 0;    ///< without pipes, sockets and devices
    std::uint64_t folders = 0;  ///< without "." and ".."
};

struct CountedFolder {
    EntryCounts counts;
    /// Whether the counts stand as long as the mark does and each link leads to its kind. The mark
    /// has to be settled as well.
    bool standsWithMark = false;
    FolderMark mark;
    LinkNotes links;
};

/// Counts the entries of the folder at `path`, hidden ones included. A link counts as what it
/// points to, one that leads nowhere as a file. Gives 0 or the errno. Safe in a forked child.
int countEntries(const char* path, CountedFolder& counted);

/// Opens the folder at `path` for reading its entries; closed with the errno where it can't be.
/// Safe in a forked child.
UniqueFd openFolder(const char* path);

}  // namespace velmora::linuxhost
