// Dial-up connections. No list of them exists here: what counts is a point-to-point interface.
#pragma once

#include <string>

#include "platform/rasapi32.h"

namespace velmora::linuxhost {

/// A connection's handle is the number of its interface.
class LinuxRasapi32 final : public Rasapi32 {
  public:
    /// `interfaces` is the folder in which the kernel describes its interfaces.
    explicit LinuxRasapi32(std::string interfaces = "/sys/class/net")
        : interfaces_(std::move(interfaces)) {}

    /// Those whose names begin with "ppp" and that are up. 632 for a record of another size, 603
    /// when the array is too small; then `size` is what is needed.
    std::uint32_t RasEnumConnectionsA(RasConnections& connections, std::uint32_t& size,
                                      std::uint32_t& count) override;
    /// 6 for what is no connection any more.
    std::uint32_t RasGetConnectStatusA(std::uint64_t connection, RasConnStatus& status) override;

  private:
    std::string interfaces_;
};

}  // namespace velmora::linuxhost
