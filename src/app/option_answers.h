// Options that are answered instead of a start: --help, --version, and those that are wrong.
#pragma once

#include <optional>
#include <ostream>

#include "platform/start_options.h"

namespace velmora {

/// Which of the programs answers.
enum class ProgramKind { window, console };

/// The program's name, as users type it.
const char* nameOf(ProgramKind kind);

namespace exit_status {
inline constexpr int wrongOptions = 2;
inline constexpr int failedCommand = 3;  ///< of a script
}  // namespace exit_status

/// Answers on `output`, or says on `errors` what is wrong with the options. The exit status then;
/// nothing when the program is to start.
std::optional<int> answerOptions(const StartOptions& options, ProgramKind kind,
                                 std::ostream& output, std::ostream& errors);

}  // namespace velmora
