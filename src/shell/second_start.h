// What a second start of the program hands over to this one: its paths, and the user's wish to see
// the program.
#pragma once

#include <string>

#include "forms/forms.h"
#include "monitor/command_line.h"
#include "platform/platform.h"
#include "platform/user32.h"

namespace velmora {

class SecondStart {
  public:
    SecondStart(Forms& forms, Application& app, CommandLine& commandLine, User32& user32)
        : forms_(forms), app_(app), commandLine_(commandLine), user32_(user32) {}

    /// Takes the paths of a command line into the specified files and brings the main window to the
    /// front, or the lock's window while the program is locked.
    void take(const std::string& command);
    void comeToFront();

  private:
    Forms& forms_;
    Application& app_;
    CommandLine& commandLine_;
    User32& user32_;
};

}  // namespace velmora
