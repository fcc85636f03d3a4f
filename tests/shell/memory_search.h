// Looks for a text in the memory of this process. The text is stored in a disguised form, byte by
// byte, so that the search doesn't find itself.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace velmora::tests {

class MemorySearch {
  public:
    /// The bytes to look for, each already disguised by `disguised`.
    explicit MemorySearch(std::vector<unsigned char> needle) : needle_(std::move(needle)) {}

    static constexpr unsigned char mask = 0xA5;
    static constexpr unsigned char disguised(char byte) {
        return static_cast<unsigned char>(static_cast<unsigned char>(byte) ^ mask);
    }

    /// Whether this system lets a process read all of its memory by a file.
    static bool possible();
    /// How often the text occurs, in UTF-8 or in UTF-16LE, in the memory that the process can
    /// write.
    std::size_t count() const;

  private:
    std::size_t countIn(const unsigned char* bytes, std::size_t size, std::size_t starts,
                        std::size_t stride) const;
    bool standsAt(const unsigned char* bytes, std::size_t stride) const;

    std::vector<unsigned char> needle_;
};

}  // namespace velmora::tests
