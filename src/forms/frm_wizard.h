// The setup wizard: the settings of the main window and of the mail, one step after the other. Its
// fields have the names of those that they stand for, and go there only when they are applied.
#pragma once

#include <array>
#include <cstddef>

#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/list_view.h"
#include "controls/pickers.h"
#include "controls/text_box.h"
#include "forms/action_entries.h"

namespace velmora {

/// Places in Frame1, the steps.
namespace wizard_step {
inline constexpr int welcome = 0;
inline constexpr int drives = 1;
inline constexpr int space = 2;
inline constexpr int actions = 3;
inline constexpr int path = 4;
inline constexpr int programs = 5;
inline constexpr int files = 6;
inline constexpr int times = 7;
inline constexpr int events = 8;
inline constexpr int mail = 9;
inline constexpr std::size_t count = 10;
}  // namespace wizard_step

/// Places in chkFileKind, the kinds of files that may be used often.
namespace file_kind {
inline constexpr std::size_t business = 0;
inline constexpr std::size_t media = 1;
inline constexpr std::size_t internet = 2;
}  // namespace file_kind

/// Places in cboSpeed.
namespace connection_speed {
inline constexpr std::array entries{"Slow (dial-up, mobile, VPN)", "Medium (DSL, cable, wireless)",
                                    "Fast (wired network, or local drives only)"};
}  // namespace connection_speed

/// Places in lblMail, the words in front of the mail's fields.
namespace mail_word {
inline constexpr std::size_t server = 0;
inline constexpr std::size_t port = 1;
inline constexpr std::size_t encryption = 2;
inline constexpr std::size_t address = 3;
inline constexpr std::size_t user = 4;
inline constexpr std::size_t password = 5;
inline constexpr std::size_t fromDisplay = 6;
inline constexpr std::size_t subject = 7;
inline constexpr std::size_t recipients = 8;
}  // namespace mail_word

class FrmWizard : public Form {
  public:
    FrmWizard();

    std::array<Frame, wizard_step::count> Frame1;      ///< the steps; the caption is the name
    std::array<Label, wizard_step::count> lblStep;     ///< the list of the steps
    std::array<Label, wizard_step::count> lblExplain;  ///< what a step is about
    Label lblOp{*this, "lblOp"};                       ///< the number of the step shown
    CommandButton cmdHelp{*this, "cmdHelp", "&Help"};
    CommandButton cmdReverse{*this, "cmdReverse", "&Back"};
    CommandButton cmdProgress{*this, "cmdProgress", "&Next"};
    CommandButton cmdApply{*this, "cmdApply", "&Apply"};
    CommandButton cmdOK{*this, "cmdOK", "&OK"};
    CommandButton cmdCancel{*this, "cmdCancel", "&Close"};

    // Drives and paths.
    ListView ListView1{*this, "ListView1"};
    CommandButton cmdLVAdd{*this, "cmdLVAdd", "Add Drive/Path"};
    CommandButton cmdLVRemove{*this, "cmdLVRemove", "Remove"};

    // Minimum space.
    Label lblSpace{*this, "lblSpace", "Minimum Space"};
    TextBox txtFreeSpace{*this, "txtFreeSpace"};  ///< stands for Form1.txtSpace
    UpDown UpDownSpace{*this, "UpDownSpace", 0, 2147483647, 0};
    std::array<OptionButton, 2> OpDriv{
        {{*this, "OpDriv", "By Size in (KB)", 0}, {*this, "OpDriv", "By %", 1}}};
    CheckBox chkDrive{*this, "chkDrive", "Set Size Individually"};
    Slider Slider1{*this, "Slider1", 0, 100, 1, 5};
    Label lblMB{*this, "lblMB"};
    Label lblGB{*this, "lblGB"};
    Label lblSpaceWhy{*this, "lblSpaceWhy",
                      "Each drive or path has a minimum space of its own while \"Set Size "
                      "Individually\" is ticked."};  ///< visible while txtFreeSpace is disabled

    ListBox lstAct;  ///< actions on a shortage

