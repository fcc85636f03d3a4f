#include "app/data_folder.h"

namespace velmora {

namespace {

const char* faultOf(DataFolderState state) {
    return state == DataFolderState::notMade
               ? "The folder for settings and log is not there and can't be made: "
               : "The first settings can't be written to the folder ";
}

}  // namespace

std::optional<int> prepareDataFolder(Machine& machine, ProgramKind kind, std::ostream& errors) {
    const DataFolderState state = machine.prepareDataFolder();
    if (state == DataFolderState::ready) return std::nullopt;
    const Application& app = machine.platform().app;
    const std::string& typed = app.Options.settings;
    const std::string folder = typed.empty() ? machine.toHostPath(app.DataPath) : typed;
    errors << nameOf(kind) << ": " << faultOf(state) << folder << '\n';
    return exit_status::wrongOptions;
}

}  // namespace velmora
