// Parts of the program behind the ports of those that ask for them.
#pragma once

#include <cstdint>
#include <string>

#include "alerts/ports.h"
#include "monitor/ports.h"
#include "persist/settings_file.h"
#include "persist/shell_links.h"
#include "shell/about_box.h"
#include "shell/program_lock.h"
#include "shell/recycle_bin_view.h"
#include "shell/shell_ports.h"
#include "shell/tray_icon.h"

namespace velmora {

/// The settings file behind the port of whoever saves and loads settings.
class SettingsPort final : public SettingsStore {
  public:
    SettingsPort(Forms& forms, Platform& platform, Host& host) : file_(forms, platform, host) {}
    void prcSettings(std::int16_t bSet) override { file_.prcSettings(bSet); }

  private:
    SettingsFile file_;
};

/// Dialogs of the shell behind the ports of the main window's commands.
class ShellPorts final : public LockDialog,
                         public SystrayIcon,
                         public AboutDialog,
                         public RecycleBinWindow {
  public:
    ShellPorts(Forms& forms, TrayIcon& tray, AboutBox& aboutBox, RecycleBinView& recycleBin)
        : forms_(forms), tray_(tray), aboutBox_(aboutBox), recycleBin_(recycleBin) {}
    void prcSrvFrm() override { velmora::prcSrvFrm(forms_); }
    void prcAddSystray(std::int16_t action, const std::string& text) override {
        tray_.prcAddSystray(action, text);
    }
    void showAbout() override { aboutBox_.showAbout(); }
    void RecycleBin() override { recycleBin_.RecycleBin(); }

  private:
    Forms& forms_;
    TrayIcon& tray_;
    AboutBox& aboutBox_;
    RecycleBinView& recycleBin_;
};

/// The system's properties sheets behind the port of the file list.
class PropertiesPort final : public FileProperties {
  public:
    explicit PropertiesPort(ShellLinks& shellLinks) : shellLinks_(shellLinks) {}
    void prcShowProperties(const std::string& path, const std::string& owner) override {
        shellLinks_.prcShowProperties(path, owner);
    }

  private:
    ShellLinks& shellLinks_;
};

}  // namespace velmora
