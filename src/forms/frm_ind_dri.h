// The view of one drive or path of the watch list.
#pragma once

#include <array>
#include <string>

#include "controls/bars.h"
#include "controls/buttons.h"
#include "controls/drawn_picture.h"
#include "controls/form.h"
#include "controls/gauges.h"
#include "controls/list_box.h"
#include "controls/list_view.h"
#include "controls/pickers.h"
#include "controls/progress_bar.h"
#include "controls/text_box.h"
#include "controls/timer.h"

namespace velmora {

class FrmIndDri : public Form {
  public:
    /// Heights of the window in twips, between which `cmdToggle` switches.
    static constexpr int fullHeight = 7815;
    static constexpr int lowHeight = 4000;

    FrmIndDri() : Form("frmIndDri", "Drive Settings - Karvelle Velmora") {
        setSize(6600, fullHeight);
        ListView1.addColumn({"Properties"});
        ListView1.addColumn({"Value"});
        Check1.setToolTipText(
            "This automatically will update the meter info by interval while the window is open");
        lstVolumes.setVisible(false);
        OptionButton::group({&Option1[0], &Option1[1]});
    }

    ComboBox Combo1{*this, "Combo1"};  ///< the paths of the watch list; its text is the one shown
    ListBox lstVolumes{*this, "lstVolumes"};
    CheckBox Check1{*this, "Check1", "Auto &Refresh Information"};
    DrawnPicture picPie{*this, "picPie"};
    Label lblP{*this, "lblP"};  ///< the drive or path shown and its used share
    ListView ListView1{*this, "ListView1"};
    Slider VScroll1{*this, "VScroll1", 0, 100, 1, 10};  ///< the minimum free space, 100 for none
    TextBox Text1{*this, "Text1"};                      ///< the same as percent or KB
    std::array<OptionButton, 2> Option1{
        {{*this, "Option1", "Percentage", 0}, {*this, "Option1", "Size (KB)", 1}}};
    Label Label1{*this, "Label1", "Set Minimum Space Alert"};
    Meter2 VMeter1{*this, "VMeter1"};                 ///< the trigger, 50 for none
    Meter2 VMeter2{*this, "VMeter2"};                 ///< the free space, 50 for none
    ProgressBar ProgressBar1{*this, "ProgressBar1"};  ///< the used share in percent
    CommandButton Command3{*this, "Command3", "&Apply Changes"};
    CommandButton cmdC{*this, "cmdC", "&Cancel"};
    CommandButton cmdToggle{*this, "cmdToggle", "Toggle View"};
    Timer Timer1{*this, "Timer1", 10000, false};  ///< refreshes what is shown
};

}  // namespace velmora
