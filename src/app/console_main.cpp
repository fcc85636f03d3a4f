#include <cstdlib>
#include <iostream>

#include "app/console_program.h"
#include "app/data_folder.h"
#include "app/end_request.h"
#include "app/line_editor.h"
#include "app/option_answers.h"
#include "app/service_manager.h"
#include "app/sleep.h"
#include "app/streams.h"

namespace {

int runOn(velmora::Machine& machine) {
    const velmora::StartOptions& options = machine.platform().app.Options;
    if (const auto answered =
            velmora::answerOptions(options, velmora::ProgramKind::console, std::cout, std::cerr))
        return *answered;
    if (const auto failed =
            velmora::prepareDataFolder(machine, velmora::ProgramKind::console, std::cerr))
        return *failed;
    // A script or a user at a terminal ends in the usual ways.
    if (options.watch) velmora::noteEndRequests();
    const bool isForUser = !options.watch && !options.json && options.script.empty();
    return velmora::runConsole(
        machine, {.input = std::cin,
                  .output = std::cout,
                  .sleep = velmora::sleepUnlessEnded,
                  .isReaderGone = velmora::isReaderGone,
                  .isEndRequested = velmora::isEndRequested,
                  .editor = isForUser ? velmora::terminalEditor() : velmora::LineEditor{},
                  .manager = velmora::serviceManagerOfProcess(),
                  .longestSleep = velmora::longestSleep()});
}

}  // namespace

int main() {
    velmora::prepareStreams();
    std::cin.tie(nullptr);
    const auto machine = velmora::openMachine();
    const int status = runOn(*machine);
    // At once, without waiting for a drive that doesn't answer.
    std::cout.flush();
    std::_Exit(status);
}
