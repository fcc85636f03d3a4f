// Reading from a descriptor to the end.
#pragma once

#include <cstddef>
#include <string>

namespace velmora::linuxhost {

/// Adds what is still to be read to `content`. 0, or the errno: EFBIG when the whole has more than
/// `most` bytes.
int readWhole(int fd, std::size_t most, std::string& content);

}  // namespace velmora::linuxhost
