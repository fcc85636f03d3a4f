// Shortcuts of this host: a script that the file manager offers for the selected files, or a file
// with an address. Programs whose output is read.
#pragma once

#include <memory>
#include <string>

#include "platform/linux/drives/volumes.h"
#include "platform/wscript_shell.h"

namespace velmora::linuxhost {

class LinuxWScriptShell final : public WScriptShell {
  public:
    explicit LinuxWScriptShell(Volumes& volumes) : volumes_(volumes) {}

    /// A ".lnk" becomes a script of that name that starts the target with the arguments and the
    /// selected files, in the folder where the file manager starts it: their names may be relative
    /// to that, so the working directory is passed over, as are hot key, icon and window style.
    std::unique_ptr<Shortcut> CreateShortcut(const std::string& file) override;
    std::unique_ptr<WshExec> Exec(const std::string& command) override;

  private:
    Volumes& volumes_;
};

}  // namespace velmora::linuxhost
