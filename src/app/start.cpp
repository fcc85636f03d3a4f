#include "app/start.h"

#include <exception>

#include "base/text.h"

namespace velmora {

namespace {

SettingsRecovery::PathConversion hostPathsOf(Machine& machine) {
    return [&machine](const std::string& path) { return machine.toHostPath(path); };
}

}  // namespace

Restored restoreSettings(Core& core, Machine& machine) {
    return core.persist().recovery().restore(hostPathsOf(machine));
}

void startProgram(Core& core, Machine& machine, Host& host) {
    std::optional<Restored> restored;
    if (machine.platform().app.Options.restoreSettings) {
        restored = restoreSettings(core, machine);
        host.Note(restored->text);
    }
    Persist& persist = core.persist();
    try {
        core.load();
    } catch (const std::exception&) {
        SettingsFile& settings = persist.settingsFile();
        if (settings.fault()) persist.recovery().endedStart(settings.takeContentRead());
        throw;
    }
    persist.recovery().keep(persist.settingsFile().takeContentRead());
    if (restored) persist.hintNote().say(restored->text);
}

std::optional<std::string> whySettingsFailed(Core& core, Machine& machine) {
    const auto& fault = core.persist().settingsFile().fault();
    if (!fault) return std::nullopt;
    return core.persist().recovery().explain(*fault, hostPathsOf(machine));
}

void noteSettingsFailure(Core& core, Machine& machine,
                         const std::function<void(const std::string& line)>& note) {
    const auto why = whySettingsFailed(core, machine);
    if (!why) return;
    for (const std::string& line : split(*why, lineEnd)) note(line);
    if (core.persist().recovery().hasCopy()) {
        note("Start with --restore-settings to put them back.");
    }
}

}  // namespace velmora
