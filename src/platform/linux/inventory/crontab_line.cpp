#include "platform/linux/inventory/crontab_line.h"

#include <algorithm>
#include <array>

#include "platform/linux/inventory/crontab_field.h"
#include "platform/linux/inventory/text_pieces.h"

namespace velmora::linuxhost {

namespace {

// NAME = value, where the name may stand in quotes, and blanks around the sign.
bool isVariable(std::string_view line) {
    const char first = line.front();
    if (first == '"' || first == '\'') {
        const auto end = line.find(first, 1);
        if (end == std::string_view::npos) return false;
        line.remove_prefix(end + 1);
    } else {
        line.remove_prefix(std::min(line.find_first_of(" \t="), line.size()));
    }
    passBlanks(line);
    return line.starts_with('=');
}

bool isScheduleName(std::string_view word) {
    constexpr std::array names{"@reboot", "@yearly", "@annually", "@monthly",
                               "@weekly", "@daily",  "@midnight", "@hourly"};
    return std::find(names.begin(), names.end(), word) != names.end();
}

// Cron's bits are Sunday to Saturday and Sunday again, from 0 to 7.
std::uint32_t fromMonday(std::uint64_t values) {
    const std::uint64_t sunday = (values & 1) | (values >> 7 & 1);
    return static_cast<std::uint32_t>((values >> 1 & 0x3F) | sunday << 6);
}

// Reads the five fields. False when one isn't what cron takes.
bool takeFields(std::string_view& rest, CronJob& job) {
    constexpr std::array order{CronField::minute, CronField::hour, CronField::dayOfMonth,
                               CronField::month, CronField::dayOfWeek};
    std::array<std::string_view, order.size()> texts;
    std::array<std::uint64_t, order.size()> values{};
    for (std::size_t i = 0; i < order.size(); ++i) {
        texts[i] = popWord(rest);
        const auto read = cronValues(texts[i], order[i]);
        if (!read) return false;
        values[i] = *read;
    }
    const auto minute = parseNumber<unsigned>(texts[0]);
    const auto hour = parseNumber<unsigned>(texts[1]);
    if (minute && hour) job.time = {static_cast<int>(*hour), static_cast<int>(*minute)};
    if (texts[2] != "*") job.daysOfMonth = static_cast<std::uint32_t>(values[2] >> 1);
    if (texts[4] != "*") job.daysOfWeek = fromMonday(values[4]);
    const char* end = texts[4].data() + texts[4].size();
    job.schedule.assign(texts[0].data(), end);
    return true;
}

// Up to the first "%" that has no back-slash in front; what follows is the program's input.
std::string beforeInput(std::string_view text) {
    std::string command;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '%') break;
        if (text.substr(at).starts_with("\\%")) ++at;
        command += text[at];
    }
    return command;
}

}  // namespace

std::optional<CronJob> readCrontabLine(std::string_view line, CrontabKind kind) {
    std::string_view rest = line;
    passBlanks(rest);
    if (rest.empty() || rest.front() == '#' || isVariable(rest)) return std::nullopt;
    CronJob job;
    if (rest.front() == '@') {
        job.schedule = popWord(rest);
        if (!isScheduleName(job.schedule)) return std::nullopt;
    } else if (!takeFields(rest, job)) {
        return std::nullopt;
    }
    if (kind == CrontabKind::system) job.user = popWord(rest);
    job.command = beforeInput(rest);
    if (job.command.empty()) return std::nullopt;
    return job;
}

}  // namespace velmora::linuxhost
