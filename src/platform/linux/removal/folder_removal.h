// Removing files and folders by their paths, so that nothing else can be removed: their parent
// folder is held open, no link is followed, and no other mount is entered.
#pragma once

#include <string>

#include "platform/linux/entries/opened_parent.h"

namespace velmora::linuxhost {

/// Removes the folder at a path of the host with all that is in it. Without `force` one in which
/// anything may not be written by its owner is left as it is. 0, or the errno: ENOENT when there is
/// no such folder, EACCES for what is read-only, EBUSY for the root of a drive, ELOOP for a link
/// in the path, that of the first thing that can't be removed, ...
int removeFolder(Volumes& volumes, const std::string& hostPath, bool force);
int removeFolder(const OpenedParent& parent, bool force);

/// Reads the status of the entry that a drive path names in its parent folder, of a link that of
/// the link itself. 0, or the errno: why the parent isn't open, ENOENT where a path that ends in a
/// separator leads to no folder, and EACCES for a pipe, a socket or a device, which is no file.
int statusToRemove(const OpenedParent& parent, const std::string& path, struct stat& status);

/// Removes a file, or a link as itself, whose status has just been read. 0, or the errno: EROFS for
/// a file that its owner may not write, EISDIR for a folder, ...
int removeFile(const OpenedParent& parent, const struct stat& status);

}  // namespace velmora::linuxhost
