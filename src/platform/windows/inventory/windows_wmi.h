// Management records of the system, by its scripting objects.
#pragma once

#include <chrono>

#include "platform/windows/inventory/wmi_source.h"
#include "platform/wmi.h"

// The system's headers define it as a macro, and may have come after the one above.
#undef GetObject

namespace velmora::windows {

/// How long a source may keep a request waiting.
inline constexpr std::chrono::seconds wmiDeadline{2};

class WindowsWmi final : public Wmi {
  public:
    explicit WindowsWmi(WmiSource source = systemWmi(),
                        std::chrono::milliseconds deadline = wmiDeadline);

    std::unique_ptr<WmiServices> GetObject(const std::string& moniker) override;
    std::unique_ptr<WmiServices> ConnectServer(const std::string& server,
                                               const std::string& nameSpace) override;

  private:
    WmiSource source_;
    std::chrono::milliseconds deadline_;
};

}  // namespace velmora::windows
