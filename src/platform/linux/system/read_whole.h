// Reading from a descriptor, or a file, to the end.
#pragma once

#include <cstddef>
#include <string>

namespace velmora::linuxhost {

/// Adds what is still to be read to `content`. 0, or the errno: EFBIG when the whole has more than
/// `most` bytes.
int readWhole(int fd, std::size_t most, std::string& content);

/// The content of a file; empty where it can't be opened or read to its end, or is longer than
/// 64 MiB.
std::string contentOfFile(const std::string& path);

}  // namespace velmora::linuxhost
