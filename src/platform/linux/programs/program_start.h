// Starting a program of the desktop, without a shell, and looking after it.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace velmora::linuxhost {

/// Starts a program by its name in PATH, in a session of its own, apart from this program's
/// terminal and input, with standard signal handling. Its output goes to the file `output`, and
/// nowhere when that is -1. It starts in `folder`, where this program is when that is empty. Its
/// process id, or -1 when it can't be started.
pid_t startProgram(std::vector<std::string> command, int output = -1,
                   const std::string& folder = {});

/// Whether the child has ended; then it is reaped, and `status` is the status of waitpid (unchanged
/// when another caller has reaped it).
bool hasEnded(pid_t process, int& status);

}  // namespace velmora::linuxhost
