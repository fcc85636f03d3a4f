// The main window: nearly all of the program's state. The rows of ListView1 are the watch list,
// LVAlert is the alert list, txtAlert the journal, and the check boxes, check lists and text boxes
// are the settings; there is no other copy.
#pragma once

#include <array>

#include "controls/animation.h"
#include "controls/bars.h"
#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/list_view.h"
#include "controls/pickers.h"
#include "controls/text_box.h"
#include "controls/timer.h"

namespace velmora {

class Form1 : public Form {
  public:
    Form1();

    // Watch list.
    ListView ListView1{*this, "ListView1"};
    std::array<Label, 5> lblDP;
    CommandButton cmdLVAdd{*this, "cmdLVAdd", "Add Drive/Path"};
    CommandButton cmdLVRemove{*this, "cmdLVRemove", "Remove"};
    CommandButton cmdClear{*this, "cmdClear", "Clear"};
    TextBox Text1{*this, "Text1"};  ///< in-place entry of a row's trigger; hidden until used
    ListBox lstInfo{*this, "lstInfo"};  ///< scratch list of the drive routines; never shown

    // The minimum space for all rows.
    TextBox txtSpace{*this, "txtSpace"};  ///< KB or percent, as OpDriv says
    std::array<OptionButton, 2> OpDriv;
    CheckBox chkDrive{*this, "chkDrive", "Set Size Individually"};
    Slider Slider1{*this, "Slider1", 0, 100, 1, 5};
    UpDown UpDownSpace{*this, "UpDownSpace", 0, 2147483647, 0};
    Label lblMB{*this, "lblMB"};
    Label lblGB{*this, "lblGB"};

    // The check.
    Timer Timer1{*this, "Timer1", 5000, true};
    TextBox txtTime{*this, "txtTime"};  ///< the interval in seconds, as the tick last wrote it
    DatePicker DTPInterval;
    StatusBar StatusBar1{*this, "StatusBar1", 3};  ///< 1 activity, 2 detail, 3 counter
    ToolBar Toolbar1;
    CommandButton cmdPause{*this, "cmdPause", "Start Watch"};
    TextBox txtDrive{*this, "txtDrive"};  ///< the specified path
    ListBox lstAct;  ///< what is to happen on a shortage
    ListBox lstEvt;  ///< which events are looked for
    CheckBox chkOnTopMonitor{*this, "chkOnTopMonitor", "Show Window on Monitoring"};
    CheckBox chkSaveSet{*this, "chkSaveSet", "Auto Save Settings"};
    CheckBox chkLogTimeMon{*this, "chkLogTimeMon", "Log time when auto checking"};

    // Alerts and log.
    ListView LVAlert{*this, "LVAlert"};
    Label lblE{*this, "lblE", "Limit Alerts to:"};
    TextBox txtAmt{*this, "txtAmt", "50"};
    UpDown UpDown3{*this, "UpDown3", 0, 1000, 50, &txtAmt};
    TextBox txtAlert{*this, "txtAlert"};  ///< the journal, newest first
    CheckBox chkAutoSave{*this, "chkAutoSave", "Auto Save Log to file"};
    Label lblLog{*this, "lblLog"};  ///< caption: full path of the log file
    CommandButton cmdAddIcon{*this, "cmdAddIcon", "Add Icon"};

    CheckBox chkLog{*this, "chkLog", "Show Log "};
    CheckBox chkNTLog{*this, "chkNTLog", "Set Alerts to System Events Log if Avail.(NT only)"};

    // Watch control.
    CheckBox chkCustTime{*this, "chkCustTime", "Enable Custom Time"};
    std::array<DatePicker, 2> DTTime1;  ///< start and end of the custom watch time
    Timer TimerCust{*this, "TimerCust", 60000, true};
    UpDown UpDown1{*this, "UpDown1", 0, 2147483647, 0};
    UpDown UpDown2{*this, "UpDown2", 0, 2147483647, 0};

    // What the user specified.
    ListView LVFile{*this, "LVFile"};
    ComboBox cboFile{*this, "cboFile"};
    TextBox txtFileType{*this, "txtFileType"};
    std::array<TextBox, 2> txtAudio;

    // Options.
    CheckBox chkUpdate{*this, "chkUpdate", "Automatically Check for updates"};
    CheckBox chkStartUp{*this, "chkStartUp", "Run on Start Up"};
    CheckBox chkSystray{*this, "chkSystray", "Show in Systray"};
    CommandButton Command8{*this, "Command8", "Save Set"};

    // Panels of the main tabs; the last is the overview.
    std::array<Frame, 5> frmSp;

    // Overview.
    Label lblAppStart{*this, "lblAppStart"};
    Label lblSpaceChangeRate{*this, "lblSpaceChangeRate"};
    Label lblHighRatedAlerts{*this, "lblHighRatedAlerts"};
    Label lblDriveOnMonitor{*this, "lblDriveOnMonitor"};
    Label lblTimesMonitor{*this, "lblTimesMonitor"};
    Label lblAlertsRaised{*this, "lblAlertsRaised"};
    Timer tmrStat{*this, "tmrStat", 6000, true};
    Animation Animation1{*this, "Animation1"};

    // Menus.
    MenuItem mnuLstV{*this, "mnuLstV"};  ///< the context menu of ListView1
    MenuItem mnuShowAl{*this, "mnuShowAl", "Show Alert Dialog"};
    MenuItem mnuShowAlert{*this, "mnuShowAlert", "Show Alert Dialog"};
    MenuItem mnuPause{*this, "mnuPause", "Pause"};
    MenuItem mnuComments{*this, "mnuComments", "Send Comments"};
    MenuItem mnuExit{*this, "mnuExit", "Exit"};
    CommandButton Command6{*this, "Command6", " (X)"};

  private:
    void nameLabels();
    void setDesignValues();
};

/// Places in lstAct that the check itself knows.
namespace act {
inline constexpr int progressDialog = 11;
}

}  // namespace velmora
