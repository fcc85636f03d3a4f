// The form's send operation: one mail to each recipient, over a plain or an encrypted connection.
#pragma once

#include <string>

#include "alerts/journal/alert_list.h"
#include "forms/forms.h"
#include "notify/encrypted_mail.h"
#include "notify/message_content.h"
#include "notify/plain_mail.h"
#include "platform/platform.h"

namespace velmora {

class MailSending {
  public:
    /// Connects the send operation of frmNotify.
    MailSending(Forms& forms, Platform& platform, Host& host, MessageContent& content,
                AlertList& alerts);
    MailSending(const MailSending&) = delete;
    MailSending& operator=(const MailSending&) = delete;

    /// Sends the mail to each recipient in turn; the status line shows how far it is. Passes over
    /// what fails. Without encryption attempts count as sent; with it, a failure is an alert of its
    /// own.
    void prcSendEmailZ();
    /// Opens a target with the program for it, on behalf of the form.
    void prcDefaultSend(const std::string& target);

  private:
    bool isComplete();
    void offerNoEncryption();
    std::string send(const std::string& recipient, std::string& body);
    MailTransport* chosenTransport();
    void raise(const char* rating, const std::string& text);
    void show(const std::string& status) { form_.StatusTxt.setText(status); }

    FrmNotify& form_;
    Platform& platform_;
    MessageContent& content_;
    AlertList& alerts_;
    PlainMail plain_;
    EncryptedMail encrypted_;
};

}  // namespace velmora
