// Writing to a descriptor until all is written.
#pragma once

#include <string_view>

namespace velmora::linuxhost {

/// Writes the bytes and removes those that were written from the front of `bytes`, so that the rest
/// is known after a failure. 0, or the errno.
int writeAll(int fd, std::string_view& bytes);

}  // namespace velmora::linuxhost
