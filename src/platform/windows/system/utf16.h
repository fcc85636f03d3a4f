// Text and paths at the border to the system: UTF-8 inside the program, UTF-16 in its calls.
#pragma once

#include <string>
#include <string_view>

namespace velmora::windows {

/// What is no valid UTF-8 becomes the replacement character.
std::wstring toUtf16(std::string_view text);
/// What is no valid UTF-16, such as half a pair in a file name, becomes the replacement character.
std::string toUtf8(std::wstring_view text);

/// The absolute form of a path, as text only: nothing is asked of a drive. The path itself when
/// the system can't make sense of it.
std::wstring fullPath(std::string_view path);

/// A path in the form that system calls take. One that is too long for them as it is becomes
/// absolute and carries the prefix that lifts the limit.
std::wstring systemPath(std::string_view path);

/// The same path without the prefix that lifts the limit on its length.
std::string withoutLongPrefix(std::string_view path);

}  // namespace velmora::windows
