// A folder that belongs to its user alone.
#pragma once

#include <string>

#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

/// Opens the folder, after nobody but the user may look into it any more. The last name of the path
/// may be no link. 0, or the errno: EPERM for a folder of another user, and where the filesystem
/// keeps no permissions.
int openPrivateFolder(const std::string& path, UniqueFd& folder);

/// The same, and makes the folder with all that is missing above it first, private as well. Nothing
/// is made in a folder of another user (EPERM): run with the rights of root, the program would take
/// folders away from the user whose home it was given.
int makePrivateFolder(const std::string& path, UniqueFd& folder);

}  // namespace velmora::linuxhost
