// The result of one statfs call. Plain data, since it also travels between processes.
#pragma once

#include <cstdint>

namespace velmora::linuxhost {

struct FilesystemReading {
    std::uint64_t fragmentSize = 0;     ///< bytes in each of the blocks below
    std::uint64_t blocks = 0;           ///< in all
    std::uint64_t availableBlocks = 0;  ///< that a user without privileges can still fill
    std::uint64_t type = 0;
    std::uint64_t id = 0;

    double freeBytes() const {
        return static_cast<double>(availableBlocks) * static_cast<double>(fragmentSize);
    }
    double totalBytes() const {
        return static_cast<double>(blocks) * static_cast<double>(fragmentSize);
    }
    /// Whether both readings are of one filesystem, as far as its identity shows.
    bool isSameFilesystem(const FilesystemReading& other) const {
        return type == other.type && id == other.id;
    }
};

/// Reads the filesystem that `path` lies in. Gives 0 or the errno. Safe in a forked child.
int readFilesystem(const char* path, FilesystemReading& reading);

}  // namespace velmora::linuxhost
