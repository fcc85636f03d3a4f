// A line of a crontab, as crontab(5) describes it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora::linuxhost {

enum class CrontabKind {
    system,  ///< a user stands in front of each command
    user,    ///< all commands are of one user
};

/// A job.
struct CronJob {
    std::string schedule;  ///< the five fields, or a name such as "@daily", as they are written
    std::string user;      ///< empty in a user's crontab
    std::string command;   ///< up to a "%" without a back-slash, which its input follows
    /// The time of day, when hour and minute are single numbers.
    struct Time {
        int hour = 0;    ///< 0 to 23
        int minute = 0;  ///< 0 to 59
    };
    std::optional<Time> time;
    std::optional<std::uint32_t> daysOfMonth;  ///< bit 0 is day 1; nothing for "*"
    std::optional<std::uint32_t> daysOfWeek;   ///< bit 0 is Monday, bit 6 Sunday; nothing for "*"
};

/// Nothing for a line that is no job: a comment, a variable, or what cron wouldn't take.
std::optional<CronJob> readCrontabLine(std::string_view line, CrontabKind kind);

}  // namespace velmora::linuxhost
