// A whole copy of a file or a link in another folder, as moving to another filesystem needs it.
#pragma once

#include <sys/stat.h>

#include <string>

namespace velmora::linuxhost {

/// Copies an entry of the one folder under a name that the other doesn't have yet: a file with its
/// content, times, mode, owner and attributes as far as the filesystem keeps them, on the disk when
/// this returns; a link as the link that it is. `copied` tells what was copied. 0, or the errno
/// with nothing left behind: EXDEV for whatever is neither, EBUSY for a file that changed meanwhile.
int copyEntry(int fromFolder, const std::string& from, int toFolder, const std::string& to,
              struct stat& copied);

}  // namespace velmora::linuxhost
