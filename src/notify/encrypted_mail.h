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

    std::string send(const std::string& recipient, std::string& body) override;

  private:
    SmtpMessage message(const std::string& recipient, const std::string& body);
    /// Yields until it has ended; the reason of a failure.
    std::string deliver(SmtpMessage message);

    FrmNotify& form_;
    Platform& platform_;
    Host& host_;
    bool busy_ = false;
};

}  // namespace velmora
