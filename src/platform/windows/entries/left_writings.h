// Files that take a new content beside the old one, and what an ended process has left of them.
#pragma once

#include <string>
#include <string_view>

namespace velmora::windows {

/// The name under which this process writes what is to be put in place of `name`.
std::string ownBesideName(std::string_view name);

/// Removes such files of processes that run no more from the folder at a path in the system's form:
/// those of `name`, or all of them where it is empty. What can't be listed or removed stays.
void removeLeftWritings(const std::wstring& path, std::string_view name);

}  // namespace velmora::windows
