// Starting another program by a command line.
#pragma once

#include <cstdint>
#include <string>

namespace velmora::windows {

/// Returns at once. Error 53 when there is no such program, 5 when it can't be started.
void startProgram(const std::string& commandLine, std::int32_t windowState);

}  // namespace velmora::windows
