// Programs whose output is read.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/system/unique_fd.h"
#include "platform/wscript_shell.h"

namespace velmora::linuxhost {

/// How long the output of a program is waited for, and how much of it is taken.
struct OutputLimits {
    std::chrono::milliseconds silence{2000};
    std::chrono::milliseconds total{10'000};
    std::size_t bytes = std::size_t{16} << 20;
};

/// A started program with the reading end of the pipe that it writes into. One that still runs when
/// this object goes runs on, and finds the pipe closed.
class ProgramOutput final : public WshExec {
  public:
    ProgramOutput(pid_t process, UniqueFd pipe, OutputLimits limits)
        : process_(process), pipe_(std::move(pipe)), limits_(limits) {}
    ~ProgramOutput() override;
    ProgramOutput(const ProgramOutput&) = delete;
    ProgramOutput& operator=(const ProgramOutput&) = delete;

    /// A program that meets a limit is killed, with what runs in its process group.
    /// Control characters become "?", bytes that are no valid UTF-8 U+FFFD.
    std::string ReadAll() override;

  private:
    enum class Ending { byItself, byLimit };
    Ending readTo(std::string& output) const;

    pid_t process_;
    UniqueFd pipe_;
    OutputLimits limits_;
};

/// The program and its arguments in a command line; for "netstat" without arguments what this host
/// has to list connections. The program is a path. Error 53 when PATH leads to none.
std::vector<std::string> outputCommand(const std::string& commandLine);

/// Starts a program in a session of its own, without input. Error 70 when it can't be started.
std::unique_ptr<WshExec> startWithOutput(const std::vector<std::string>& command,
                                         OutputLimits limits = {});

}  // namespace velmora::linuxhost
