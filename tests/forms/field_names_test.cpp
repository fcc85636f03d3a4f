// The names of fields are public: scripts, the console and the settings use them.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "forms/forms.h"

namespace velmora {
namespace {

constexpr const char* publicNames[] = {
    // clang-format off
    "Animation1", "cboDrives", "cboFile", "cboNotEmail", "cboProg", "Check1", "chkAutoHide",
    "chkAutoSave", "chkCustTime", "chkDrive", "chkIsHTML", "chkLog", "chkLogTimeMon", "chkNTLog",
    "chkOnTop", "chkOnTopMonitor", "chkop", "chkProxy", "chkSafeM", "chkSaveSet", "chkSeq",
    "chkStartUp", "chkSystray", "chkUpdate", "cmdAdd", "cmdAddIcon", "cmdAdv", "cmdApply",
    "cmdAudio", "cmdC", "cmdCancel", "cmdClear", "cmdDelete", "cmdDeleteAll", "cmdEnter",
    "cmdFolder", "cmdHelp", "cmdLVAdd", "cmdLVRemove", "cmdMove", "cmdMoveAll", "cmdNotOpenFile",
    "cmdNT", "cmdOK", "cmdPAdd", "cmdPause", "cmdPlay", "cmdPRem", "cmdProgress", "cmdRemove",
    "cmdReverse", "cmdSelectDir", "cmdSnd", "cmdStartWatch", "cmdStopWatch", "cmdSysInfo",
    "cmdToggle", "Combo1", "Command1", "Command2", "Command3", "Command6", "Command7", "Command8",
    "Command9", "drvDrive", "DTPicker1", "DTPicker2", "DTPInterval", "DTTime1", "fr", "Frame1",
    "Frame2", "Frame5", "Frame8", "fraPartInfo", "frE", "frmAD", "frmCurAlert", "frmPart",
    "frmSp", "Label1", "Label2", "Label3", "Label4", "Label5", "Label6", "lbl0", "lbl1",
    "lblAbout", "lblAct", "lblAl", "lblAlertsRaised", "lblAppStart", "lblCaption", "lblDesc",
    "lblDP", "lblDrive", "lblDriveOnMonitor", "lblE", "lblFolder", "lblFreeSpNow", "lblGB",
    "lblHelp", "lblHighRatedAlerts", "lblInfo", "lblLock", "lblLog", "lblMB", "lblNewVer",
    "lblNFreeSpaceNow", "lblNFreeStart", "lblNRate", "lblNTime", "lblOp", "lblP", "lblSF",
    "lblSpaceChangeOpen", "lblSpaceChangeRate", "lblSpaceLastUpdate", "lblSpectab", "lblSuggest",
    "lblTab", "lblTabCap", "lblTime", "lblTimesMonitor", "lblWatchPath", "ListView1", "lstAct",
    "lstInfo", "lstVolumes", "LVAlert", "LVFile", "lvInfo", "LVProg", "LVTop", "MSChart1",
    "OpDriv", "Option1", "picBuffer", "picPie", "prcDraw", "ProgressBar1", "Slider1",
    "StatusBar1", "StatusTxt", "Text1", "tim_timeoutSend", "Timer1", "TimerCust", "tmrEmail",
    "tmrStat", "tmrSystray", "Toolbar1", "txChanges", "txtAlert", "txtAmt", "txtAudio",
    "txtBytes", "txtChar", "txtCustEvtAmt", "txtCustMsg", "txtCustomContent", "txtDrive",
    "txtFileType", "txtFreeSpace", "txtMailFromDisplayName", "txtMailPort", "txtMailServer",
    "txtMailSubj", "txtPass", "txtPort", "txtProxy", "txtSpace", "txtTime", "txtUser",
    "txtYourEmail", "UpDown1", "UpDown2", "UpDown3", "UpDownSpace", "VMeter1", "VMeter2",
    "VScroll1",
    // clang-format on
};

struct FieldNamesTest : testing::Test {
    FieldNamesTest() {
        for (Form* form : forms.all()) {
            for (Control* control : form->controls()) {
                indexes[form->Name() + "." + control->Name()].insert(control->Index());
                names.insert(control->Name());
            }
        }
    }

    Forms forms;
    std::map<std::string, std::set<int>> indexes;
    std::set<std::string> names;
};

TEST_F(FieldNamesTest, EveryPublicNameIsAField) {
    for (const char* name : publicNames) EXPECT_TRUE(names.contains(name)) << name;
}

// A field of its own has no index; those of an array count from 0 without a gap.
TEST_F(FieldNamesTest, ArraysHaveNoGap) {
    for (const auto& [name, found] : indexes) {
        const int first = *found.begin();
        if (first == -1) {
            EXPECT_EQ(found.size(), 1u) << name;
            continue;
        }
        EXPECT_EQ(first, 0) << name;
        EXPECT_EQ(*found.rbegin() + 1, static_cast<int>(found.size())) << name;
    }
}

}  // namespace
}  // namespace velmora
