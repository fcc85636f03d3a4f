// Texts of the host as the reports may contain them: valid UTF-8, and no line that a process or a
// user has made up.
#pragma once

#include <string>
#include <string_view>

namespace velmora::linuxhost {

/// A name or a path: each byte that is no valid UTF-8 becomes U+FFFD, each control character and
/// each line end "?".
std::string oneLine(std::string_view text);

/// A message: LF and CR LF become CR LF, each byte that is no valid UTF-8 becomes U+FFFD, each
/// other control character but the tab "?".
std::string severalLines(std::string_view text);

}  // namespace velmora::linuxhost
