// What the kernel reports of its memory, as the record of the other system's raw counters.
#pragma once

#include <optional>
#include <string_view>

#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {

/// The bytes of the loaded modules, of the text of /proc/modules (name, size, ...). They are never
/// paged out.
std::uint64_t modulesSize(std::string_view modules);

/// Win32_PerfRawData_PerfOS_Memory from the texts of /proc/meminfo and /proc/vmstat and the size of
/// the modules, where it is known. All in bytes but CacheFaultsPersec, the number of major page
/// faults since the start, as the raw counter counts on. What the texts lack is left out.
Record memoryRecord(std::string_view meminfo, std::string_view vmstat,
                    std::optional<std::uint64_t> modules);

}  // namespace velmora::linuxhost
