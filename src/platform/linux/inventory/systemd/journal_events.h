// Events of the system's journal.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "platform/linux/inventory/journal_entry.h"
#include "platform/linux/inventory/record_source.h"

struct sd_journal;

namespace velmora::linuxhost {

/// Win32_NTLogEvent: the newest entry first, read one by one from the journal's end.
class JournalEvents final : public RecordSource {
  public:
    /// One file of the journal; all files of this machine that the user may read when it is empty.
    /// A journal that can't be opened has no entries.
    explicit JournalEvents(const std::string& file);
    std::optional<Record> next() override;

  private:
    struct Close {
        void operator()(sd_journal* journal) const;
    };
    std::string userOf(std::uint32_t id);

    std::unique_ptr<sd_journal, Close> journal_;
    std::map<std::uint32_t, std::string> users_;  // those that were asked for
};

}  // namespace velmora::linuxhost
