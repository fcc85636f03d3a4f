// Dial-up connections: here the calls are just that.
#pragma once

#include "platform/rasapi32.h"
#include "platform/windows/system/system_library.h"

namespace velmora::windows {

/// The system's library is loaded at run time: without it the program still starts, and every call
/// gives 1753, as where its service isn't there.
class WindowsRasapi32 final : public Rasapi32 {
  public:
    /// The system's own records of that version have a wider handle in a 64-bit program, so the
    /// sizes that callers know are translated.
    std::uint32_t RasEnumConnectionsA(RasConnections& connections, std::uint32_t& size,
                                      std::uint32_t& count) override;
    std::uint32_t RasGetConnectStatusA(std::uint64_t connection, RasConnStatus& status) override;

  private:
    SystemLibrary library_{L"rasapi32.dll"};
};

}  // namespace velmora::windows
