// Moving a file or folder, to another filesystem too, so that nothing is lost on the way: whatever
// fails leaves everything where it was.
#pragma once

#include <cstdint>
#include <string>

#include "platform/linux/volumes.h"

namespace velmora::linuxhost {

/// Moves by paths of the host. 0, or the system's code: 2 and 3 for what is missing, 5 denied, 17
/// for a folder that would have to go to another filesystem, 32 for a file that changed while it
/// was copied, 112 for a full disk, 183 when something lies at the new path, ...
std::uint32_t moveFile(Volumes& volumes, const std::string& from, const std::string& to);

}  // namespace velmora::linuxhost
