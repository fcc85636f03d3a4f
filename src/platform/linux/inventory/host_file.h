// Files in which the kernel and services report.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace velmora::linuxhost {

/// No such file is read any further, in bytes.
inline constexpr std::size_t longestHostFile = std::size_t{16} << 20;

/// The content of a file, whose name may be relative to the open folder. Nothing when it can't be
/// read. May wait for the host.
std::optional<std::string> readHostFile(int folder, const std::string& name);
std::optional<std::string> readHostFile(const std::string& path);

/// A number with a sign, and nothing else but blanks around it.
std::optional<std::int64_t> signedNumber(std::string_view text);
std::optional<std::uint64_t> unsignedNumber(std::string_view text);

/// The numbers by their names, of lines such as "VmSwap:  12 kB", "rchar: 5" or "pgfault 7", as
/// they stand there. Lines without a number, or with a negative one, are passed over. The first
/// line of a name counts.
std::map<std::string, std::uint64_t, std::less<>> namedNumbers(std::string_view text);

}  // namespace velmora::linuxhost
