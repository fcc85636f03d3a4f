// Fetches pages with libcurl.
#pragma once

#include <chrono>

#include "platform/internet_transfer.h"
#include "platform/network/web_address.h"

namespace velmora::linuxhost {

/// Proxies are those of the environment's usual variables.
class LinuxInternet final : public InternetTransfer {
  public:
    /// `limit` is the time for one page.
    explicit LinuxInternet(std::chrono::milliseconds limit = network::pageLimit) : limit_(limit) {}
    std::string OpenURL(const std::string& url) override;

  private:
    std::chrono::milliseconds limit_;
};

}  // namespace velmora::linuxhost
