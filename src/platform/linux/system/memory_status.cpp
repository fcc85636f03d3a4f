#include "platform/linux/system/memory_status.h"

#include <cstdint>
#include <map>
#include <sstream>

namespace velmora::linuxhost {

namespace {

// The kernel gives user programs no more on any machine with 64-bit addresses.
constexpr std::uint64_t addressSpace = sizeof(void*) > 4 ? std::uint64_t{1} << 47 : 3'221'225'472;

// Bytes by name, of lines such as "MemTotal:  16303412 kB".
std::map<std::string, std::uint64_t> memoryFieldsOf(const std::string& meminfo) {
    std::map<std::string, std::uint64_t> fields;
    std::istringstream lines(meminfo);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string name;
        std::uint64_t kilobytes = 0;
        if (words >> name >> kilobytes) fields[name] = kilobytes * 1024;
    }
    return fields;
}

}  // namespace

MemoryStatus memoryStatusOf(const std::string& meminfo) {
    auto fields = memoryFieldsOf(meminfo);
    const std::uint64_t total = fields["MemTotal:"];
    const std::uint64_t available = fields["MemAvailable:"];
    const std::uint64_t used = total > available ? total - available : 0;
    return {.dwLength = memory_status::recordLength,
            .dwMemoryLoad = total == 0 ? 0 : static_cast<std::uint32_t>(used * 100 / total),
            .dwTotalPhys = memory_status::field(total),
            .dwAvailPhys = memory_status::field(available),
            .dwTotalPageFile = memory_status::field(total + fields["SwapTotal:"]),
            .dwAvailPageFile = memory_status::field(available + fields["SwapFree:"]),
            .dwTotalVirtual = memory_status::field(addressSpace),
            .dwAvailVirtual = memory_status::field(addressSpace)};
}

}  // namespace velmora::linuxhost
