#include "shell/memory_search.h"

#include <algorithm>
#include <array>
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

namespace velmora::tests {

namespace {

struct Range {
    std::uint64_t begin;
    std::uint64_t end;
};

// Larger ones are the sanitizers' notes about memory.
constexpr std::uint64_t largestRange = std::uint64_t{1} << 36;
constexpr std::uint64_t pageSize = 4096;
// In the map of pages: this one has content, in memory or swapped out.
constexpr std::uint64_t hasContent = std::uint64_t{3} << 62;

constexpr std::size_t utf8 = 1;
constexpr std::size_t utf16 = 2;
constexpr std::size_t pieceSize = 1 << 20;

std::vector<Range> writableRanges() {
    std::vector<Range> ranges;
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        Range range{};
        char rights[5] = {};
        const bool known = std::sscanf(line.c_str(), "%" SCNx64 "-%" SCNx64 " %4s", &range.begin,
                                       &range.end, rights) == 3;
        if (known && rights[0] == 'r' && rights[1] == 'w') ranges.push_back(range);
    }
    return ranges;
}

// A file of the system, read without a buffer. A buffer would be one more copy of the memory's
// content, and the map of pages can only be read in whole entries.
class SystemFile {
  public:
    explicit SystemFile(const char* path) {
        file_.rdbuf()->pubsetbuf(nullptr, 0);
        file_.open(path, std::ios::binary);
    }
    std::size_t read(std::uint64_t at, void* to, std::uint64_t size) {
        file_.clear();
        file_.seekg(static_cast<std::streamoff>(at));
        file_.read(static_cast<char*>(to), static_cast<std::streamsize>(size));
        return static_cast<std::size_t>(file_.gcount());
    }

  private:
    std::ifstream file_;
};

// The runs of pages in a range that were ever used; most of a sanitizer's memory wasn't.
std::vector<Range> touchedPartsOf(const Range& range, SystemFile& pages) {
    std::vector<std::uint64_t> entries((range.end - range.begin) / pageSize);
    pages.read(range.begin / pageSize * sizeof entries[0], entries.data(),
               entries.size() * sizeof entries[0]);
    std::vector<Range> parts;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if ((entries[i] & hasContent) == 0) continue;
        const std::uint64_t at = range.begin + i * pageSize;
        if (parts.empty() || parts.back().end != at) parts.push_back({at, at});
        parts.back().end = at + pageSize;
    }
    return parts;
}

std::vector<Range> memoryWithContent() {
    SystemFile pages("/proc/self/pagemap");
    std::vector<Range> all;
    for (const Range& range : writableRanges()) {
        if (range.end - range.begin >= largestRange) continue;
        const auto parts = touchedPartsOf(range, pages);
        all.insert(all.end(), parts.begin(), parts.end());
    }
    return all;
}

}  // namespace

bool MemorySearch::possible() {
    // A Windows program under Wine can open these files, but they show more than its own memory.
    if (std::filesystem::path::preferred_separator != '/') return false;
    return std::ifstream("/proc/self/mem").good() && std::ifstream("/proc/self/pagemap").good();
}

bool MemorySearch::standsAt(const unsigned char* bytes, std::size_t stride) const {
    for (std::size_t i = 0; i < needle_.size(); ++i) {
        if ((bytes[i * stride] ^ mask) != needle_[i]) return false;
        if (stride == utf16 && bytes[i * stride + 1] != 0) return false;
    }
    return true;
}

// Counts those that begin in the first `starts` bytes.
std::size_t MemorySearch::countIn(const unsigned char* bytes, std::size_t size, std::size_t starts,
                                  std::size_t stride) const {
    const std::size_t length = needle_.size() * stride;
    const int first = needle_.front() ^ mask;
    std::size_t found = 0;
    for (std::size_t at = 0; at < starts && at + length <= size; ++at) {
        const void* next = std::memchr(bytes + at, first, std::min(starts, size) - at);
        if (next == nullptr) break;
        at = static_cast<std::size_t>(static_cast<const unsigned char*>(next) - bytes);
        if (at + length <= size) found += standsAt(bytes + at, stride);
    }
    return found;
}

std::size_t MemorySearch::count() const {
    SystemFile memory("/proc/self/mem");
    // Not on the heap, where a password is: a read of both would copy it into the piece and then
    // count the copy too.
    static std::array<unsigned char, pieceSize> piece;
    const std::size_t step = pieceSize - needle_.size() * utf16;
    std::size_t found = 0;
    for (const Range& range : memoryWithContent()) {
        for (std::uint64_t at = range.begin; at < range.end; at += step) {
            const auto size = std::min<std::uint64_t>(pieceSize, range.end - at);
            const std::size_t read = memory.read(at, piece.data(), size);
            for (const std::size_t stride : {utf8, utf16})
                found += countIn(piece.data(), read, step, stride);
            // The bytes that were read are in memory too.
            std::fill(piece.begin(), piece.end(), static_cast<unsigned char>(0));
        }
    }
    return found;
}

}  // namespace velmora::tests
