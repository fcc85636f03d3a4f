// Moving a file or folder, to another filesystem too, so that nothing is lost on the way: after any
// failure everything is where it was.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/linux/drives/volumes.h"

namespace velmora::linuxhost {

/// The last steps of a move to another filesystem, each giving 0 or the errno.
struct MoveSteps {
    /// The copy is in its place; called before the source is compared for the last time.
    std::function<int()> whenCopied = [] { return 0; };
    /// Brings the names in a folder to the disk.
    std::function<int(int folder)> sync;
    /// Removes the source.
    std::function<int(int folder, const std::string& name)> remove;

    MoveSteps();
};

/// Moves by paths of the host. 0, or the system's code: 2 and 3 for what is missing, 5 denied, 17
/// for a folder that would have to go to another filesystem, 32 for a file that changed while it
/// was copied there or that a program holds open for writing, 112 for a full disk, 183 when
/// something lies at the new path, ...
std::uint32_t moveFile(Volumes& volumes, const std::string& from, const std::string& to,
                       const MoveSteps& steps = MoveSteps());

}  // namespace velmora::linuxhost
