// How much lies in one folder. Plain data, since it also travels between processes.
#pragma once

#include <cstdint>

namespace velmora::linuxhost {

struct EntryCounts {
    std::uint64_t files = 0;    ///< without pipes, sockets and devices
    std::uint64_t folders = 0;  ///< without "." and ".."
};

/// Counts the entries of the folder at `path`, hidden ones included. A link counts as what it
/// points to, one that leads nowhere as a file. Gives 0 or the errno. Safe in a forked child.
int countEntries(const char* path, EntryCounts& counts);

/// Opens the folder at `path` and reads the first of its names. Gives 0 or the errno. Safe in a
/// forked child.
int beginListing(const char* path);

}  // namespace velmora::linuxhost
