// Files that take a new content beside the old one, and what an ended process has left of them.
#pragma once

#include <string>
#include <string_view>

namespace velmora::windows {

/// The name under which this process writes what is to be put in place of `name`.
std::string ownBesideName(std::string_view name);

/// Removes such files of `name` from the folder at a path in the system's form, those of processes
/// that run no more. Links, and what can't be listed or removed, stay.
void removeLeftWritings(const std::wstring& path, std::string_view name);

}  // namespace velmora::windows
