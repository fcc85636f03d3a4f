// Times as management records write them.
#pragma once

#include <cstdint>
#include <string>

namespace velmora::linuxhost {

/// A time in microseconds since 1970 (UTC) as "yyyymmddHHMMSS.mmmmmm+UUU", the CIM form of a
/// datetime: local time, and how many minutes it is ahead of UTC. Empty outside the years 1 to
/// 9999.
std::string cimTime(std::int64_t microseconds);

}  // namespace velmora::linuxhost
