// The mount table of the kernel and whether it has changed.
#pragma once

#include <chrono>
#include <string>

#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

class MountWatch {
  public:
    MountWatch();

    /// Whether anything was mounted or unmounted since this was last asked.
    bool hasChanged();
    /// The same at next to no cost: looks at most every 50 ms.
    bool hasChangedLately();

    /// The text of the table; empty where the kernel shows none.
    std::string read() const;

  private:
    UniqueFd file_;
    std::chrono::nanoseconds lastLook_{0};
};

}  // namespace velmora::linuxhost
