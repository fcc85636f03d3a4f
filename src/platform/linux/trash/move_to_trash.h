// Moving into the user's trash, by the freedesktop rules: each entry gets a name of its own in
// "files" of a trash folder, and a note about its path and the date in "info".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/date_time.h"
#include "platform/linux/entries/opened_parent.h"
#include "platform/linux/paths/path_mapping.h"

namespace velmora::linuxhost {

/// Moves the entry that `parent` names into the trash of its drive. On the drive that holds the
/// home that is the home's trash; on any other the folder that all users share in the drive's top
/// folder, or else the user's own there, made if need be. `hostPath` is the same entry's path,
/// `roots` those of all drives. 0, or the errno with the entry where it was: ENOENT when it isn't
/// there, EACCES when no trash can take it, ENOSPC for a full disk, ...
int moveToTrash(const OpenedParent& parent, const std::string& hostPath,
                const std::vector<DriveRoot>& roots);

/// The note about an entry; `path` is absolute in the home's trash, and else begins at the drive's
/// top folder.
std::string trashNote(std::string_view path, const DateTime& when);

/// The name in the trash for the n-th try, from 1: "a.txt", "a.2.txt", ..., short enough for the
/// note's ending.
std::string nameInTrash(const std::string& name, unsigned number);

}  // namespace velmora::linuxhost
