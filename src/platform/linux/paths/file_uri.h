// Paths inside addresses.
#pragma once

#include <string>
#include <string_view>

namespace velmora::linuxhost {

/// The path with every byte escaped that isn't a letter, a digit or one of "-._~/".
std::string escapedPath(std::string_view hostPath);

/// "file://" and the escaped path.
std::string fileUri(const std::string& hostPath);

}  // namespace velmora::linuxhost
