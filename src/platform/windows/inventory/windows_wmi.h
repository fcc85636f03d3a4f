// Management records of the system, by late-bound scripting objects.
#pragma once

#include "platform/wmi.h"

namespace velmora::windows {

class WindowsWmi final : public Wmi {
  public:
    std::unique_ptr<WmiServices> GetObject(const std::string& moniker) override;
    std::unique_ptr<WmiServices> ConnectServer(const std::string& server,
                                               const std::string& nameSpace) override;
};

}  // namespace velmora::windows
