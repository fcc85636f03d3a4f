#include "persist/compression.h"

#include <zlib.h>

#include "base/convert.h"
#include "base/resume_next.h"
#include "base/runtime_error.h"

namespace velmora {

int Compression::CompressByteArray(Bytes& bytes, std::int16_t level) {
    OriginalSize = toLong(static_cast<double>(bytes.size()));
    // The room that zlib may need, and one more: the number is an upper bound, counted from 0.
    Bytes buffer(static_cast<std::size_t>(toLong(OriginalSize + 0.01 * OriginalSize + 12)) + 1);
    auto size = static_cast<uLongf>(buffer.size() - 1);
    const int code =
        compress2(buffer.data(), &size, bytes.data(), static_cast<uLong>(bytes.size()), level);
    buffer.resize(code == Z_OK ? size : 0);
    bytes = std::move(buffer);
    CompressedSize = toLong(static_cast<double>(bytes.size()));
    return code;
}

int Compression::CompressFile(const std::string& source, const std::string& target,
                              std::int16_t& level) {
    level = 9;
    const std::string content = files_.readAll(source);
    if (content.empty()) throw RuntimeError(error::subscriptOutOfRange);
    Bytes bytes(content.begin(), content.end());
    const int code = CompressByteArray(bytes, level);

    resumeNext([&] { files_.remove(target); });
    const auto size = static_cast<std::uint32_t>(OriginalSize);
    std::string packed;
    packed.reserve(bytes.size() + 4);
    for (int shift = 0; shift < 32; shift += 8) packed += static_cast<char>(size >> shift & 0xFF);
    packed.append(bytes.begin(), bytes.end());
    files_.writeOver(target, packed);
    return code;
}

}  // namespace velmora
