// Removing files and folders of this machine. Every step goes by an opened folder, never by a path
// that somebody else could change meanwhile, and never through a link.
#pragma once

#include <string>

namespace velmora::windows {

/// Removes a file, a link to one as the link. Error 53 when there is none, 75 when it is read-only
/// or no file, 70 when it is in use, may not be removed, or is reached by a link.
void removeFile(const std::string& path);

/// Removes a folder with all that is in it; links in it as links. Error 76 when there is none, 70
/// when something can't be removed, it is a link or reached by one, or is the root of a drive. What
/// can be known before (something read-only without `force`, another drive mounted in it) is found
/// before anything is removed.
void removeTree(const std::string& path, bool force);

}  // namespace velmora::windows
