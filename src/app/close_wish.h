// The wish of another program, as an installer that is about to replace files, that this one
// closes. It isn't the end yet: the window asks its user first.
#pragma once

namespace velmora {

/// From now on others can wish it, those of the same user and administrators. False on systems
/// whose installers don't ask.
bool openToCloseWishes();

/// Whether one has come since the last call.
bool takeCloseWish();

}  // namespace velmora
