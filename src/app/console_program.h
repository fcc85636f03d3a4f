// The console program on a given machine and streams: what main runs, and what a test runs on a
// machine in memory.
#pragma once

#include <istream>
#include <ostream>

#include "console/output.h"
#include "console/waiting.h"
#include "platform/platform.h"

namespace velmora {

/// Runs until the input ends or the program does; returns the exit status. A program that keeps
/// running asks of an output that takes nothing whether its reader is gone, which ends it.
int runConsole(
    Machine& machine, std::istream& input, std::ostream& output,
    const console::Waiting::Sleep& sleep,
    const console::Output::IsReaderGone& isReaderGone = [] { return true; });

}  // namespace velmora
