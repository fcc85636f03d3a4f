// A line of a log file of the traditional kind.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace velmora::linuxhost {

/// The pieces of a line; they are parts of its text.
struct SyslogLine {
    std::optional<std::int64_t> time;  ///< microseconds since 1970
    std::string_view host;
    std::string_view tag;  ///< who wrote it, without the number of the process
    std::string_view message;
};

/// Reads "Mmm dd hh:mm:ss host tag[pid]: message" (RFC 3164), where the time is local and the year
/// the latest one that doesn't make it later than `now` (seconds since 1970), and the same with
/// "yyyy-mm-ddThh:mm:ss.ffffff+hh:mm" in front (the time of RFC 5424). A line of neither form is a
/// message and nothing else.
SyslogLine readSyslogLine(std::string_view line, std::int64_t now);

}  // namespace velmora::linuxhost
