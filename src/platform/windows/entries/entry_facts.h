// What the system knows about a file or folder at a path.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "base/date_time.h"

namespace velmora::windows {

struct EntryFacts {
    DWORD attributes = 0;
    std::uint64_t created = 0;  ///< times in units of 100 ns since 1601-01-01 UTC
    std::uint64_t accessed = 0;
    std::uint64_t written = 0;
    std::uint64_t size = 0;  ///< bytes
};

enum class PathKind { none, folder, file };
/// By the attributes that GetFileAttributesW gives; none when it gives none.
PathKind kindOf(DWORD attributes);

/// Of what a link points to, like opening it. For a file that can't be opened, what its folder
/// lists. The system's error code, 0 for success.
DWORD readFacts(const std::wstring& path, EntryFacts& facts);

/// Such a time as the local one of its day; "no date" for none.
DateTime localTime(std::uint64_t time);

}  // namespace velmora::windows
