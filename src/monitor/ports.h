// What the watch list and the check ask of the main window's side, which lies above them.
#pragma once

#include <string>

#include "controls/list_view.h"

namespace velmora {

/// The system's icons in the rows of the watch list.
class RowIcons {
  public:
    virtual ~RowIcons() = default;
    virtual void prcRefreshRowIcon(ListItem& row) = 0;
};

/// The icon in the notification area.
class Tray {
  public:
    virtual ~Tray() = default;
    /// Shows the icon of that form, with the tip of `Globals::sTrayTip`.
    virtual void modifyIcon(const std::string& form) = 0;
    /// Shows another tip.
    virtual void prcToolTipText(const std::string& text) = 0;
};

}  // namespace velmora
