// Moving into the user's trash, by the freedesktop rules: what goes lies in "files" of a trash
// folder under a name of its own, with a note about its path and the date in "info".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/date_time.h"
#include "platform/linux/entries/opened_parent.h"
#include "platform/linux/paths/path_mapping.h"

namespace velmora::linuxhost {

/// Moves what lies at the parent's name into the trash of its drive: that of the home on the drive
/// which holds it, else the folder in the drive's top folder which all users share, else the
/// user's own there, made if need be. `hostPath` is the same entry's path, `roots` those of all
/// drives. 0, or the errno with the entry where it was: ENOENT when it isn't there, EACCES when no
/// trash can take it, ENOSPC for a full disk, ...
int moveToTrash(const OpenedParent& parent, const std::string& hostPath,
                const std::vector<DriveRoot>& roots);

/// The note about an entry; `path` is absolute in the home's trash, and else begins at the drive's
/// top folder.
std::string trashNote(std::string_view path, const DateTime& when);

/// The name in the trash for the n-th try, from 1: "a.txt", "a.2.txt", ..., short enough for the
/// note's ending.
std::string nameInTrash(const std::string& name, unsigned number);

}  // namespace velmora::linuxhost
