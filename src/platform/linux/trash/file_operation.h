// The shell's removal of files and folders, into the trash or for good.
#pragma once

#include <cstdint>

#include "platform/linux/drives/volumes.h"
#include "platform/shell32.h"

namespace velmora::linuxhost {

/// Removes the listed paths up to the first failure. With `allowUndo` they are moved to the trash
/// and never removed for good, so that nothing is lost where there is no trash. 0, 2 for a path
/// that isn't there, 87 for any operation but removing, 112 for a disk without room for the trash's
/// note, 5 for any other failure.
std::int32_t removeByShell(Volumes& volumes, const FileOperation& operation);

}  // namespace velmora::linuxhost
