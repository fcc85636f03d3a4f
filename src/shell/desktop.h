// What the main window's side provides to the folders below it: the icon in the notification area,
// the window's effects, and the system's icons in rows.
#pragma once

#include "platform/platform.h"
#include "platform/surface.h"
#include "shell/row_icons.h"
#include "shell/tray_icon.h"
#include "shell/window_effects.h"

namespace velmora {

class Desktop {
  public:
    /// Connects the handlers to the forms. All of the arguments must outlive it.
    Desktop(Forms& forms, Platform& platform, const Surface& surface)
        : tray_(forms, platform.clock, surface.host, surface.notifyArea, surface.user32),
          windowEffects_(forms.form1, forms.globals, surface.user32),
          rowIcons_(forms.form1.picBuffer, surface.shellIcons) {}

    TrayIcon& tray() { return tray_; }
    WindowEffects& windowEffects() { return windowEffects_; }
    RowIcons& rowIcons() { return rowIcons_; }

  private:
    TrayIcon tray_;
    WindowEffects windowEffects_;
    SystemRowIcons rowIcons_;
};

}  // namespace velmora
