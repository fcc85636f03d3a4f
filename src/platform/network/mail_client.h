// The sender of encrypted mail, as far as this build has one.
#pragma once

#include <memory>

#include "platform/smtp_client.h"

namespace velmora::network {

std::unique_ptr<SmtpClient> makeSmtpClient();

}  // namespace velmora::network
