#include "notify/mail_sending.h"

#include "alerts/journal/alert_time.h"
#include "base/resume_next.h"
#include "base/text.h"
#include "forms/form_numbers.h"

namespace velmora {

namespace {
constexpr std::int32_t hiddenWindow = 0;
}

MailSending::MailSending(Forms& forms, Platform& platform, Host& host, MessageContent& content,
                         AlertList& alerts)
    : form_(forms.frmNotify),
      platform_(platform),
      content_(content),
      alerts_(alerts),
      plain_(form_, platform, host),
      encrypted_(form_, platform, host) {
    form_.SendEmail.connect([this] { prcSendEmailZ(); });
    const std::string reason = platform.smtpClient.unavailableBecause();
    if (reason.empty()) return;
    form_.cboEncryption.setToolTipText(reason);
    form_.cboEncryption.Change.connect([this] { offerNoEncryption(); });
    offerNoEncryption();
}

// What the settings brought can be taken back.
void MailSending::offerNoEncryption() {
    form_.cboEncryption.setEnabled(form_.cboEncryption.Text() != mail_encryption::none);
}

void MailSending::prcSendEmailZ() {
    if (!isComplete()) return;
    std::string body = content_.mailBody();
    show("Busy sending mail...");
    const ComboBox& recipients = form_.cboNotEmail;
    int sent = 0;
    // A handler may remove entries during a yield, and one that adds some must not keep this going.
    const int count = recipients.ListCount();
    for (int i = 0; i < count && i < recipients.ListCount(); ++i) {
        const std::string recipient = trim(recipients.List(i));
        const std::string failure = send(recipient, body);
        if (failure.empty()) ++sent;
        show("Busy sending mail - Email sent: " + std::to_string(i + 1) + "/" +
             std::to_string(recipients.ListCount()));
        if (failure.empty()) {
            raise(rating::medium, "Notfication Message Send to: " + recipient);
        } else {
            raise(rating::high,
                  "Notification Message not sent to: " + recipient + " (" + failure + ")");
        }
    }
    show("Ready - Emails sent: " + std::to_string(sent));
}

// The user may choose another encryption while the mail is composed or sent.
std::string MailSending::send(const std::string& recipient, std::string& body) {
    MailTransport* transport = chosenTransport();
    if (transport == nullptr) return "no such encryption: " + form_.cboEncryption.Text();
    return transport->send(recipient, body);
}

// Nothing that is meant to be encrypted goes out plain: null for a text that isn't known.
MailTransport* MailSending::chosenTransport() {
    const std::string& chosen = form_.cboEncryption.Text();
    if (chosen == mail_encryption::none) return &plain_;
    const bool known = chosen == mail_encryption::startTls || chosen == mail_encryption::tls;
    return known ? &encrypted_ : nullptr;
}

bool MailSending::isComplete() {
    if (trim(form_.txtMailServer.Text()).empty()) {
        show("No SMTP server selected for outgoing mail");
        return false;
    }
    if (trim(form_.txtMailPort.Text()).empty()) {
        show("No SMTP server PORT selected for outgoing mail (default = 25)");
        return false;
    }
    if (trim(form_.txtYourEmail.Text()).empty()) {
        show("No EMAIL address selected for outgoing mail");
        return false;
    }
    if (chosenTransport() == nullptr) {
        show("No such encryption: " + form_.cboEncryption.Text());
        return false;
    }
    return true;
}

// The log file may fail to take it.
void MailSending::raise(const char* rating, const std::string& text) {
    resumeNext([&] {
        alerts_.prcAlertInfo(Format(platform_.clock.Now(), alert_time::minutes), rating, text, {},
                             nullptr);
    });
}

void MailSending::prcDefaultSend(const std::string& target) {
    platform_.shell32.ShellExecuteA(form_.Name(), "open", target, "", "", hiddenWindow);
}

}  // namespace velmora
