#include "notify/encrypted_mail.h"

#include <utility>
#include <vector>

#include "base/runtime_error.h"
#include "base/scope_guard.h"
#include "base/text.h"
#include "forms/form_numbers.h"
#include "forms/mail_port.h"
#include "notify/mime_message.h"

namespace velmora {

namespace {

constexpr std::int32_t longestNap = 20;

// At least one, so that an empty recipient is refused.
std::vector<std::string> addressesIn(const std::string& recipient) {
    std::vector<std::string> addresses;
    for (const std::string& piece : split(recipient, lineEnd)) {
        if (std::string address = trim(piece); !address.empty()) addresses.push_back(address);
    }
    if (addresses.empty()) addresses.emplace_back();
    return addresses;
}

}  // namespace

std::string EncryptedMail::send(const std::string& recipient, std::string& body) {
    if (busy_) return "another mail is being sent";
    busy_ = true;
    const ScopeGuard free([this] { busy_ = false; });
    const std::vector<std::string> addresses = addressesIn(recipient);
    if (addresses.size() == 1) return sendTo(addresses.front(), body);
    std::string failures;
    for (const std::string& address : addresses) {
        const std::string failure = sendTo(address, body);
        if (failure.empty()) continue;
        failures += (failures.empty() ? "" : "; ") + address + ": " + failure;
    }
    return failures;
}

std::string EncryptedMail::sendTo(const std::string& address, const std::string& body) {
    try {
        return deliver(message(address, body));
    } catch (const std::exception&) {
        return currentRuntimeError().description();
    }
}

SmtpMessage EncryptedMail::message(const std::string& address, const std::string& body) {
    const auto port = mailPort(form_.txtMailPort.Text(), platform_.regional);
    if (!port) {
        throw RuntimeError(error::invalidCall,
                           "the mail server's port is no number from 1 to 65535");
    }
    // Composed first: a message that is refused needs no password.
    std::string data = mimeMessage({.displayName = form_.txtMailFromDisplayName.Text(),
                                    .sender = form_.txtYourEmail.Text(),
                                    .recipient = address,
                                    .subject = form_.txtMailSubj.Text(),
                                    .body = body,
                                    .isHtml = form_.chkIsHTML.ticked(),
                                    .local = platform_.clock.Now(),
                                    .system = platform_.clock.GetSystemTimeAsFileTime()});
    const bool startTls = form_.cboEncryption.Text() == mail_encryption::startTls;
    return {.server = trim(form_.txtMailServer.Text()),
            .port = *port,
            .encryption = startTls ? Encryption::startTls : Encryption::tls,
            .user = form_.txtUser.Text(),
            .password = form_.txtPass.Text(),
            .sender = bareAddress(form_.txtYourEmail.Text()),
            .recipient = bareAddress(address),
            .data = std::move(data)};
}

std::string EncryptedMail::deliver(SmtpMessage message) {
    SmtpClient& client = platform_.smtpClient;
    // When the program ends in the middle of it.
    ScopeGuard givenUp([&] { client.cancel(); });
    client.begin(std::move(message));
    while (!client.ended()) {
        host_.DoEvents();
        client.waitForActivity(longestNap);
    }
    givenUp.dismiss();
    return client.failure();
}

}  // namespace velmora
