// Fetches pages with libcurl.
#pragma once

#include "platform/internet_transfer.h"

namespace velmora::linuxhost {

/// Proxies are those of the environment's usual variables.
class LinuxInternet final : public InternetTransfer {
  public:
    std::string OpenURL(const std::string& url) override;
};

}  // namespace velmora::linuxhost
