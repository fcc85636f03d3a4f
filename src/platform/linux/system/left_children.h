// Children that nobody waits for: they are reaped once they have ended, so that none stays in the
// list of processes.
#pragma once

#include <sys/types.h>

#include <chrono>

namespace velmora::linuxhost {

/// How long the end of a child is waited for before it is left.
inline constexpr std::chrono::milliseconds endingTime{100};

/// Leaves a child alone, which is reaped at once when it ends within the time, and otherwise by a
/// later call. Reaps those that were left before, too.
void leaveChild(pid_t process, std::chrono::milliseconds time = endingTime);

/// Kills a child and leaves it. One that waits for a filesystem that doesn't answer ends only when
/// that does.
void killChild(pid_t process);

/// Reaps those that have ended. How many haven't.
std::size_t reapLeftChildren();

}  // namespace velmora::linuxhost
