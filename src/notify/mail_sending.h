// The form's send operation: one mail to each recipient, over a plain or an encrypted connection.
#pragma once

#include <string>

#include "alerts/journal/alert_list.h"
#include "forms/forms.h"
#include "notify/message_content.h"
#include "notify/smtp_dialogue.h"
#include "platform/platform.h"

namespace velmora {

class MailSending {
  public:
    /// Connects the send operation of frmNotify.
    MailSending(Forms& forms, Platform& platform, Host& host, MessageContent& content,
                AlertList& alerts);
    MailSending(const MailSending&) = delete;
    MailSending& operator=(const MailSending&) = delete;

    /// Sends the mail to each recipient in turn. The status line tells how far it is. Passes over
    /// whatever fails.
    void prcSendEmailZ();
    /// Opens a target with the program for it, on behalf of the form.
    void prcDefaultSend(const std::string& target);

  private:
    bool isComplete();
    void sendTo(const std::string& recipient, std::string& body);
    void raiseSent(const std::string& recipient);
    void show(const std::string& status) { form_.StatusTxt.setText(status); }

    FrmNotify& form_;
    Platform& platform_;
    MessageContent& content_;
    AlertList& alerts_;
    SmtpDialogue dialogue_;
};

}  // namespace velmora
