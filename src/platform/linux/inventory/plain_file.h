// Small files as a whole, and the names in folders.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmora::linuxhost {

struct PlainFile {
    std::string content;
    uid_t owner = 0;
    std::int64_t modified = 0;  ///< microseconds since 1970
};

/// Nothing for what can't be read, is no plain file or has more than 4 MB.
std::optional<PlainFile> readPlainFile(const std::string& path);

/// The names of the entries in the order of their bytes; none when the folder can't be read.
std::vector<std::string> namesInFolder(const std::string& path);

}  // namespace velmora::linuxhost
