// Links to the system's shell: special folders, shortcuts, the folder browser.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/shell32.h"
#include "platform/wscript_shell.h"

namespace velmora {

/// The contents of a shortcut. The optional texts may be missing.
struct ShortcutTexts {
    std::string description;
    std::string target;
    std::optional<std::string> arguments;
    std::optional<std::string> directory;  ///< the target when missing
    std::optional<std::string> hotkey;
    std::optional<std::string> icon;  ///< the target's second icon when missing
    int windowStyle = 1;
};

class ShellLinks {
  public:
    ShellLinks(Shell32& shell32, WScriptShell& wscriptShell)
        : shell32_(shell32), wscriptShell_(wscriptShell) {}

    /// Drive path of a special folder by its CSIDL number; empty on a failure.
    std::string fSpecialFolder(std::int32_t id);
    /// Makes a shortcut, with ".lnk" appended to its name unless it ends in that or ".url". False
    /// when none can be made.
    bool fCreateShortcut(std::string file, const ShortcutTexts& texts);
    /// Shows the system's folder browser, owned by the window of that form; file system folders
    /// only. A chosen folder's drive path, an empty text when there is none, and nothing when the
    /// system has no such dialog to show. `whileOpen` is called repeatedly while the browser is
    /// open and may be empty.
    std::optional<std::string> prcBrowseForFolder(const std::string& owner,
                                                  const std::string& title,
                                                  const std::function<void()>& whileOpen);

  private:
    Shell32& shell32_;
    WScriptShell& wscriptShell_;
};

}  // namespace velmora
