// System calls under their own names: here they are just that.
#pragma once

#include <cstdint>
#include <string>

#include "platform/kernel32.h"

namespace velmora::windows {

class WindowsKernel32 final : public Kernel32 {
  public:
    std::uint32_t GetLogicalDriveStringsA(std::uint32_t length, std::string& buffer) override;
    std::string GetWindowsDirectoryA() override;
    std::string GetEnvironmentVariableA(const std::string& name) override;
};

}  // namespace velmora::windows
