// Fetches pages with the system's own library, so with the user's proxy.
#pragma once

#include "platform/internet_transfer.h"

namespace velmora::windows {

/// A fetch that takes too long is given up: its thread ends by itself, and nobody waits for it.
class WindowsInternet final : public InternetTransfer {
  public:
    std::string OpenURL(const std::string& url) override;
};

}  // namespace velmora::windows
