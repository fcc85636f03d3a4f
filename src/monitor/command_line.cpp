#include "monitor/command_line.h"

#include "base/resume_next.h"
#include "base/text.h"

namespace velmora {

namespace {

constexpr std::int32_t sendToFolder = 9;

}  // namespace

int CommandLine::prcCommandAdd() {
    if (!app_.Command.empty()) {
        for (const std::string& piece : split(app_.Command, "\"")) {
            if (piece.empty() || piece == " ") continue;
            fileList_.prcAllLV(LVFile_, piece);
        }
    }
    // A machine without such a folder, or one that can't be written, must still start.
    resumeNext([this] { addSendToShortcut(); });
    return 1;
}

void CommandLine::addSendToShortcut() {
    const std::string folder = shellLinks_.fSpecialFolder(sendToFolder);
    if (folder.empty() || fso_.FileExists(folder + "\\Velmora.lnk")) return;
    const std::string program = app_.Path + "\\" + app_.EXEName + ".exe";
    shellLinks_.fCreateShortcut(folder + "\\Velmora", {.description = "Velmora",
                                                       .target = program,
                                                       .arguments = {},
                                                       .directory = app_.Path,
                                                       .hotkey = {},
                                                       .icon = program,
                                                       .windowStyle = 3});
}

}  // namespace velmora
