// The tab strips of the main window and what is on their panels: specified files, programs and
// paths, alerts and log, settings, overview.
#pragma once

#include <array>

#include "controls/animation.h"
#include "controls/buttons.h"
#include "controls/list_box.h"
#include "controls/list_view.h"
#include "controls/pickers.h"
#include "controls/text_box.h"
#include "controls/timer.h"

namespace velmora {

/// A label that acts as a button: orange letters, which brighten while it is pressed.
struct LabelButtonText {
    const char* caption;
    const char* toolTip = "";
};

/// The two strips and their panels.
struct TabStrips {
    explicit TabStrips(Form& form);

    std::array<Label, 5> lblTab;      ///< main strip; a label's tool-tip is the strip's heading
    Label lblTabCap;                  ///< the heading
    std::array<Label, 3> lblSpectab;  ///< inner strip of the first panel
    std::array<Frame, 5> frmSp;       ///< panels of the main strip; the last is the overview
    std::array<Frame, 3> fr;          ///< panels of the inner strip
    Frame Frame5;                     ///< holds the strip; hidden in the compact view
    Frame Frame1;                     ///< holds the panel; hidden in the compact view
};

/// What the user specified: files, programs, the path to move to.
struct SpecifiedPanels {
    explicit SpecifiedPanels(Form& form);

    ListView LVProg;
    ComboBox cboProg;
    /// Buttons of LVProg, of which the fifth is a picture, and those of the program's updates.
    std::array<Label, 7> Label5;
    CommandButton cmdPAdd;
    TextBox txtDrive;  ///< the specified path
    CommandButton cmdFolder;
    TextBox txtFileType;
    ListView LVFile;
    ComboBox cboFile;
    std::array<Label, 9> lblSF;  ///< buttons of LVFile; index 7 is a picture
    CommandButton Command2;      ///< "Add"; the older buttons that the labels replace
    CommandButton cmdMove;
    CommandButton cmdMoveAll;
    CommandButton cmdDelete;
    CommandButton cmdDeleteAll;
    Label lblFolder;
};

/// Alert list and journal.
struct AlertPanel {
    explicit AlertPanel(Form& form);

    ListView LVAlert;
    Label lblE;
    TextBox txtAmt;
    UpDown UpDown3;
    TextBox txtAlert;  ///< the journal, newest first
    std::array<Label, 4> lblAl;
    Label lblLog;  ///< caption: full path of the log file
    CheckBox chkLog;
    CheckBox chkAutoSave;
    CheckBox chkLogTimeMon;
    CheckBox chkNTLog;
    CommandButton cmdAddIcon;
};

/// The program's own behaviour.
struct ConfigPanel {
    explicit ConfigPanel(Form& form);

    CheckBox chkSaveSet;
    CheckBox chkUpdate;
    Label lblNewVer;  ///< that there is a newer version
    CheckBox chkStartUp;
    CheckBox chkSystray;
    CheckBox chkOnTop;
    CheckBox chkOnTopMonitor;
    CheckBox chkSafeM;
    std::array<TextBox, 2> txtAudio;
    std::array<CommandButton, 2> cmdAudio;
    std::array<CommandButton, 2> cmdPlay;
    CommandButton cmdSnd;
    CommandButton Command8;
    CommandButton Command9;
};

/// The figures of the watch.
struct OverviewPanel {
    explicit OverviewPanel(Form& form);

    Label lblAppStart;
    Label lblSpaceChangeRate;
    Label lblHighRatedAlerts;
    Label lblDriveOnMonitor;
    Label lblTimesMonitor;
    Label lblAlertsRaised;
    Timer tmrStat;
    Animation Animation1;
    Label lblAbout;
};

}  // namespace velmora
