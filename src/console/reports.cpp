#include "console/reports.h"

#include <functional>
#include <limits>
#include <map>

#include "base/text.h"
#include "console/target.h"

namespace velmora::console {

std::string Reports::make(Words& words) {
    const std::string name = lowerCase(words.next());
    if (name == "ntevents") {
        const auto count = readWhole(words.next(), 0, std::numeric_limits<std::int16_t>::max());
        words.end();
        return inventory_.prcWMI_NTEvt(static_cast<std::int16_t>(count));
    }
    const std::map<std::string, std::function<std::string()>> others{
        {"ram", [this] { return inventory_.prcWMI_RamInfo(); }},
        {"users", [this] { return inventory_.prcWMI_LogOnUser(); }},
        {"processes", [this] { return inventory_.prcWMI_Process(); }},
        {"processlist", [this] { return inventory_.prcProcessText(); }},
        {"jobs", [this] { return inventory_.prcWMI_SchedJob(); }},
        {"netstat", [this] { return inventory_.prcWMI_NetStat(); }},
        {"message", [this] { return content_.mailBody(); }},
    };
    words.end();
    const auto found = others.find(name);
    if (found == others.end()) throw CommandError("unknown report: " + name);
    return found->second();
}

}  // namespace velmora::console
