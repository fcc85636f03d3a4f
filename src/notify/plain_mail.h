// The mail over a plain connection. Attempts count as sent, whatever the server said.
#pragma once

#include "forms/frm_notify.h"
#include "notify/mail_transport.h"
#include "notify/smtp_dialogue.h"
#include "platform/platform.h"

namespace velmora {

class PlainMail final : public MailTransport {
  public:
    PlainMail(FrmNotify& form, Platform& platform, Host& host)
        : form_(form), platform_(platform), dialogue_(host) {}

    std::string send(const std::string& recipient, std::string& body) override;

  private:
    FrmNotify& form_;
    Platform& platform_;
    SmtpDialogue dialogue_;
};

}  // namespace velmora
