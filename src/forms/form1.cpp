#include "forms/form1.h"

#include <span>

#include "forms/label_colours.h"
#include "forms/start_pause.h"

namespace velmora {

namespace {

// The caption and tool-tip pairs of the labels under the watch list, by index.
constexpr std::array<std::array<const char*, 2>, 5> drivePathLabels{{
    {"(..)", "Add a Drive/Path to list"},
    {"Remove", "Remove Selected  from List"},
    {"Clear", "Attempts to clear all from listing"},
    {"Select Drive", "Select Drive for Watch"},
    {"Show/Refresh Drive(s)", "Show or Refresh System Aware Drive Paths"},
}};

std::vector<ToolBar::Button> toolBarButtons() {
    return {
        {start_pause::start, "Activate/Pause the Velmora Timer to check drive/path(s)"},
        {"Wizard Settings", "A Wizard to assist in understanding and configuring program options"},
        {"Adv. Info", "Advance Information on Drive/Path(s) attributes"},
        // These entries do nothing; the menu that pops up is mnuFunc.
        {.Caption = "Functions",
         .ToolTipText = "Additional Functions",
         .ButtonMenus = {{"Defrag", "Defrag Utility"},
                         {"Recycle", "Recycle Bin"},
                         {"Work", "Work"}}},
        {"View -", "Toggle View"},
        {"Help", "Help"},
    };
}

using label_colour::deepBlue;
using label_colour::orange;

}  // namespace

WatchListFrame::WatchListFrame(Form& form)
    : Frame8(form, "Frame8"),
      ListView1(form, "ListView1"),
      lblDP{{{form, "lblDP", drivePathLabels[0][0], 0},
             {form, "lblDP", drivePathLabels[1][0], 1},
             {form, "lblDP", drivePathLabels[2][0], 2},
             {form, "lblDP", drivePathLabels[3][0], 3},
             {form, "lblDP", drivePathLabels[4][0], 4}}},
      cmdLVAdd(form, "cmdLVAdd", "Add Drive/Path"),
      cmdLVRemove(form, "cmdLVRemove", "Remove"),
      cmdClear(form, "cmdClear", "Clear"),
      Text1(form, "Text1"),
      lstInfo(form, "lstInfo"),
      picBuffer(form, "picBuffer") {
    for (std::size_t i = 0; i < lblDP.size(); ++i) {
        lblDP[i].setToolTipText(drivePathLabels[i][1]);
        lblDP[i].setForeColor(orange);
        lblDP[i].setBackColor(deepBlue);
    }
    for (Control* hidden : std::initializer_list<Control*>{&Text1, &lstInfo, &picBuffer}) {
        hidden->setVisible(false);
    }
    Frame8.setBounds({0, 600, 8030, 2700});
    ListView1.setTag("Listed Drive/Path(s)");
    ListView1.setBounds({120, 240, 7880, 2100});
}

OptionsPanel::OptionsPanel(Form& form)
    : txtSpace(form, "txtSpace"),
      OpDriv{{{form, "OpDriv", "By Size in (KB)", 0}, {form, "OpDriv", "By %", 1}}},
      chkDrive(form, "chkDrive", "Set Size Individually"),
      Slider1(form, "Slider1", 0, 100, 1, 5),
      UpDownSpace(form, "UpDownSpace", 0, 2147483647, 0),
      lblMB(form, "lblMB"),
      lblGB(form, "lblGB"),
      Timer1(form, "Timer1", 5000, true),
      txtTime(form, "txtTime"),
      UpDown1(form, "UpDown1", 0, 2147483647, 0),
      DTPInterval(form, "DTPInterval", timeOfDay(0, 1)),
      UpDown2(form, "UpDown2", 0, 2147483647, 0),
      chkCustTime(form, "chkCustTime", "Enable Custom Time"),
      DTTime1{{{form, "DTTime1", timeOfDay(8, 0), 0}, {form, "DTTime1", timeOfDay(17, 0), 1}}},
      TimerCust(form, "TimerCust", 60000, true),
      lstAct(form, "lstAct", std::span(actionCaptions)),
      lstEvt{form,
             "lstEvt",
             {"No Change in Free Space Size (Stagnancy)", "Change in Free Space Size ",
              "Change in Amount of File/Folder(s)", "Modification to file(s)",
              "Listed Drive/Path become N/A"}},
      chkSeq(form, "chkSeq", "Sequential Action") {
    OptionButton::group({&OpDriv[0], &OpDriv[1]});
    Slider1.setVisible(false);
    chkCustTime.setToolTipText(
        "This options allows the program to perform watch within the period of time.");
    chkSeq.setToolTipText(
        "This sets the program to act (move, delete, send to bin) on the Listed Files one at time "
        "on each checking period");
}

Form1::Form1()
    : Form("Form1", "Velmora"),
      WatchListFrame(static_cast<Form&>(*this)),
      OptionsPanel(static_cast<Form&>(*this)),
      TabStrips(static_cast<Form&>(*this)),
      SpecifiedPanels(static_cast<Form&>(*this)),
      AlertPanel(static_cast<Form&>(*this)),
      ConfigPanel(static_cast<Form&>(*this)),
      OverviewPanel(static_cast<Form&>(*this)),
      Form1Menus(static_cast<Form&>(*this)),
      Toolbar1{*this, "Toolbar1", toolBarButtons()} {
    Toolbar1.setBounds({0, 0, 8030, 600});
    Command6.setToolTipText("End Program");
    Command7.setVisible(false);
    fraTrayNote.setVisible(false);
    fraHint.setVisible(false);
}

}  // namespace velmora
