#include "forms/form1.h"

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
        {"Start", "Activate/Pause the Velmora Timer to check drive/path(s)"},
        {"Wizard Settings",
         "A Wizard to assist in understanding and configuring program options"},
        {"Adv. Info", "Advance Information on Drive/Path(s) attributes"},
        {"Functions", "Additional Functions"},
        {"View -", "Toggle View"},
        {"Help", "Help"},
    };
}

DateTime timeOfDay(int hour, int minute) {
    DateTime value;
    value.hour = hour;
    value.minute = minute;
    return value;
}

}  // namespace

Form1::Form1()
    : Form("Form1", "Velmora"),
      lblDP{{{*this, "lblDP", drivePathLabels[0][0], 0},
             {*this, "lblDP", drivePathLabels[1][0], 1},
             {*this, "lblDP", drivePathLabels[2][0], 2},
             {*this, "lblDP", drivePathLabels[3][0], 3},
             {*this, "lblDP", drivePathLabels[4][0], 4}}},
      OpDriv{{{*this, "OpDriv", "By Size in (KB)", 0}, {*this, "OpDriv", "By %", 1}}},
      DTPInterval{*this, "DTPInterval", timeOfDay(0, 1)},
      Toolbar1{*this, "Toolbar1", toolBarButtons()},
      lstAct{*this,
             "lstAct",
             {"Alert on Space Shortage", "Move Sp. Files to Sp. Path", "Delete Specified Files",
              "Send Specified Files to Recycle Bin",
              "Auto Move Files to Largest Avail. Path-Space", "Sound Audio Alert",
              "Empty Recycle Bin", "Run specified programs(s)", "Notify specified Email(s)",
              "Auto Run Clean Manager", "Pause Velmora on Alert ",
              "Show progress dialog on checking!"}},
      lstEvt{*this,
             "lstEvt",
             {"No Change in Free Space Size (Stagnancy)", "Change in Free Space Size ",
              "Change in Amount of File/Folder(s)", "Modification to file(s)",
              "Listed Drive/Path become N/A"}},
      DTTime1{{{*this, "DTTime1", timeOfDay(8, 0), 0}, {*this, "DTTime1", timeOfDay(17, 0), 1}}},
      txtAudio{{{*this, "txtAudio", "", 0}, {*this, "txtAudio", "", 1}}},
      frmSp{{{*this, "frmSp", "", 0},
             {*this, "frmSp", "", 1},
             {*this, "frmSp", "", 2},
             {*this, "frmSp", "", 3},
             {*this, "frmSp", "", 4}}} {
    nameLabels();
    setDesignValues();
}

void Form1::setDesignValues() {
    OptionButton::group({&OpDriv[0], &OpDriv[1]});
    Slider1.setVisible(false);
    Text1.setVisible(false);
    lstInfo.setVisible(false);
    ListView1.setBounds({120, 240, 7880, 2100});
    Command6.setToolTipText("End Program");
    LVAlert.addColumn({"Rating", 1000});
    LVAlert.addColumn({"Time/Date", 1800});
    LVAlert.addColumn({"Action Taken", 5000});
    LVAlert.addColumn({"Alerts", 1000});
    for (const char* caption : {"File/Folder(s)", "Size", "File Path Location", "Last Accessed",
                                "Modified", "Created", "Type"}) {
        LVFile.addColumn({caption});
    }
    // Ticked from the start, without a click.
    chkLog.setDesignValue(1);
    chkSystray.setDesignValue(1);
    for (std::size_t i = 1; i < frmSp.size(); ++i) frmSp[i].setVisible(false);
    txtFileType.setToolTipText(
        "Specified File Type(s) deemed acceptable to be used to free space by Automatic Action "
        "Option");
    chkCustTime.setToolTipText(
        "This options allows the program to perform watch within the period of time.");
}

void Form1::nameLabels() {
    for (std::size_t i = 0; i < lblDP.size(); ++i) {
        lblDP[i].setToolTipText(drivePathLabels[i][1]);
    }
}

}  // namespace velmora
