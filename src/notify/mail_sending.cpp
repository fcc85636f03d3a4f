#include "notify/mail_sending.h"

#include "alerts/journal/alert_time.h"
#include "base/convert.h"
#include "base/resume_next.h"
#include "notify/report_text.h"

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
      dialogue_(host) {
    form_.SendEmail.connect([this] { prcSendEmailZ(); });
}

void MailSending::prcSendEmailZ() {
    if (!isComplete()) return;
    std::string body;
    resumeNext([&] {
        body = content_.prcNotPreContent() + endLine() + "Custom Message: " + endLine() +
               form_.txtCustMsg.Text();
    });
    show("Busy sending mail...");
    const ComboBox& recipients = form_.cboNotEmail;
    int sent = 0;
    // A handler may remove entries during a yield.
    for (int i = 0; i < recipients.ListCount(); ++i) {
        const std::string recipient = trim(recipients.List(i));
        resumeNext([&] { sendTo(recipient, body); });
        // Attempts count, not successes.
        ++sent;
        show("Busy sending mail - Email sent: " + std::to_string(i + 1) + "/" +
             std::to_string(recipients.ListCount()));
        resumeNext([&] { raiseSent(recipient); });
    }
    show("Ready - Emails sent: " + std::to_string(sent));
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
    return true;
}

// The form of the mail hangs on the proxy alone. The body stays changed for later recipients.
void MailSending::sendTo(const std::string& recipient, std::string& body) {
    const bool proxy = form_.chkProxy.ticked();
    if (proxy) body = replaceAll(body, lineEnd, "<br>");
    const TextBox& server = proxy ? form_.txtProxy : form_.txtMailServer;
    const TextBox& port = proxy ? form_.txtPort : form_.txtMailPort;
    dialogue_.sendmail(platform_.winsock, server.Text(), toLong(port.Text(), platform_.regional),
                       recipient, form_.txtYourEmail.Text(), form_.txtMailFromDisplayName.Text(),
                       form_.txtMailSubj.Text(), body, form_.tim_timeoutSend, proxy);
}

void MailSending::raiseSent(const std::string& recipient) {
    alerts_.prcAlertInfo(Format(platform_.clock.Now(), alert_time::minutes), rating::medium,
                         "Notfication Message Send to: " + recipient, {}, nullptr);
}

void MailSending::prcDefaultSend(const std::string& target) {
    platform_.shell32.ShellExecuteA(form_.Name(), "open", target, "", "", hiddenWindow);
}

}  // namespace velmora
