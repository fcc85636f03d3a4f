// The window of the mail settings. Its controls are the settings; it is made hidden when the
// settings are first touched, and never unloaded.
#pragma once

#include <array>

#include "controls/bars.h"
#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/pickers.h"
#include "controls/text_box.h"
#include "controls/timer.h"

namespace velmora {

class FrmNotify : public Form {
  public:
    FrmNotify();

    /// The form's send operation: sends the mail to each recipient. Whoever wants a mail sent runs
    /// it; errors of its handler go to the caller.
    Event<> SendEmail;

    // Pages.
    TabStrip TabStrip1{
        *this,
        "TabStrip1",
        {"Notify Content:", "Custom Messeage", "Email Acct. Info.", "Send Option(s):"}};
    std::array<Frame, 4> frE{{{*this, "frE", "", 0},
                              {*this, "frE", "", 1},
                              {*this, "frE", "", 2},
                              {*this, "frE", "", 3}}};
    TextBox StatusTxt{*this, "StatusTxt"};  ///< how far a sending is

    CommandButton Command1{*this, "Command1", "Send &Now"};
    CommandButton cmdApply{*this, "cmdApply", "&Apply"};
    CommandButton cmdOK{*this, "cmdOK", "&OK"};
    CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
    CommandButton Command2{*this, "Command2", "X"};

    // Mail account.
    TextBox txtYourEmail{*this, "txtYourEmail"};
    TextBox txtUser{*this, "txtUser"};
    TextBox txtPass{*this, "txtPass"};
    TextBox txtMailServer{*this, "txtMailServer"};
    TextBox txtMailPort{*this, "txtMailPort", "25"};
    TextBox txtMailSubj{*this, "txtMailSubj", "Karvelle Velmora: system info"};
    TextBox txtMailFromDisplayName{*this, "txtMailFromDisplayName", "Velmora"};

    // Content and recipients.
    ComboBox cboNotEmail{*this, "cboNotEmail"};
    CommandButton cmdAdd{*this, "cmdAdd", "Add"};
    CommandButton cmdRemove{*this, "cmdRemove", "Remove"};
    CommandButton cmdClear{*this, "cmdClear", "Clear All"};
    ListBox lstNotContent;
    TextBox txtCustMsg{*this, "txtCustMsg"};
    TextBox txtCustomContent{*this, "txtCustomContent"};
    TextBox txtCustEvtAmt{*this, "txtCustEvtAmt", "4"};
    CommandButton cmdNotOpenFile{*this, "cmdNotOpenFile", "..."};
    CommandButton cmdNT{*this, "cmdNT", "NT Evt"};
    CheckBox chkIsHTML{*this, "chkIsHTML", "Send in HTML format"};
    ComboBox cboEncryption{*this, "cboEncryption"};  ///< of the connection to the mail server

    // Send times.
    ListBox lstNotTime;
    DatePicker DTPicker1;
    DatePicker DTPicker2;

    // Proxy.
    CheckBox chkProxy{*this, "chkProxy", "Use Proxy"};
    TextBox txtProxy{*this, "txtProxy"};
    TextBox txtPort{*this, "txtPort"};

    Timer tmrEmail{*this, "tmrEmail", 60000, true};
    /// Switched with each step of a sending. Nothing listens to it.
    Timer tim_timeoutSend{*this, "tim_timeoutSend", 60000, false};
};

}  // namespace velmora
