// Orders to the shell to do something to files, with its questions and its recycle bin.
#pragma once

#include <cstdint>

#include "platform/shell32.h"

namespace velmora::windows {

/// The flags of an order with those added that keep the shell from removing anything that wasn't
/// named, or removing for good what was meant for the bin.
std::uint16_t flagsForShell(std::uint16_t flags);

/// 0 for success, or else the system's error code, also where the shell has one of its own. The
/// folders of all paths are held open meanwhile. 5 for a path that leads through a link, for the
/// root of a drive, and for a link to a folder; 87 for another order than removing.
std::int32_t orderFileOperation(const FileOperation& operation);

}  // namespace velmora::windows
