#include "forms/frm_notify.h"

#include "forms/form_numbers.h"

namespace velmora {

FrmNotify::FrmNotify()
    : Form("frmNotify", "Notification Settings"),
      lstNotContent{
          *this,
          "lstNotContent",
          {"Specified File(s) currently listed", "Specified Programs currently listed",
           "Info. on Listed Drive/Path(s)", "Alert(s) triggered", "Current Running Processes",
           "Current RAM usage", "Custom Content in text file", "Current User", "Session Length",
           "NT Log Events"}},
      lstNotTime{
          *this,
          "lstNotTime",
          {"Send Hourly", "Send Once Daily by Custom time", "Send Once by Custom time interval",
           "Send on Alert (All)", "Send on ALert (High Only)"}},
      DTPicker1{*this, "DTPicker1", timeOfDay(12, 0)},
      DTPicker2{*this, "DTPicker2", timeOfDay(1, 0)} {
    // The settings file knows these lists by their tags.
    cboNotEmail.setTag("notcboEmail");
    lstNotContent.setTag("NotlstContent");
    lstNotTime.setTag("notlstTime");
    txtCustomContent.setToolTipText("Text base file whose content will be send in the email");
    txtCustEvtAmt.setToolTipText(
        "This is to specify the amount of events to send in the email.  4 is the default.");
    txtMailPort.setToolTipText("Most Outgoing Mail uses port 25");
    txtPass.setMasked(true);
    for (const char* entry : mail_encryption::entries) cboEncryption.AddItem(entry);
    cboEncryption.setText(mail_encryption::none);
    txtProxy.setEnabled(false);
    txtPort.setEnabled(false);
}

}  // namespace velmora
