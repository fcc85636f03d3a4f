// The user's trash, by the freedesktop rules: one folder in the home and up to two on each other
// filesystem, each with what was deleted in "files" and a note about it in "info".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/entries/open_folder.h"
#include "platform/linux/paths/path_mapping.h"

namespace velmora::linuxhost {

/// A note has the name of what it is about, and this ending.
inline constexpr std::string_view noteEnding = ".trashinfo";

/// The drives that a root means: all, each once, for an empty one, else the one that the path
/// ("D:\") lies on; none when it isn't there.
std::vector<DriveRoot> drivesToEmpty(const std::string& root, const std::vector<DriveRoot>& roots);

/// Removes for good what lies in this user's trash on these drives of all the mounted ones: the
/// trash of the home belongs to the drive that holds it. No symbolic link is followed and no mount
/// entered. What can't be removed stays together with its note. 0, 5 when something may not be
/// removed, 31 when something can't for another reason.
std::int32_t emptyTrash(const std::vector<DriveRoot>& drives, const std::vector<DriveRoot>& roots);

/// The user's trash in the home, by its path without links above it. It need not be there.
std::string homeTrash();

/// A folder that all users share must have the sticky bit, or anybody may have put in it what looks
/// like this user's.
bool isSticky(const OpenFolder& folder);

}  // namespace velmora::linuxhost
