// The shell's removal of files and folders, into the trash or for good.
#pragma once

#include <cstdint>

#include "platform/linux/drives/volumes.h"
#include "platform/shell32.h"

namespace velmora::linuxhost {

/// Goes through the listed paths up to the first failure. With `allowUndo` into the trash and
/// nowhere else, so that nothing is lost where there is no trash. 0, 2 for a path that isn't there,
/// 87 for what is no removal, 112 for a disk that has no room for the trash's note, 5 for whatever
/// else keeps it.
std::int32_t removeByShell(Volumes& volumes, const FileOperation& operation);

}  // namespace velmora::linuxhost
