// Dial-up connections.
#pragma once

#include <array>
#include <cstdint>

namespace velmora {

/// Sizes of the records in bytes, and codes of the calls.
namespace ras {
inline constexpr std::uint32_t connectionRecord = 412;
inline constexpr std::uint32_t statusRecord = 160;
inline constexpr std::uint32_t connected = 8192;
inline constexpr std::uint32_t bufferTooSmall = 603;
inline constexpr std::uint32_t invalidSize = 632;
}  // namespace ras

/// One connection as the system lists it.
struct RasConn {
    std::uint32_t dwSize = 0;  ///< 412 in the first record of the array
    std::uint64_t hRasConn = 0;
};

struct RasConnStatus {
    std::uint32_t dwSize = 0;  ///< 160
    std::uint32_t rasconnstate = 0;
};

using RasConnections = std::array<RasConn, 256>;

class Rasapi32 {
  public:
    virtual ~Rasapi32() = default;
    /// Fills the records of the connections there are. `size` is that of the array in bytes,
    /// `count` becomes their number. 0 for success, else a code of the system.
    virtual std::uint32_t RasEnumConnectionsA(RasConnections& connections, std::uint32_t& size,
                                              std::uint32_t& count) = 0;
    /// The state of a connection; 8192 is connected. 0 for success; otherwise the status stays as
    /// it is.
    virtual std::uint32_t RasGetConnectStatusA(std::uint64_t connection, RasConnStatus& status) = 0;
};

}  // namespace velmora
