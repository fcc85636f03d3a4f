// Packing a file: its size in four bytes, little-endian, followed by one zlib stream. Nothing here
// unpacks it. It is no zip archive, even if its name says so.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/text_files.h"

namespace velmora {

using Bytes = std::vector<std::uint8_t>;

class Compression {
  public:
    explicit Compression(TextFiles& files) : files_(files) {}

    /// Sizes of the last call, in bytes.
    std::int32_t OriginalSize = 0;
    std::int32_t CompressedSize = 0;

    /// Replaces `bytes` by what zlib makes of them at `level` (0 to 9) and returns zlib's code; 0
    /// for success. A failure leaves no bytes. Error 6 for more than 2 GB.
    int CompressByteArray(Bytes& bytes, std::int16_t level);

    /// Packs `source` into `target`, replacing it; `level` becomes 9. Returns zlib's code, and
    /// writes the target with any code. Error 53 for a missing source, 9 for an empty one; the
    /// target is untouched then.
    int CompressFile(const std::string& source, const std::string& target, std::int16_t& level);

  private:
    TextFiles& files_;
};

}  // namespace velmora
