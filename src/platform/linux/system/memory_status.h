// What the kernel reports of its memory, in the record of the other system.
#pragma once

#include <string>

#include "platform/kernel32.h"

namespace velmora::linuxhost {

/// The record for the text of /proc/meminfo. Memory and swap space together are the page file.
/// What the text doesn't name counts as 0.
MemoryStatus memoryStatusOf(const std::string& meminfo);

}  // namespace velmora::linuxhost
