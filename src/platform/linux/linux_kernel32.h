// System calls of the other system's kernel, answered from this host's drives.
#pragma once

#include <cstdint>
#include <string>

#include "platform/kernel32.h"
#include "platform/linux/volumes.h"

namespace velmora::linuxhost {

class LinuxKernel32 final : public Kernel32 {
  public:
    explicit LinuxKernel32(Volumes& volumes) : volumes_(volumes) {}
    std::uint32_t GetLogicalDriveStringsA(std::uint32_t length, std::string& buffer) override;
    std::string GetWindowsDirectoryA() override;
    /// Of this host's environment, where names have a case.
    std::string GetEnvironmentVariableA(const std::string& name) override;

  private:
    Volumes& volumes_;
};

}  // namespace velmora::linuxhost
