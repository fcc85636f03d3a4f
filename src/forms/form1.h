// The main window: nearly all of the program's state. The rows of ListView1 are the watch list,
// LVAlert the alert list, txtAlert the journal, and the check boxes, check lists and text boxes are
// the settings; there is no other copy.
#pragma once

#include <array>

#include "controls/bars.h"
#include "controls/form.h"
#include "controls/picture_box.h"
#include "forms/action_entries.h"
#include "forms/form1_menus.h"
#include "forms/form1_panels.h"
#include "forms/form_numbers.h"

namespace velmora {

/// The watch list and its commands.
struct WatchListFrame {
    explicit WatchListFrame(Form& form);

    Frame Frame8;  ///< holds the list and its buttons
    ListView ListView1;
    std::array<Label, 5> lblDP;
    CommandButton cmdLVAdd;
    CommandButton cmdLVRemove;
    CommandButton cmdClear;
    TextBox Text1;         ///< in-place entry of a row's trigger; hidden until used
    ListBox lstInfo;       ///< scratch list of the drive routines; never shown
    PictureBox picBuffer;  ///< where a row's system icon is drawn; never shown
};

/// What is checked and when, and what is to happen.
struct OptionsPanel {
    explicit OptionsPanel(Form& form);

    TextBox txtSpace;  ///< minimum space for all rows, in KB or percent, as OpDriv says
    std::array<OptionButton, 2> OpDriv;
    CheckBox chkDrive;
    Slider Slider1;
    UpDown UpDownSpace;
    Label lblMB;
    Label lblGB;

    Timer Timer1;
    TextBox txtTime;  ///< the interval in seconds, as the tick last wrote it
    UpDown UpDown1;
    DatePicker DTPInterval;
    UpDown UpDown2;
    CheckBox chkCustTime;
    std::array<DatePicker, 2> DTTime1;  ///< start and end of the custom watch time
    Timer TimerCust;

    ListBox lstAct;  ///< what is to happen on a shortage
    ListBox lstEvt;  ///< which events are looked for
    CheckBox chkSeq;
};

class Form1 : public Form,
              public WatchListFrame,
              public OptionsPanel,
              public TabStrips,
              public SpecifiedPanels,
              public AlertPanel,
              public ConfigPanel,
              public OverviewPanel,
              public Form1Menus {
  public:
    Form1();

    StatusBar StatusBar1{*this, "StatusBar1", 3};  ///< 1 activity, 2 detail, 3 counter
    ToolBar Toolbar1;
    CommandButton cmdPause{*this, "cmdPause", watch_caption::start};
    CommandButton cmdSetUp{*this, "cmdSetUp", "&Set up"};  ///< until something was watched once
    CommandButton cmdAdv{*this, "cmdAdv", "Adv. Data"};
    CommandButton Command1{*this, "Command1", "Show/Refresh Drive(s)"};
    CommandButton Command6{*this, "Command6", " (X)"};
    CommandButton Command7{*this, "Command7"};

    /// Visible until it was read: on a desktop without a notification area a hidden window is
    /// minimised.
    Frame fraTrayNote{*this, "fraTrayNote"};
    Label lblTrayNote{*this, "lblTrayNote",
                      "No icon stands in a notification area: the window is minimised instead of "
                      "hidden."};
    CommandButton cmdTrayNote{*this, "cmdTrayNote", "OK"};  ///< it was read

    /// Visible until it was read: settings that were saved and won't come back as they are.
    Frame fraHint{*this, "fraHint"};
    Label lblHint{*this, "lblHint"};
    CommandButton cmdHint{*this, "cmdHint", "OK"};  ///< it was read
};

}  // namespace velmora
