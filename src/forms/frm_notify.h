// The window of the mail settings. Its controls are the settings; it is made hidden when the
// settings are first touched, and never unloaded.
#pragma once

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
    ListBox lstNotContent;
    TextBox txtCustMsg{*this, "txtCustMsg"};
    TextBox txtCustomContent{*this, "txtCustomContent"};
    TextBox txtCustEvtAmt{*this, "txtCustEvtAmt", "4"};
    CheckBox chkIsHTML{*this, "chkIsHTML", "Send in HTML format"};

    // Send times.
    ListBox lstNotTime;
    DatePicker DTPicker1;
    DatePicker DTPicker2;

    // Proxy.
    CheckBox chkProxy{*this, "chkProxy", "Use Proxy"};
    TextBox txtProxy{*this, "txtProxy"};
    TextBox txtPort{*this, "txtPort"};

    Timer tmrEmail{*this, "tmrEmail", 60000, true};
};

}  // namespace velmora
