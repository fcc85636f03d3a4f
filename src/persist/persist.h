// The whole of what the program keeps on the machine and asks of the system's shell, built as one
// part: the settings file, the shell's links, and the options that write into the registry.
#pragma once

#include "forms/forms.h"
#include "persist/options.h"
#include "persist/recovery/hint_note.h"
#include "persist/recovery/settings_recovery.h"
#include "persist/registry.h"
#include "persist/settings_file.h"
#include "persist/shell_links.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

class Persist {
  public:
    /// Connects the options' handlers to the forms. The three must outlive it.
    Persist(Forms& forms, Platform& platform, Host& host);

    SettingsFile& settingsFile() { return settingsFile_; }
    SettingsRecovery& recovery() { return recovery_; }
    HintNote& hintNote() { return hintNote_; }
    ShellLinks& shellLinks() { return shellLinks_; }

  private:
    SettingsFile settingsFile_;
    SettingsRecovery recovery_;
    HintNote hintNote_;
    ShellLinks shellLinks_;
    Registry registry_;
    Options options_;
};

}  // namespace velmora
