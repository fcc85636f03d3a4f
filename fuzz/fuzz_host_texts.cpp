// Any bytes as texts of the host: lines of logs and crontabs, entries of the journal, jobs of at.
// Reading ends, and what is read keeps its promises.
//
// Input: a byte for the kind of text, then the text.
#include <sys/mman.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/text.h"
#include "fuzz_target.h"
#include "platform/linux/inventory/at_job.h"
#include "platform/linux/inventory/crontab_line.h"
#include "platform/linux/inventory/journal_entry.h"
#include "platform/linux/inventory/lines_from_end.h"
#include "platform/linux/inventory/syslog_line.h"
#include "platform/linux/inventory/text_pieces.h"
#include "platform/linux/system/unique_fd.h"
#include "platform/linux/system/write_all.h"

using namespace velmora;
using namespace velmora::linuxhost;

namespace {

constexpr std::int64_t now = 1'795'348'800;  // 22 November 2026, noon in UTC

bool isPartOf(std::string_view part, std::string_view whole) {
    return part.empty() || whole.find(part) != std::string_view::npos;
}

void syslogText(std::string_view text) {
    while (!text.empty()) {
        const std::string_view line = popLine(text);
        const SyslogLine read = readSyslogLine(line, now);
        require(line.ends_with(read.message), "the message is the end of the line");
        if (!read.time) {
            require(read.message == line, "a line without a form is a message");
            continue;
        }
        require(!read.host.empty() && !read.tag.empty(), "a form has a host and a tag");
        require(isPartOf(read.host, line) && isPartOf(read.tag, line), "they stand in the line");
        const bool hasYear = line[0] >= '0' && line[0] <= '9';
        require(hasYear || *read.time <= now * 1'000'000, "without a year it is no later than now");
    }
}

void crontabText(std::string_view text, CrontabKind kind) {
    while (!text.empty()) {
        const std::string_view line = popLine(text);
        const auto job = readCrontabLine(line, kind);
        if (!job) continue;
        require(!job->command.empty() && !job->schedule.empty(), "a job has a time and a command");
        require(isPartOf(job->schedule, line), "the time is as it was written");
        require((kind == CrontabKind::user) == job->user.empty(), "only the system names users");
        require(!job->daysOfMonth || (*job->daysOfMonth > 0 && *job->daysOfMonth >> 31 == 0),
                "a month has 31 days");
        require(!job->daysOfWeek || (*job->daysOfWeek > 0 && *job->daysOfWeek >> 7 == 0),
                "a week has 7 days");
        require(!job->time || (job->time->hour >= 0 && job->time->hour < 24 &&
                               job->time->minute >= 0 && job->time->minute < 60),
                "a time of day exists");
    }
}

// A field a line, name and value; the line "cursor=" and "received=" are the entry's own.
void journalText(std::string_view text) {
    JournalEntry entry;
    while (!text.empty()) {
        const std::string_view line = popLine(text);
        const std::string name(line.substr(0, line.find('=')));
        const std::string value(line.substr(std::min(line.size(), name.size() + 1)));
        if (name == "cursor") entry.cursor = value;
        if (name == "received") entry.received = parseNumber<std::uint64_t>(value);
        entry.fields[name] = value;
    }
    const Record record =
        journalRecord(entry, [](std::uint32_t id) { return std::to_string(id) + "\n"; });
    for (const auto& [name, value] : record) {
        require(isValidUtf8(value), "texts are UTF-8");
        require(name == "Message" || value.find('\n') == std::string::npos,
                "only a message has lines");
    }
    if (const auto type = record.find("Type"); type != record.end())
        require(
            type->second == "Error" || type->second == "Warning" || type->second == "Information",
            "there are three types");
}

void atText(std::string_view text) {
    std::string_view script = text;
    const std::string_view name = popLine(script);
    if (const auto job = readAtJobName(name)) {
        require(job->number <= 0xFFFFF, "a number has five digits");
        require(job->start >= 0 && job->start <= 0xFFFFFFFFLL * 60'000'000,
                "a start has eight digits");
    }
    const std::string commands = atCommands(script);
    require(commands.find('\n') == std::string::npos, "commands are one line");
    require(commands.size() <= 2 * script.size(), "commands are those of the script");
}

// A file in memory, now and then one of several blocks.
void fileText(std::string_view text) {
    constexpr std::size_t longestLine = 65536;
    constexpr std::size_t severalBlocks = 70'000;
    std::string content(text);
    if (text.starts_with('+')) {
        while (content.size() < severalBlocks) content += text;
    }
    const UniqueFd file(memfd_create("lines", MFD_CLOEXEC));
    std::string_view rest = content;
    require(file.isOpen() && writeAll(file.get(), rest) == 0, "the file is there");
    std::vector<std::string> lines;
    for (const std::string& each : split(content, "\n")) {
        std::string line = each.substr(0, longestLine);
        if (line.ends_with('\r')) line.pop_back();
        if (!line.empty()) lines.push_back(std::move(line));
    }
    LinesFromEnd reader("/proc/self/fd/" + std::to_string(file.get()));
    while (const auto line = reader.next()) {
        require(!lines.empty(), "there are no more lines than in the file");
        require(*line == lines.back(), "the line is the one of the file");
        lines.pop_back();
    }
    require(lines.empty(), "all lines come");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string_view text = asText(data, size).substr(1);
    switch (data[0] % 6) {
        case 0:
            syslogText(text);
            break;
        case 1:
            crontabText(text, CrontabKind::system);
            break;
        case 2:
            crontabText(text, CrontabKind::user);
            break;
        case 3:
            journalText(text);
            break;
        case 4:
            atText(text);
            break;
        default:
            fileText(text);
    }
    return 0;
}
