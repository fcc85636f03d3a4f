// The about box: its drawing turns while it is shown, and a button opens the system's own program
// of information about the machine.
#pragma once

#include <string>

#include "forms/dialogs.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

/// A text of the registry by its key's full path ("HKEY_LOCAL_MACHINE\\..."), with the environment
/// variables put in where it is of the type that names them. False when there is none, and `text`
/// stays as it is.
bool GetKeyValue(Platform& platform, const std::string& path, const std::string& name,
                 std::string& text);

class AboutBox {
  public:
    /// Connects the box's handlers. `version` is the number alone ("1.0.0").
    AboutBox(FrmAbout& frmAbout, Platform& platform, Host& host, const std::string& version);
    AboutBox(const AboutBox&) = delete;
    AboutBox& operator=(const AboutBox&) = delete;

    void showAbout();
    /// Runs the system information program, or says in a box that there is none.
    void StartSysInfo();

  private:
    void hideAbout();
    void Timer1_Timer();
    std::string findSysInfo();

    FrmAbout& frmAbout_;
    Platform& platform_;
    Host& host_;
};

}  // namespace velmora
