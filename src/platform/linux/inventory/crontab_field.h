// A field of a crontab's line: which values of a range it means.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace velmora::linuxhost {

enum class CronField { minute, hour, dayOfMonth, month, dayOfWeek };

/// The values of the field, bit n for the value n: lists of "*", numbers, names and ranges, these
/// and "*" also with a step. A week is from 0 to 7, both of which are Sunday. Nothing when it is no
/// such field.
std::optional<std::uint64_t> cronValues(std::string_view text, CronField field);

}  // namespace velmora::linuxhost
