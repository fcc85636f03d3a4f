#include "forms/form1_panels.h"

#include <utility>

#include "forms/form_numbers.h"
#include "forms/label_colours.h"
#include "forms/specified_columns.h"

namespace velmora {

namespace {

using label_colour::deepBlue;

// Labels of a control array, each with its index, caption and tool-tip.
template <std::size_t N>
std::array<Label, N> labels(Form& form, const char* name,
                            const std::array<LabelButtonText, N>& texts) {
    return [&]<std::size_t... I>(std::index_sequence<I...>) {
        return std::array<Label, N>{Label{form, name, texts[I].caption, static_cast<int>(I)}...};
    }
    (std::make_index_sequence<N>{});
}

template <std::size_t N>
void dressButtons(std::array<Label, N>& labels, const std::array<LabelButtonText, N>& texts) {
    for (std::size_t i = 0; i < N; ++i) {
        labels[i].setToolTipText(texts[i].toolTip);
    }
    label_colour::dressAsButtons(labels);
}

constexpr const char* specifiedOptions = "Specified Options (Files, Paths...)";

constexpr std::array<LabelButtonText, 5> mainTabs{{
    {"Spec.", specifiedOptions},
    {"Options", "Program Options (Program pre-set actions/behaviors)"},
    {"Alerts/Log", "Program Alert Logs"},
    {"Config.", "Configurations (Program UI Settings)"},
    {"Overview", specifiedOptions},
}};

constexpr std::array<LabelButtonText, 3> innerTabs{{
    {"Programs", specifiedOptions},
    {"Path/Space/Types", specifiedOptions},
    {"Files", specifiedOptions},
}};

constexpr std::array<LabelButtonText, 7> programButtons{{
    {"Add"},
    {"Remove"},
    {"Clear All"},
    {"Run"},
    {"..."},
    {"Check Updates"},
    {"Get Updates"},
}};

constexpr std::array<LabelButtonText, 9> fileButtons{{
    {"Add"},
    {"Remove"},
    {"Move", "Move selected file(s) to Specified Path"},
    {"Delete File", "Delete Selected File(s) from Drive/Path"},
    {"Clear All"},
    {"Delete All", "Attempts to delete all file(s) listed"},
    {"Move All", "Attempts to move all file(s) listed"},
    {"..."},
    {"Show Attributes"},
}};

constexpr std::array<LabelButtonText, 4> logButtons{{
    {"Save", "Save the log data"},
    {"Open Log", "Delete the Log file"},
    {"Clear", "Clear the present log"},
    {"Delete Log", "Delete the Log file"},
}};

}  // namespace

TabStrips::TabStrips(Form& form)
    : lblTab(labels(form, "lblTab", mainTabs)),
      lblTabCap(form, "lblTabCap"),
      lblSpectab(labels(form, "lblSpectab", innerTabs)),
      frmSp{{{form, "frmSp", "", 0},
             {form, "frmSp", "", 1},
             {form, "frmSp", "", 2},
             {form, "frmSp", "", 3},
             {form, "frmSp", "", 4}}},
      fr{{{form, "fr", "Programs", 0},
          {form, "fr", "Path/Space/Types", 1},
          {form, "fr", "Files", 2}}},
      Frame5(form, "Frame5"),
      Frame1(form, "Frame1") {
    for (std::size_t i = 0; i < lblTab.size(); ++i) {
        lblTab[i].setToolTipText(mainTabs[i].toolTip);
        lblTab[i].setForeColor(0xC0C0C0);
        lblTab[i].setBackColor(deepBlue);
    }
    for (std::size_t i = 0; i < lblSpectab.size(); ++i) {
        lblSpectab[i].setToolTipText(innerTabs[i].toolTip);
        lblSpectab[i].setForeColor(deepBlue);
        lblSpectab[i].setBackColor(0xE0E0E0);
    }
    lblTabCap.setBounds({1320, 2900, 6210, 255});
    for (Frame& panel : frmSp) panel.setBounds({1320, 3240, 6615, 4935});
    for (std::size_t i = 1; i < frmSp.size(); ++i) frmSp[i].setVisible(false);
    for (std::size_t i = 1; i < fr.size(); ++i) fr[i].setVisible(false);
}

SpecifiedPanels::SpecifiedPanels(Form& form)
    : LVProg(form, "LVProg"),
      cboProg(form, "cboProg"),
      Label5(labels(form, "Label5", programButtons)),
      cmdPAdd(form, "cmdPAdd", "Add"),
      txtDrive(form, "txtDrive"),
      cmdFolder(form, "cmdFolder", "..."),
      txtFileType(form, "txtFileType"),
      LVFile(form, "LVFile"),
      cboFile(form, "cboFile"),
      lblSF(labels(form, "lblSF", fileButtons)),
      Command2(form, "Command2", "Add"),
      cmdMove(form, "cmdMove", "Move"),
      cmdMoveAll(form, "cmdMoveAll", "Move All"),
      cmdDelete(form, "cmdDelete", "Delete File"),
      cmdDeleteAll(form, "cmdDeleteAll", "Delete All"),
      lblFolder(form, "lblFolder", "Specified Path") {
    dressButtons(Label5, programButtons);
    dressButtons(lblSF, fileButtons);
    cmdMove.setToolTipText(lblSF[file_button::move].ToolTipText());
    cmdDelete.setToolTipText(lblSF[file_button::deleteFile].ToolTipText());
    cmdDeleteAll.setToolTipText(lblSF[file_button::deleteAll].ToolTipText());
    cmdMoveAll.setToolTipText(lblSF[file_button::moveAll].ToolTipText());
    addProgramColumns(LVProg);
    addFileColumns(LVFile);
    cboProg.setToolTipText("Listing of File(s) to be executed on Minimum Space Trigger");
    cboFile.setToolTipText("Listing of File(s) to be used to Free Space");
    txtDrive.setToolTipText("The Folder/Path to Move File to On Triggered Action");
    txtFileType.setToolTipText(
        "Specified File Type(s) deemed acceptable to be used to free space by Automatic Action "
        "Option");
}

AlertPanel::AlertPanel(Form& form)
    : LVAlert(form, "LVAlert"),
      lblE(form, "lblE", "Limit Alerts to:"),
      txtAmt(form, "txtAmt", "50"),
      UpDown3(form, "UpDown3", 0, 1000, 50, &txtAmt),
      txtAlert(form, "txtAlert"),
      lblAl(labels(form, "lblAl", logButtons)),
      lblLog(form, "lblLog"),
      chkLog(form, "chkLog", "Show Log "),
      chkAutoSave(form, "chkAutoSave", "Auto Save Log to file"),
      chkLogTimeMon(form, "chkLogTimeMon", "Log time when auto checking"),
      chkNTLog(form, "chkNTLog", "Set Alerts to System Events Log if Avail.(NT only)"),
      cmdAddIcon(form, "cmdAddIcon", "Add Icon") {
    dressButtons(lblAl, logButtons);
    LVAlert.setTag("Alerts");
    LVAlert.addColumn({"Rating", 1000});
    LVAlert.addColumn({"Time/Date", 1800});
    LVAlert.addColumn({"Action Taken", 5000});
    LVAlert.addColumn({"Alerts", 1000});
    LVAlert.setBounds({100, 300, 6415, 2200});
    // Ticked from the start, without a click.
    chkLog.setDesignValue(1);
}

ConfigPanel::ConfigPanel(Form& form)
    : chkSaveSet(form, "chkSaveSet", "Auto Save Settings"),
      chkUpdate(form, "chkUpdate", "Automatically Check for updates"),
      lblNewVer(form, "lblNewVer"),
      chkStartUp(form, "chkStartUp", "Run on Start Up"),
      chkSystray(form, "chkSystray", "Show in Systray"),
      chkOnTop(form, "chkOnTop", "Stay On Top"),
      chkOnTopMonitor(form, "chkOnTopMonitor", "Show Window on Monitoring"),
      chkSafeM(form, "chkSafeM", "Safe mode (ask for confirmation)"),
      txtAudio{{{form, "txtAudio", "", 0}, {form, "txtAudio", "", 1}}},
      cmdAudio{{{form, "cmdAudio", "...", 0}, {form, "cmdAudio", "...", 1}}},
      cmdPlay{{{form, "cmdPlay", "Play", 0}, {form, "cmdPlay", "Play", 1}}},
      cmdSnd(form, "cmdSnd", "Play Default Alert Sound"),
      Command8(form, "Command8", "Save Set"),
      Command9(form, "Command9", "Make Window Translucent") {
    // Ticked from the start, without a click.
    chkSystray.setDesignValue(1);
}

OverviewPanel::OverviewPanel(Form& form)
    : lblAppStart(form, "lblAppStart"),
      lblSpaceChangeRate(form, "lblSpaceChangeRate"),
      lblHighRatedAlerts(form, "lblHighRatedAlerts"),
      lblDriveOnMonitor(form, "lblDriveOnMonitor"),
      lblTimesMonitor(form, "lblTimesMonitor"),
      lblAlertsRaised(form, "lblAlertsRaised"),
      tmrStat(form, "tmrStat", 6000, true),
      Animation1(form, "Animation1"),
      lblAbout(form, "lblAbout", "About Velmora") {}

}  // namespace velmora
