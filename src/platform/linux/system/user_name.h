// Who the program runs as.
#pragma once

#include <string>

namespace velmora::linuxhost {

/// The name of the effective user; empty for one whom the system doesn't know.
std::string userName();

}  // namespace velmora::linuxhost
