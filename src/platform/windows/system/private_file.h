// Files that are for the program's user alone.
#pragma once

#include <string>
#include <string_view>

namespace velmora::windows {

/// Writes the whole content of a file, which is made anew, so that nobody but the user and the
/// system gets at it. It is on the disk when this returns. False on any failure; a part of the
/// content can be there then. `path` is in the form for system calls.
bool writePrivateFile(const std::wstring& path, std::string_view content);

}  // namespace velmora::windows
