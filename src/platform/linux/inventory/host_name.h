// The name of this machine.
#pragma once

#include <string>

namespace velmora::linuxhost {

/// As the kernel has it, valid UTF-8 on one line; "localhost" when it has none.
std::string hostName();

}  // namespace velmora::linuxhost
