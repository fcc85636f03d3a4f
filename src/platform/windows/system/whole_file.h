// Open files read and written as a whole. Results are the system's error codes, 0 for success.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace velmora::windows {

/// Writes the bytes and removes those that were written from the front of `bytes`, so that the rest
/// is known after a failure.
DWORD writeAll(HANDLE file, std::string_view& bytes);

/// Adds what is still to be read to `content`; ERROR_FILE_TOO_LARGE when the whole has more than
/// `most` bytes.
DWORD readWhole(HANDLE file, std::size_t most, std::string& content);

}  // namespace velmora::windows
