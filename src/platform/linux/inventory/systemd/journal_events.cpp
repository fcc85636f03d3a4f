#include "platform/linux/inventory/systemd/journal_events.h"

#include <cstdlib>
#include <string_view>

#include "platform/linux/system/systemd_calls.h"
#include "platform/linux/system/user_name.h"

namespace velmora::linuxhost {

namespace {

constexpr std::size_t greatestField = 64 * 1024;  // bytes; what is longer may be cut

sd_journal* openJournalAtEnd(const std::string& file) {
    if (!loadSystemd()) return nullptr;
    sd_journal* journal = nullptr;
    const char* files[] = {file.c_str(), nullptr};
    const int failure = file.empty() ? systemd().journalOpen(&journal, SD_JOURNAL_LOCAL_ONLY)
                                     : systemd().journalOpenFiles(&journal, files, 0);
    if (failure < 0) return nullptr;
    systemd().journalSetDataThreshold(journal, greatestField);
    systemd().journalSeekTail(journal);
    return journal;
}

// The value behind the name and "=".
std::optional<std::string> journalField(sd_journal* journal, std::string_view name) {
    const void* bytes = nullptr;
    std::size_t size = 0;
    if (systemd().journalGetData(journal, name.data(), &bytes, &size) < 0) return std::nullopt;
    const std::string_view field(static_cast<const char*>(bytes), size);
    if (field.size() <= name.size()) return std::nullopt;
    return std::string(field.substr(name.size() + 1));
}

std::string cursorOf(sd_journal* journal) {
    char* cursor = nullptr;
    if (systemd().journalGetCursor(journal, &cursor) < 0) return {};
    const std::unique_ptr<char, decltype(&std::free)> owner(cursor, &std::free);
    return cursor;
}

JournalEntry readEntry(sd_journal* journal) {
    JournalEntry entry;
    for (const char* name : {"_HOSTNAME", "SYSLOG_IDENTIFIER", "_COMM", "MESSAGE", "_TRANSPORT",
                             "_UID", "SYSLOG_FACILITY", "PRIORITY", "_SOURCE_REALTIME_TIMESTAMP"})
        if (auto value = journalField(journal, name)) entry.fields[name] = std::move(*value);
    std::uint64_t received = 0;
    if (systemd().journalGetRealtimeUsec(journal, &received) >= 0) entry.received = received;
    entry.cursor = cursorOf(journal);
    return entry;
}

}  // namespace

void JournalEvents::Close::operator()(sd_journal* journal) const {
    systemd().journalClose(journal);
}

JournalEvents::JournalEvents(const std::string& file) : journal_(openJournalAtEnd(file)) {}

std::string JournalEvents::userOf(std::uint32_t id) {
    const auto [user, isNew] = users_.try_emplace(id);
    if (isNew) user->second = userName(id);
    return user->second;
}

std::optional<Record> JournalEvents::next() {
    if (!journal_ || systemd().journalPrevious(journal_.get()) <= 0) return std::nullopt;
    return journalRecord(readEntry(journal_.get()),
                         [this](std::uint32_t id) { return userOf(id); });
}

}  // namespace velmora::linuxhost
