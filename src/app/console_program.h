// The console program on a given machine and streams: what main runs, and what a test runs on a
// machine in memory.
#pragma once

#include <istream>
#include <ostream>

#include "console/waiting.h"
#include "platform/platform.h"

namespace velmora {

/// Runs until the input ends or the program does; returns the exit status.
int runConsole(Machine& machine, std::istream& input, std::ostream& output,
               const console::Waiting::Sleep& sleep);

}  // namespace velmora
