// A class of management records, read from the host.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/linux/inventory/host_sources.h"

namespace velmora::linuxhost {

/// The properties of a record as texts, by their names as the classes write them. What the host
/// can't tell isn't in it. Texts are valid UTF-8; only those that are lines by nature (a message)
/// contain line ends, which are CR LF.
using Record = std::map<std::string, std::string>;

class RecordSource {
  public:
    virtual ~RecordSource() = default;
    /// Reads the next record; nothing at the end. May wait for the host: it runs in a process of
    /// its own, which is given up when it makes no progress.
    virtual std::optional<Record> next() = 0;
};

/// Win32_NTLogEvent: the newest event first.
std::unique_ptr<RecordSource> eventSource(const HostSources& host);
/// Win32_PerfRawData_PerfOS_Memory: one record.
std::unique_ptr<RecordSource> memorySource(const HostSources& host);
/// Win32_LoggedOnUser: a record a login, whose Antecedent is the path of an account.
std::unique_ptr<RecordSource> loginSource(const HostSources& host);
/// The account (Win32_UserAccount) at such a path; nothing when there is none.
std::optional<Record> accountAt(const std::string& path);
/// Win32_Process.
std::unique_ptr<RecordSource> processSource(const HostSources& host);
/// Win32_ScheduledJob: jobs of at, lines of crontabs, timers of the service manager.
std::unique_ptr<RecordSource> jobSource(const HostSources& host);

}  // namespace velmora::linuxhost
