// Shortcuts, as the script shell makes them: a .lnk or .url file on Windows, a script in the file
// manager's folder or a desktop entry on Linux.
#pragma once

#include <memory>
#include <string>

namespace velmora {

/// A shortcut in the making; nothing is written before Save.
class Shortcut {
  public:
    virtual ~Shortcut() = default;

    std::string Arguments;
    std::string Description;
    std::string HotKey;
    std::string IconLocation;  ///< path, a comma and an index
    std::string TargetPath;
    std::string WorkingDirectory;
    int WindowStyle = 1;

    /// Error 70 or 76 when it can't be written.
    virtual void Save() = 0;
};

class WScriptShell {
  public:
    virtual ~WScriptShell() = default;
    /// `file` is a drive path that ends in ".lnk" or ".url". Null when no shortcut can be made.
    virtual std::unique_ptr<Shortcut> CreateShortcut(const std::string& file) = 0;
};

/// The text of a ".url" file, the same on every host: an address, without line ends.
std::string addressFileText(const std::string& address);

}  // namespace velmora
