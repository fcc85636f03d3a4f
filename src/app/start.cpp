#include "app/start.h"

namespace velmora {

namespace {

SettingsRecovery::PathConversion hostPathsOf(Machine& machine) {
    return [&machine](const std::string& path) { return machine.toHostPath(path); };
}

}  // namespace

std::string restoreSettings(Core& core, Machine& machine) {
    return core.persist().recovery().restore(hostPathsOf(machine));
}

void startProgram(Core& core, Machine& machine, Host& host) {
    std::optional<std::string> restored;
    if (machine.platform().app.Options.restoreSettings) {
        restored = restoreSettings(core, machine);
        host.Note(*restored);
    }
    core.load();
    Persist& persist = core.persist();
    persist.recovery().keep(persist.settingsFile().takeContentRead());
    if (restored) persist.hintNote().say(*restored);
}

std::optional<std::string> whySettingsFailed(Core& core, Machine& machine) {
    const auto& fault = core.persist().settingsFile().fault();
    if (!fault) return std::nullopt;
    return core.persist().recovery().explain(*fault, hostPathsOf(machine));
}

}  // namespace velmora
