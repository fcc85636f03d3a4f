// The start of the program with its settings, and the way back from settings that end it.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/core.h"

namespace velmora {

/// Builds the running state. Where the command line asks for it, the last good settings are put
/// back first, and `host` is told. Settings that the program has started with are kept as a good
/// copy; those that ended the start are one no more.
void startProgram(Core& core, Machine& machine, Host& host);

/// Puts the last good settings back; says what was done.
Restored restoreSettings(Core& core, Machine& machine);

/// After a start that failed: what a user has to know about the settings, in lines; nothing when
/// they were not the reason.
std::optional<std::string> whySettingsFailed(Core& core, Machine& machine);

/// Says the same line by line, with the option that helps where there is a good copy.
void noteSettingsFailure(Core& core, Machine& machine,
                         const std::function<void(const std::string& line)>& note);

}  // namespace velmora
