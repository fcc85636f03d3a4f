// A write that the end of the program doesn't interrupt.
#pragma once

#include <cstddef>
#include <string_view>

namespace velmora::linuxhost {

/// Writes `bytes` to the open regular file `file`, cuts it behind the first `size` of them and
/// brings it to the disk, in a process of its own: a program that is killed in the middle of a
/// write of several pages leaves the pages behind it as they were. Where no process can be had, it
/// is done in this one. 0, or the errno of the first failure; then the file ends behind what was
/// written.
int writeApart(int file, std::string_view bytes, std::size_t size);

}  // namespace velmora::linuxhost
