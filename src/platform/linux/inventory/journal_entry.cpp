#include "platform/linux/inventory/journal_entry.h"

#include <limits>

#include "base/text.h"
#include "platform/linux/inventory/cim_time.h"
#include "platform/linux/inventory/record_text.h"
#include "platform/linux/inventory/text_pieces.h"

namespace velmora::linuxhost {

namespace {

// An entry's fields by their names, and what is made of them.
class EntryReader {
  public:
    explicit EntryReader(const JournalEntry& entry) : entry_(entry) {}

    const std::string* text(const char* field) const {
        const auto found = entry_.fields.find(field);
        return found == entry_.fields.end() ? nullptr : &found->second;
    }
    template <typename Number>
    std::optional<Number> number(const char* field) const {
        const std::string* digits = text(field);
        return digits ? parseNumber<Number>(*digits) : std::nullopt;
    }
    void copy(const char* field, const char* property) {
        const std::string* value = text(field);
        if (value != nullptr && !value->empty()) record[property] = oneLine(*value);
    }
    void copyTime(std::optional<std::uint64_t> microseconds, const char* property) {
        constexpr auto greatest = std::numeric_limits<std::int64_t>::max();
        if (!microseconds || *microseconds > static_cast<std::uint64_t>(greatest)) return;
        const std::string time = cimTime(static_cast<std::int64_t>(*microseconds));
        if (!time.empty()) record[property] = time;
    }

    Record record;

  private:
    const JournalEntry& entry_;
};

// The levels of syslog(3), from 0 for an emergency to 7 for debugging.
const char* typeOfPriority(unsigned priority) {
    constexpr unsigned error = 3;
    constexpr unsigned warning = 4;
    if (priority <= error) return "Error";
    return priority == warning ? "Warning" : "Information";
}

}  // namespace

std::optional<std::uint64_t> sequenceNumberOf(std::string_view cursor) {
    constexpr std::string_view name = "i=";
    for (const std::string& field : split(cursor, ";"))
        if (field.starts_with(name))
            return parseNumber<std::uint64_t>(std::string_view(field).substr(name.size()), 16);
    return std::nullopt;
}

Record journalRecord(const JournalEntry& entry,
                     const std::function<std::string(std::uint32_t)>& nameOfUser) {
    EntryReader reader(entry);
    reader.copy("_HOSTNAME", "ComputerName");
    reader.copy("_COMM", "SourceName");
    reader.copy("SYSLOG_IDENTIFIER", "SourceName");
    reader.copy("_TRANSPORT", "Logfile");
    if (const std::string* message = reader.text("MESSAGE"))
        reader.record["Message"] = severalLines(*message);
    if (const auto facility = reader.number<unsigned>("SYSLOG_FACILITY"))
        reader.record["Category"] = std::to_string(*facility);
    if (const auto user = reader.number<std::uint32_t>("_UID"))
        reader.record["User"] = oneLine(nameOfUser(*user));
    constexpr unsigned lastPriority = 7;
    const auto priority = reader.number<unsigned>("PRIORITY");
    if (priority && *priority <= lastPriority) reader.record["Type"] = typeOfPriority(*priority);
    if (const auto number = sequenceNumberOf(entry.cursor))
        reader.record["RecordNumber"] = std::to_string(*number);
    reader.copyTime(entry.received, "TimeWritten");
    reader.copyTime(entry.received, "TimeGenerated");
    reader.copyTime(reader.number<std::uint64_t>("_SOURCE_REALTIME_TIMESTAMP"), "TimeGenerated");
    return reader.record;
}

}  // namespace velmora::linuxhost
