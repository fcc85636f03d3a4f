// Reports on the machine for the mail. A source that doesn't answer leaves its report's frame.
#pragma once

#include <cstdint>
#include <string>

namespace velmora {

class Inventory {
  public:
    /// The last events of the system's log.
    std::string prcWMI_NTEvt(std::int16_t count);
    std::string prcWMI_RamInfo();
    std::string prcWMI_LogOnUser();
    std::string prcProcessText();
    std::string prcWMI_NetStat();
};

}  // namespace velmora
