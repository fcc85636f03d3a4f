// A job of at: what the name of its file and the commands in it tell.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora::linuxhost {

struct AtJobName {
    std::uint32_t number = 0;
    std::int64_t start = 0;  ///< microseconds since 1970
};

/// Reads the letter of a queue ("=" while the job runs), five hexadecimal digits of the job's
/// number and eight of the minutes since 1970. Nothing for another name.
std::optional<AtJobName> readAtJobName(std::string_view name);

/// The commands that were given to at, joined by "; ": the script without what at itself writes in
/// front (who, umask, the environment, the folder) and without a here-document around them.
std::string atCommands(std::string_view script);

}  // namespace velmora::linuxhost
