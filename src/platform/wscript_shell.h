// The script shell: shortcuts (a .lnk or .url file on Windows, a script in the file manager's
// folder or a desktop entry on Linux), and programs whose output is read.
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

/// A program that was started, with its output.
class WshExec {
  public:
    virtual ~WshExec() = default;
    /// All that the program still writes to its standard output, in UTF-8 with CR LF as line ends.
    /// A program that writes nothing for two seconds, or has written for ten, or 16 MB, is ended;
    /// what it has written until then is the text.
    virtual std::string ReadAll() = 0;
};

class WScriptShell {
  public:
    virtual ~WScriptShell() = default;
    /// `file` is a drive path that ends in ".lnk" or ".url". Null when no shortcut can be made.
    virtual std::unique_ptr<Shortcut> CreateShortcut(const std::string& file) = 0;
    /// Starts a program without a window. Linux runs the program of that name, and for "netstat"
    /// what the host has to list connections. Error 53 when there is none, 70 when it can't be
    /// started.
    virtual std::unique_ptr<WshExec> Exec(const std::string& command) = 0;
};

/// The text of a ".url" file, the same on every host: an address, without line ends.
std::string addressFileText(const std::string& address);

}  // namespace velmora
