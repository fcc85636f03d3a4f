// The names of files that take a new content beside the old one: a dot in front, which hides them
// on Linux, and at the end the number of the process that writes them, so that no other writes to
// the same.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// The name under which that process writes what is to be put in place of `name`.
std::string besideName(std::string_view name, std::uint32_t process);

/// The process that has written `file` in place of `name`, or of any name where that is empty;
/// nothing when it isn't such a file's name.
std::optional<std::uint32_t> writerBeside(std::string_view file, std::string_view name);

}  // namespace velmora
