// Looking at all that lies below a folder: no symbolic link is followed, no other mount is entered,
// and however deep the folders go, few of them are open at once.
#pragma once

#include <functional>

#include "platform/linux/removal/tree_removal.h"

namespace velmora::linuxhost {

/// Hears of an entry, a link as itself. False ends the walk.
using Seen = std::function<bool(const struct statx& status)>;

/// Goes through all entries below the folder. 0 also when `seen` ended it, or the errno when
/// something can't be read; ESTALE when folders were moved meanwhile.
int walkTree(const OpenFolder& top, const Seen& seen);

}  // namespace velmora::linuxhost
