// Renaming between two open folders where nothing may be replaced.
#pragma once

#include <string>

namespace velmora::linuxhost {

/// Gives an entry of the one folder a name in the other. 0, or the errno with everything as it was:
/// EEXIST when something has that name already, EXDEV for another filesystem.
int renameInto(int fromFolder, const std::string& from, int toFolder, const std::string& to);

/// The same on filesystems that only rename over what is there: an empty entry of its own holds
/// the name until then.
int renameOverOwnEntry(int fromFolder, const std::string& from, int toFolder,
                       const std::string& to);

}  // namespace velmora::linuxhost
