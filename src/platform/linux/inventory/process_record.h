// A process as the kernel reports it, as a record.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {

/// What holds for all processes of a machine.
struct ProcessHost {
    std::string name;              ///< of the machine
    std::string system;            ///< name of the operating system; empty when it isn't known
    std::int64_t bootTime = 0;     ///< seconds since 1970; 0 when it isn't known
    std::int64_t ticks = 100;      ///< of the kernel's clock in a second
    std::int64_t pageSize = 4096;  ///< in bytes
};

/// The files of a process, as far as they can be read.
struct ProcessFiles {
    std::int64_t id = 0;
    std::string stat{};
    std::optional<std::string> status{};
    std::optional<std::string> io{};
    std::optional<std::string> exe{};            ///< what the link points to
    std::optional<std::uint64_t> descriptors{};  ///< how many are open
};

/// The short name in the text of a stat file, which the process can choose; nothing when the text
/// has none.
std::optional<std::string> commandName(std::string_view stat);

/// The path that the link to the executable shows, without the kernel's mark of a deleted file; on
/// one line.
std::string executablePathOf(std::string_view link);

/// The name that reports show: that of the executable, or the short name for processes without a
/// readable one.
std::string processName(const std::optional<std::string>& exe, std::string_view stat);

/// PRETTY_NAME in the text of an os-release file; empty when there is none.
std::string systemName(std::string_view release);

/// Win32_Process. Times are in units of 100 ns, sizes in bytes but PageFileUsage and
/// PeakWorkingSetSize (KB). What isn't known is left out. Nothing when `stat` isn't one.
std::optional<Record> processRecord(const ProcessHost& host, const ProcessFiles& files);

}  // namespace velmora::linuxhost
