// Which folder an opened one is, and when something in it last changed.
#pragma once

#include <cstdint>

namespace velmora::linuxhost {

/// Equal marks of settled folders: the same folder with the same entries. Plain data, since it also
/// travels between processes.
struct FolderMark {
    std::uint64_t mount = 0;  ///< id of the mount that it was reached in
    std::uint64_t inode = 0;
    std::uint32_t major = 0;  ///< of its filesystem's device
    std::uint32_t minor = 0;
    /// Nanoseconds since 1970. Nobody can set the time of the change to one of the past, as anybody
    /// can that of the writing.
    std::int64_t changed = 0;
    std::int64_t written = 0;

    bool operator==(const FolderMark& other) const = default;
};

/// Reads the mark of an opened folder, without asking a device or a server. Whether all of it is
/// known. Safe in a forked child.
bool readMark(int folder, FolderMark& mark);

/// Whether the folder's filesystem lies on this machine, dates every change of an entry in the
/// folder, and has no other machine that writes to it. Asks the filesystem. Safe in a forked child.
bool datesEveryChange(int folder);

/// Now, by the clock that the kernel dates changes by, in nanoseconds since 1970.
std::int64_t changeClock();

/// Whether a further change would show: it can't be dated as the last one any more. `asked` is a
/// moment before the mark was read. Never on filesystems that keep whole seconds.
bool isSettled(const FolderMark& mark, std::int64_t asked);

}  // namespace velmora::linuxhost
