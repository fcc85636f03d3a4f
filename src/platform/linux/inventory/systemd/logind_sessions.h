// The sessions that the login service knows of.
#pragma once

#include <vector>

#include "platform/linux/inventory/logins.h"

namespace velmora::linuxhost {

/// The sessions of users, without those of greeters and background services; none where the service
/// doesn't run.
std::vector<Login> logindSessions();

}  // namespace velmora::linuxhost
