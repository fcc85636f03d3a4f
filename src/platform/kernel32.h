// System calls that the program knows under their own names.
#pragma once

#include <cstdint>
#include <string>

namespace velmora {

class Kernel32 {
  public:
    virtual ~Kernel32() = default;

    /// Writes the root of every logical drive ("C:\"), each closed by a NUL, one more NUL at the
    /// end, over the front of `buffer`. Returns the used length without that last NUL; when it is
    /// not below `length`, nothing was written and the result is the length that is needed.
    virtual std::uint32_t GetLogicalDriveStringsA(std::uint32_t length, std::string& buffer) = 0;

    /// Drive path of the system's own folder, without a back-slash behind; on Linux the folder of
    /// the desktop's sounds, since sounds are what it is asked for.
    virtual std::string GetWindowsDirectoryA() = 0;

    /// The text of an environment variable; empty when it isn't set. Names have no case on Windows.
    virtual std::string GetEnvironmentVariableA(const std::string& name) = 0;
};

}  // namespace velmora
