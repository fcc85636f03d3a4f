#include "platform/linux/desktop/desktop_dialogs.h"

#include <vector>

#include "platform/linux/desktop/dialog_program.h"

namespace velmora::linuxhost {

namespace {

using Command = std::vector<std::string>;

// The first of the programs that is there shows the dialog.
std::optional<DialogAnswer> runFirst(const std::vector<Command>& commands,
                                     const std::function<void()>& whileOpen) {
    if (!hasDisplay()) return std::nullopt;
    for (const Command& each : commands) {
        if (auto answer = runDialog(each, whileOpen)) return answer;
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::string> chooseFolder(const std::string& title,
                                        const std::function<void()>& whileOpen) {
    const auto answer = runFirst({{"zenity", "--file-selection", "--directory", "--title=" + title},
                                  {"kdialog", "--title", title, "--getexistingdirectory", "/"}},
                                 whileOpen);
    if (!answer) return std::nullopt;
    std::string path = answer->isAccepted ? answer->output : "";
    // One line end is the program's; another one belongs to the name.
    if (path.ends_with('\n')) path.pop_back();
    return path.starts_with('/') ? path : "";
}

bool isConfirmed(const std::string& title, const std::string& text) {
    const auto answer = runFirst({{"zenity", "--question", "--title=" + title, "--text=" + text},
                                  {"kdialog", "--title", title, "--warningyesno", text}},
                                 {});
    return answer && answer->isAccepted;
}

}  // namespace velmora::linuxhost
