// Shortcuts of the system's shell, and programs whose output is read.
#pragma once

#include <memory>
#include <string>

#include "platform/windows/system/com_apartment.h"
#include "platform/wscript_shell.h"

namespace velmora::windows {

class WindowsWScriptShell final : public WScriptShell {
  public:
    std::unique_ptr<Shortcut> CreateShortcut(const std::string& file) override;
    std::unique_ptr<WshExec> Exec(const std::string& command) override;

  private:
    ComApartment com_;
};

}  // namespace velmora::windows
