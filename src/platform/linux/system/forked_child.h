// Children that share the program's code and nothing else, for questions that may never be
// answered.
#pragma once

#include <sys/types.h>

#include <functional>

namespace velmora::linuxhost {

/// The number of the socket in such a child.
inline constexpr int forkedChildSocket = 0;

/// Forks a child that runs `body` and ends when that returns or throws: in a session of its own, in
/// the root folder, with standard signal handling and without any open file but the socket.
/// `name` is its name in lists of processes. Its process id, or -1 when it can't be had.
pid_t forkChild(int socket, const char* name, const std::function<void()>& body);

}  // namespace velmora::linuxhost
