// A path that the user adds to a list of watched rows.
#pragma once

#include <string>

#include "controls/list_view.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

/// Adds a row for the path at the end, with the free space and total size of its drive. Says in a
/// box that there is no such drive or folder, and gives false; the row stays. Error 438 for a
/// folder whose drive doesn't exist.
bool addWatchedPath(ListView& list, const std::string& path, Platform& platform, Host& host);

}  // namespace velmora
