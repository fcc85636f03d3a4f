// Small files of the desktop, which others may read at any moment.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

namespace velmora::linuxhost {

/// Makes the folder with all that is missing above it. Gives 0 or the errno.
int makeFolders(const std::string& path);

/// Puts a file with this content in place of the old one, or where there was none; its folder is
/// made if need be. A reader of the path sees the old file or the whole new one. Gives 0, or the
/// errno with the old file left as it was.
int replaceFile(const std::string& path, std::string_view content, mode_t mode);

}  // namespace velmora::linuxhost
