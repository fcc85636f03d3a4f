// The main window: nearly all of the program's state. The rows of ListView1 are the watch list,
// LVAlert the alert list, txtAlert the journal, and the check boxes, check lists and text boxes are
// the settings; there is no other copy.
#pragma once

#include <array>

#include "controls/bars.h"
#include "controls/form.h"
#include "controls/picture_box.h"
#include "forms/form1_menus.h"
#include "forms/form1_panels.h"

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
    CommandButton cmdPause{*this, "cmdPause", "Start Watch"};
    CommandButton cmdAdv{*this, "cmdAdv", "Adv. Data"};
    CommandButton Command1{*this, "Command1", "Show/Refresh Drive(s)"};
    CommandButton Command6{*this, "Command6", " (X)"};
    CommandButton Command7{*this, "Command7"};
};

/// Places in lstAct.
namespace act {
inline constexpr int alert = 0;
inline constexpr int move = 1;
inline constexpr int remove = 2;
inline constexpr int recycle = 3;
inline constexpr int autoMove = 4;
inline constexpr int sound = 5;
inline constexpr int emptyBin = 6;
inline constexpr int run = 7;
inline constexpr int mail = 8;
inline constexpr int cleaner = 9;
inline constexpr int pause = 10;
inline constexpr int progressDialog = 11;
}  // namespace act

/// Places in lstEvt.
namespace evt {
inline constexpr int stagnancy = 0;
inline constexpr int change = 1;
inline constexpr int quantity = 2;
inline constexpr int modification = 3;
inline constexpr int unavailable = 4;
}  // namespace evt

/// Buttons of Toolbar1 that are told by their place; all others are told by their caption.
namespace tool {
inline constexpr int startPause = 1;
inline constexpr int view = 5;
}  // namespace tool

}  // namespace velmora
