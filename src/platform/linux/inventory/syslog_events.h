// Events of a log file with a line an event.
#pragma once

#include "platform/linux/inventory/lines_from_end.h"
#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {

/// Win32_NTLogEvent: the last line first. Empty lines are no events.
class SyslogEvents final : public RecordSource {
  public:
    /// A file that can't be opened has no events.
    explicit SyslogEvents(const std::string& path) : lines_(path) {}
    std::optional<Record> next() override;

  private:
    LinesFromEnd lines_;
};

}  // namespace velmora::linuxhost
