// The smaller windows: lock, about box, recycle bin view, alert dialog, progress,
// and windows that have no content yet.
#pragma once

#include <array>

#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/list_view.h"
#include "controls/pickers.h"
#include "controls/text_box.h"
#include "controls/timer.h"
#include "forms/label_colours.h"

namespace velmora {

/// The alert dialog.
class DlgAlert : public Form {
  public:
    DlgAlert() : Form("dlgAlert", "Alert Window - Velmora ") {
        setSize(7200, 4200);
        fraAct.setVisible(false);
        label_colour::dressAsButtons(lblAct);
        label_colour::dressAsButtons(lblAl);
    }

    Frame frmCurAlert{*this, "frmCurAlert", "Current Alerts"};
    TextBox Label1{*this, "Label1"};  ///< the dialog's journal; a text box in spite of its name
    Label Label4{*this, "Label4",
                 "It is recommended you free up some space as a preemptive action to prevent the "
                 "free space from reaching zero.  To see options, press Action."};
    Label lblSuggest{*this, "lblSuggest"};            ///< what the chosen option would do
    Frame fraAct{*this, "fraAct", "Action Options"};  ///< visible while the dialog is high enough
    std::array<Label, 5> lblAct{{{*this, "lblAct", "Sorbane", 0},
                                 {*this, "lblAct", "Compress F", 1},
                                 {*this, "lblAct", "Emp. Recyc", 2},
                                 {*this, "lblAct", "Del. File(s)", 3},
                                 {*this, "lblAct", "Move File(s)", 4}}};
    std::array<Label, 5> lblAl{{{*this, "lblAl", "OK", 0},
                                {*this, "lblAl", "Clear", 1},
                                {*this, "lblAl", "Explorer", 2},
                                {*this, "lblAl", "Wizard", 3},
                                {*this, "lblAl", "Action", 4}}};
    CheckBox chkAutoHide{*this, "chkAutoHide", "Auto Hide "};
    CheckBox chkLog{*this, "chkLog", "Translucent"};
    Timer Timer1{*this, "Timer1", 9000, false};  ///< counts down to the dismissal
};

/// Holder of the scan for files that changed. Never shown: nothing starts its interactive watch.
class FrmWaitTest : public Form {
  public:
    FrmWaitTest() : Form("frmWaitTest", "Watch Directory For Changes") {
        cmdStopWatch.setEnabled(false);
    }

    TextBox txChanges{*this, "txChanges"};  ///< the reports, oldest first
    CommandButton cmdSelectDir{*this, "cmdSelectDir", "Select Directory To Watch..."};
    CommandButton cmdStartWatch{*this, "cmdStartWatch", "Start Watching Dir"};
    CommandButton cmdStopWatch{*this, "cmdStopWatch", "Stop Watching Dir"};
    Label lblWatchPath{*this, "lblWatchPath"};
};

/// The form that owns the icon in the notification area; never visible.
class SysWorkSystray : public Form {
  public:
    SysWorkSystray() : Form("sysWorkSystray") {}

    Timer tmrSystray{*this, "tmrSystray", 1000, false};  ///< runs while an alert is pending
};

/// The progress dialog of a check.
class Icon0 : public Form {
  public:
    Icon0() : Form("Icon0", "Velmora") { fraProgress.setVisible(false); }

    Frame fraProgress{*this, "fraProgress"};
    Label lblProgress{*this, "lblProgress"};
    CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};  ///< stops the check between two rows
};

/// The view on the recycle bin and the scheduled tasks. Its icon is that of a paused watch.
class Icon1 : public Form {
  public:
    Icon1() : Form("Icon1", "Velmora") {}

    CommandButton Command1{*this, "Command1", "Recycle Bin"};
    CommandButton Command2{*this, "Command2", "Schedule Tasks"};
};

/// The lock in front of the program's windows.
class FrmLock : public Form {
  public:
    FrmLock() : Form("frmLock", "Program Lock - Velmora") { Text1.setMasked(true); }

    Label lblLock{*this, "lblLock"};  ///< what the present state means
    Label Label1{*this, "Label1", "Password Entry to (Un) Lock program:"};
    TextBox Text1{*this, "Text1"};  ///< password entry
    std::array<CommandButton, 2> Command1{
        {{*this, "Command1", "Lock", 0}, {*this, "Command1", "Close", 1}}};
};

/// The about box.
class FrmAbout : public Form {
  public:
    FrmAbout() : Form("frmAbout", "About Velmora") {}

    Label lblTitle{*this, "lblTitle", "Velmora"};
    Label lblVersion{*this, "lblVersion"};
    Label lblDescription{*this, "lblDescription",
                         "Watches the free space of drives, shares and folders, and acts before a "
                         "disk is full."};
    CommandButton cmdOK{*this, "cmdOK", "OK"};
    CommandButton cmdSysInfo{*this, "cmdSysInfo", "&System Info..."};
    Timer Timer1{*this, "Timer1", 40, false};         ///< runs while the box is shown
    Slider prcDraw{*this, "prcDraw", 0, 359, 1, 10};  ///< the rotation of the drawing in degrees
};

}  // namespace velmora
