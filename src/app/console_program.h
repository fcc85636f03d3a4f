// The console program on a given machine and streams: what main runs, and what a test runs on a
// machine in memory.
#pragma once

#include <cstdint>
#include <functional>
#include <istream>
#include <ostream>

#include "app/line_editor.h"
#include "app/service_manager.h"
#include "console/output.h"
#include "console/waiting.h"
#include "platform/platform.h"

namespace velmora {

/// Where the console reads and writes, and what it asks of the process it runs in.
struct ConsoleStreams {
    std::istream& input;
    std::ostream& output;
    console::Waiting::Sleep sleep;
    /// Asked by a program that keeps running when its output takes nothing.
    console::Output::IsReaderGone isReaderGone = [] { return true; };
    /// Asked under --watch: whether the program is to end.
    std::function<bool()> isEndRequested = [] { return false; };
    /// Reads the commands instead of the input; none where no user sits in front of it.
    LineEditor editor = {};
    /// Told under --watch.
    ServiceManager manager = {};
    /// Milliseconds of the longest sleep under --watch. One that doesn't end early when the end is
    /// asked for must be short.
    std::int64_t longestSleep = 1000;
};

/// Runs until the input or the script ends, the program does, or, under --watch, somebody asks for
/// the end; returns the exit status.
int runConsole(Machine& machine, const ConsoleStreams& streams);

}  // namespace velmora
