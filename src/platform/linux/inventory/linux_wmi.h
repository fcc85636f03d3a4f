// Management records of the host. Each connection has a process of its own that reads them, so that
// a source that doesn't answer keeps only that process waiting.
#pragma once

#include "platform/linux/inventory/host_sources.h"
#include "platform/wmi.h"

namespace velmora::linuxhost {

class LinuxWmi final : public Wmi {
  public:
    explicit LinuxWmi(HostSources host = {}) : host_(std::move(host)) {}

    std::unique_ptr<WmiServices> GetObject(const std::string& moniker) override;
    std::unique_ptr<WmiServices> ConnectServer(const std::string& server,
                                               const std::string& nameSpace) override;

  private:
    HostSources host_;
};

}  // namespace velmora::linuxhost
