// The mail over an encrypted connection, with user and password, as a complete message. The proxy
// isn't used. A failure is known, with its reason.
#pragma once

#include "forms/frm_notify.h"
#include "notify/mail_transport.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

class EncryptedMail final : public MailTransport {
  public:
    EncryptedMail(FrmNotify& form, Platform& platform, Host& host)
        : form_(form), platform_(platform), host_(host) {}

    /// One message to each of the recipient's addresses, which CR LF separates or ends. Gives the
    /// reason of a failure; with several addresses, that of each that failed behind the address.
    /// While a mail is being sent, another is refused.
    std::string send(const std::string& recipient, std::string& body) override;

  private:
    /// The reason of a failure.
    std::string sendTo(const std::string& address, const std::string& body);
    /// Error 5 when the form's settings or the address allow no message.
    SmtpMessage message(const std::string& address, const std::string& body);
    /// Yields until it has ended; the reason of a failure.
    std::string deliver(SmtpMessage message);

    FrmNotify& form_;
    Platform& platform_;
    Host& host_;
    bool busy_ = false;
};

}  // namespace velmora
