#include "notify/inventory.h"

#include "base/convert.h"
#include "notify/report_text.h"

namespace velmora {

std::string Inventory::prcWMI_NTEvt(std::int16_t count) {
    return "Last " + toText(std::int64_t{count}) + " events:" + endLine() + report::rule +
           endLine();
}

std::string Inventory::prcWMI_RamInfo() {
    return "Random Access Memory Info:" + endLine() + report::rule + endLine() + report::rule;
}

std::string Inventory::prcWMI_LogOnUser() {
    return endLine() + "# of users logged on: 0" + endLine() + report::rule + endLine();
}

// The rule below the heading has one sign more than the usual one, the closing one two.
std::string Inventory::prcProcessText() {
    return "Currently Running Processes: 1" + endLine() + report::rule + "=" + endLine() +
           report::rule + "==";
}

std::string Inventory::prcWMI_NetStat() {
    return {};
}

}  // namespace velmora
