// What the main window's commands ask of other windows. Each port does nothing by itself; the
// program puts the real ones in place.
#pragma once

#include <cstdint>
#include <string>

namespace velmora {

class LockDialog {
  public:
    virtual ~LockDialog() = default;
    /// Makes the dialog say what the present state of the lock means.
    virtual void prcSrvFrm() {}
};

class SystrayIcon {
  public:
    virtual ~SystrayIcon() = default;
    /// Action 1 puts the icon into the notification area, with `text` as its tip.
    virtual void prcAddSystray(std::int16_t /*action*/, const std::string& /*text*/) {}
};

class AboutDialog {
  public:
    virtual ~AboutDialog() = default;
    virtual void showAbout() {}
};

class RecycleBinWindow {
  public:
    virtual ~RecycleBinWindow() = default;
    /// Shows the view on the recycle bin.
    virtual void RecycleBin() {}
};

}  // namespace velmora
