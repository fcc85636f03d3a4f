// An entry of the system's journal as a record.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {

/// The fields are those of systemd.journal-fields(7).
struct JournalEntry {
    std::map<std::string, std::string> fields;
    std::optional<std::uint64_t> received;  ///< microseconds since 1970
    std::string cursor;                     ///< as sd_journal_get_cursor gives it; may be empty
};

/// Win32_NTLogEvent. `nameOfUser` gives the name for a user's number. What the entry lacks, the
/// record lacks.
Record journalRecord(const JournalEntry& entry,
                     const std::function<std::string(std::uint32_t)>& nameOfUser);

/// The number of the entry in its file: the hexadecimal number "i=" of a cursor, whose fields stand
/// between semicolons.
std::optional<std::uint64_t> sequenceNumberOf(std::string_view cursor);

}  // namespace velmora::linuxhost
