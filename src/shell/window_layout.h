// The main window's size: its full and its compact view, its least measures, and the controls that
// follow it. All measures are twips.
#pragma once

#include "forms/form1.h"

namespace velmora {

class WindowLayout {
  public:
    /// Where a panel comes when its tab is selected.
    static constexpr Bounds panelPlace{1320, 3240, 6615, 4935};

    /// Connects the resize step to the window.
    explicit WindowLayout(Form1& form1);
    WindowLayout(const WindowLayout&) = delete;
    WindowLayout& operator=(const WindowLayout&) = delete;

    /// Goes from the full view to the compact one, and from any other height to the full one.
    void toggleView();
    /// The resize step: raises the window to its least size and lets the controls follow. An error
    /// ends it silently.
    void Form_Resize();

  private:
    void keepLeastSize();
    void placeHead();
    void placePanels();
    void placeAlertList();
    int compactHeight() const;

    Form1& form1_;
};

}  // namespace velmora
