// A program that is started for what it writes.
#pragma once

#include <windows.h>

#include <chrono>
#include <cstddef>
#include <string>

#include "platform/windows/system/unique_handle.h"

namespace velmora::windows {

/// How much of its output is waited for.
struct OutputLimits {
    std::chrono::milliseconds silence{2'000};  ///< without any output
    std::chrono::milliseconds duration{10'000};
    std::size_t bytes = std::size_t{16} << 20U;
};

/// It has no window and reads nothing; what it writes to its standard error is lost. It and all
/// that it starts are ended with this object.
class ProgramOutput {
  public:
    /// Error 53 when there is no such program, 70 when it can't be started.
    explicit ProgramOutput(const std::string& commandLine);
    ~ProgramOutput();
    ProgramOutput(const ProgramOutput&) = delete;
    ProgramOutput& operator=(const ProgramOutput&) = delete;

    /// The bytes that it still writes, until it and all that write for it close their output or a
    /// limit is met. Then they are ended.
    std::string readAll(const OutputLimits& limits = {});

  private:
    void start(const std::string& commandLine, HANDLE output);
    void end();

    UniqueHandle output_;
    UniqueHandle job_;
    UniqueHandle process_;
};

}  // namespace velmora::windows
