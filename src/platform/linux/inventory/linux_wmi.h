// Management records of the host. Each connection has a process of its own that reads them, so that
// a source that doesn't answer keeps only that process waiting.
#pragma once

#include <utility>

#include "platform/linux/inventory/record_reader.h"
#include "platform/wmi.h"

namespace velmora::linuxhost {

class LinuxWmi final : public Wmi {
  public:
    /// Reads from these places. Sources make progress within the deadline, or are given up.
    explicit LinuxWmi(HostSources host = {}, std::chrono::milliseconds deadline = recordDeadline)
        : host_(std::move(host)), deadline_(deadline) {}

    std::unique_ptr<WmiServices> GetObject(const std::string& moniker) override;
    std::unique_ptr<WmiServices> ConnectServer(const std::string& server,
                                               const std::string& nameSpace) override;

  private:
    HostSources host_;
    std::chrono::milliseconds deadline_;
};

}  // namespace velmora::linuxhost
