// The two tab strips: which panel a label shows, and how the labels look.
#pragma once

#include "forms/form1.h"
#include "forms/frm_notify.h"
#include "shell/window_layout.h"

namespace velmora {

class TabSelection {
  public:
    /// Connects the labels.
    TabSelection(Form1& form1, FrmNotify& frmNotify, WindowLayout& layout);
    TabSelection(const TabSelection&) = delete;
    TabSelection& operator=(const TabSelection&) = delete;

    /// Shows the panel of main tab `index`. An index of 5, which no label has, opens the mail
    /// settings over the overview; any other shows no panel.
    void lblTab_Click(int index);
    /// Shows the panel of inner tab `index`.
    void lblSpectab_Click(int index);

  private:
    void clearTabs();
    Frame* panelOf(int index);
    void showPanel(Frame& panel);

    Form1& form1_;
    FrmNotify& frmNotify_;
    WindowLayout& layout_;
};

/// Whether a label of the main strip, or of the inner one, has the colours of the selected tab.
bool isSelectedTab(const Label& label);
bool isSelectedInnerTab(const Label& label);

}  // namespace velmora
