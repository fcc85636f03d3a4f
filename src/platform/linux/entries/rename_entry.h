// Renaming between two open folders where nothing may be replaced.
#pragma once

#include <string>

namespace velmora::linuxhost {

/// Gives an entry of the one folder a name in the other. 0, or the errno with everything as it was:
/// EEXIST when something has that name already, EXDEV for another filesystem.
int renameInto(int fromFolder, const std::string& from, int toFolder, const std::string& to);

/// Gives a file of this process another name in its folder, likewise. A kill in the middle can
/// leave both names, each of the whole file, and on filesystems without links an empty file at the
/// new one.
int renameOwnFile(int folder, const std::string& from, const std::string& to);

/// The first one's way on filesystems that only rename over what is there: an empty entry of its
/// own holds the name until then, and a kill in the middle leaves it.
int renameOverOwnEntry(int fromFolder, const std::string& from, int toFolder,
                       const std::string& to);

}  // namespace velmora::linuxhost
