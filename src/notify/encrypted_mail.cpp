#include "notify/encrypted_mail.h"

#include "base/runtime_error.h"
#include "base/scope_guard.h"
#include "base/text.h"
#include "forms/form_numbers.h"
#include "forms/mail_port.h"
#include "notify/mime_message.h"

namespace velmora {

namespace {
constexpr std::int32_t longestNap = 20;
}

std::string EncryptedMail::send(const std::string& recipient, std::string& body) {
    if (busy_) return "another mail is being sent";
    try {
        return deliver(message(recipient, body));
    } catch (const std::exception&) {
        return currentRuntimeError().description();
    }
}

SmtpMessage EncryptedMail::message(const std::string& recipient, const std::string& body) {
    const auto port = mailPort(form_.txtMailPort.Text(), platform_.regional);
    if (!port) {
        throw RuntimeError(error::invalidCall,
                           "the mail server's port is no number from 1 to 65535");
    }
    const bool startTls = form_.cboEncryption.Text() == mail_encryption::startTls;
    return {.server = trim(form_.txtMailServer.Text()),
            .port = *port,
            .encryption = startTls ? Encryption::startTls : Encryption::tls,
            .user = form_.txtUser.Text(),
            .password = form_.txtPass.Text(),
            .sender = bareAddress(form_.txtYourEmail.Text()),
            .recipient = bareAddress(recipient),
            .data = mimeMessage({.displayName = form_.txtMailFromDisplayName.Text(),
                                 .sender = form_.txtYourEmail.Text(),
                                 .recipient = recipient,
                                 .subject = form_.txtMailSubj.Text(),
                                 .body = body,
                                 .isHtml = form_.chkIsHTML.ticked(),
                                 .local = platform_.clock.Now(),
                                 .system = platform_.clock.GetSystemTimeAsFileTime()})};
}

std::string EncryptedMail::deliver(SmtpMessage message) {
    SmtpClient& client = platform_.smtpClient;
    busy_ = true;
    // Also when the program ends in the middle of it.
    const ScopeGuard givenUp([&] {
        busy_ = false;
        client.cancel();
    });
    client.begin(std::move(message));
    while (!client.ended()) {
        host_.DoEvents();
        client.waitForActivity(longestNap);
    }
    return client.failure();
}

}  // namespace velmora