    // Path to move to.
    Label lblFolder{*this, "lblFolder", "Specified Path"};
    TextBox txtDrive{*this, "txtDrive"};
    CommandButton cmdFolder{*this, "cmdFolder", "..."};
    Label lblDriveWhy{*this, "lblDriveWhy",
                      "The path is used while the action \"Move Sp. Files to Sp. Path\" is ticked, "
                      "in the step \"Action on Space Shortage\"."};  ///< while txtDrive is disabled

    // Programs.
    ComboBox cboProg{*this, "cboProg"};
    CommandButton cmdPBrowse{*this, "cmdPBrowse", "..."};
    CommandButton cmdPAdd{*this, "cmdPAdd", "Add"};
    ListView LVProg{*this, "LVProg"};
    CommandButton cmdPRem{*this, "cmdPRem", "Remove"};

    // Files.
    ComboBox cboFile{*this, "cboFile"};
    CommandButton cmdFAdd{*this, "cmdFAdd", "Add"};
    ListView LVFile{*this, "LVFile"};
    CommandButton cmdFRem{*this, "cmdFRem", "Remove"};
    Label lblFileQuestion{*this, "lblFileQuestion", "What kind of files do you use often?"};
    std::array<CheckBox, 3> chkFileKind{
        {{*this, "chkFileKind", "Business (Office, Doc., Database....)", 0},
         {*this, "chkFileKind", "Media (music, movie clips, pictures...)", 1},
         {*this, "chkFileKind", "Internet (html, swf, xml...)", 2}}};
    Label lblFileTypes{*this, "lblFileTypes", "File Types"};
    TextBox txtFileType{*this, "txtFileType"};
    Label lblFileProposal{*this, "lblFileProposal"};  ///< what an answer proposes, and why

    // Times.
    CheckBox chkCustTime{*this, "chkCustTime", "Enable Custom Time"};
    std::array<Label, 2> lblTime{
        {{*this, "lblTime", "Start Time", 0}, {*this, "lblTime", "End Time", 1}}};
    std::array<DatePicker, 2> DTTime1{
        {{*this, "DTTime1", timeOfDay(8, 0), 0}, {*this, "DTTime1", timeOfDay(17, 0), 1}}};
    Label lblTimeWhy{*this, "lblTimeWhy",
                     "The watch starts and pauses at these times while \"Enable Custom Time\" is "
                     "ticked."};  ///< visible while DTTime1 is disabled
    Label lblInterval{*this, "lblInterval", "Time Interval (sec)"};
    TextBox txtTime{*this, "txtTime"};  ///< stands for Form1.DTPInterval
    UpDown UpDown1{*this, "UpDown1", 0, 2147483647, 0};
    Label lblSpeedQuestion{*this, "lblSpeedQuestion",
                           "What connection speed do you have?  This will help assess your Velmora "
                           "settings."};
    ComboBox cboSpeed{*this, "cboSpeed"};
    Label lblSpeedProposal{*this, "lblSpeedProposal"};  ///< what an answer proposes, and why

    std::array<CheckBox, 5> chkop;  ///< stand for the entries of Form1.lstEvt

    // Mail.
    std::array<Label, 9> lblMail;
    TextBox txtMailServer{*this, "txtMailServer"};
    TextBox txtMailPort{*this, "txtMailPort"};
    Label lblPortHint{*this, "lblPortHint", "Most Outgoing Mail uses port 25"};
    ComboBox cboEncryption{*this, "cboEncryption"};
    Label lblEncryptionWhy{*this, "lblEncryptionWhy"};  ///< why no encryption is possible
    TextBox txtYourEmail{*this, "txtYourEmail"};
    TextBox txtUser{*this, "txtUser"};
    TextBox txtPass{*this, "txtPass"};
    TextBox txtMailFromDisplayName{*this, "txtMailFromDisplayName"};
    TextBox txtMailSubj{*this, "txtMailSubj"};
    ComboBox cboNotEmail{*this, "cboNotEmail"};
    CommandButton cmdAdd{*this, "cmdAdd", "Add"};
    CommandButton cmdRemove{*this, "cmdRemove", "Remove"};
    CommandButton cmdClear{*this, "cmdClear", "Clear All"};
    CheckBox chkIsHTML{*this, "chkIsHTML", "Send in HTML format"};
};

}  // namespace velmora
