// Files that take a new content beside the old one, and what a killed process has left of them.
#pragma once

#include <string>
#include <string_view>

namespace velmora::linuxhost {

/// The name under which this process writes what is to be put in place of `name`.
std::string ownBesideName(std::string_view name);

/// Removes such files of processes that live no more from a folder: those of `name`, or all of them
/// where it is empty. What can't be listed or removed stays.
void removeLeftWritings(int folder, std::string_view name);

}  // namespace velmora::linuxhost
