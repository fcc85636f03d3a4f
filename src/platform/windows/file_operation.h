// Orders to the shell to do something to files, with its questions and its recycle bin.
#pragma once

#include <cstdint>

#include "platform/shell32.h"

namespace velmora::windows {

/// 0 for success, or else the system's error code, also where the shell has one of its own.
std::int32_t orderFileOperation(const FileOperation& operation);

}  // namespace velmora::windows
