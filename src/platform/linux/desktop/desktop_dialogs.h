// The desktop's own dialogs, by the dialog program that the user has: zenity or kdialog.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace velmora::linuxhost {

/// Lets the user choose a folder: its path on this host, empty when the dialog was dismissed;
/// nothing without a display or a dialog program. `whileOpen` as runDialog takes it.
std::optional<std::string> chooseFolder(const std::string& title,
                                        const std::function<void()>& whileOpen);

/// Asks yes or no; no also when the question can't be shown. The text must be plain letters: it may
/// be taken for markup.
bool isConfirmed(const std::string& title, const std::string& text);

}  // namespace velmora::linuxhost
