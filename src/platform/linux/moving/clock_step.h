// The steps in which filesystems date changes.
#pragma once

#include <time.h>

namespace velmora::linuxhost {

/// Waits until another change of a file that was last changed at that time gets a later one: some
/// milliseconds at most, or two seconds on filesystems that keep whole seconds. A time ahead of
/// this host's clock isn't waited for.
void waitForNextStep(const timespec& changed);

}  // namespace velmora::linuxhost
