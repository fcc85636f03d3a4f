// The names of users.
#pragma once

#include <sys/types.h>

#include <string>

namespace velmora::linuxhost {

/// The name of the effective user; empty for one whom the system doesn't know.
std::string userName();
/// The name of the user with this number, or else the number.
std::string userName(uid_t id);

}  // namespace velmora::linuxhost
