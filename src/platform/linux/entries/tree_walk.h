// Looking at all that lies below a folder: no symbolic link is followed, no other mount is entered,
// and however deep the folders go, few of them are open at once.
#pragma once

#include <functional>

#include "platform/linux/entries/open_folder.h"

namespace velmora::linuxhost {

/// Called for each entry, for a link with the status of the link itself. False ends the walk.
using EntryVisitor = std::function<bool(const struct statx& status)>;

/// Which entries are visited. Where it is files alone, a folder costs little more than its listing.
enum class Visited { everything, files };

/// Visits the entries below the folder. 0 also when `visit` ended it, or the errno when something
/// can't be read; ESTALE when folders were moved meanwhile.
int walkTree(const OpenFolder& top, const EntryVisitor& visit, Visited which = Visited::everything);

}  // namespace velmora::linuxhost
