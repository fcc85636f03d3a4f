// The folders of the running processes.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {

/// The numbers of the processes with a folder in `proc`, in ascending order. May wait for the host.
std::vector<std::int64_t> processIds(const std::string& proc);

/// What a link in an open folder points to; nothing when it can't be read.
std::optional<std::string> linkTarget(int folder, const std::string& name);

/// A record with ProcessId for each process, and the same with Name: no more is read than that.
std::unique_ptr<RecordSource> processIdSource(const HostSources& host);
std::unique_ptr<RecordSource> processNameSource(const HostSources& host);

}  // namespace velmora::linuxhost
