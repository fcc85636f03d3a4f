// The folder with the settings and the log, before the start of the program.
#pragma once

#include <optional>
#include <ostream>

#include "app/option_answers.h"
#include "platform/platform.h"

namespace velmora {

/// Makes the folder and its first settings where they are missing. Nothing when the program can go
/// on; otherwise `errors` gets a line that names the folder, and the result is the exit status.
std::optional<int> prepareDataFolder(Machine& machine, ProgramKind kind, std::ostream& errors);

}  // namespace velmora
