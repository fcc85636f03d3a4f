// A way to send the mail to one recipient.
#pragma once

#include <string>

namespace velmora {

class MailTransport {
  public:
    virtual ~MailTransport() = default;
    /// Sends the body to one recipient and yields meanwhile. It may change the body, for later
    /// recipients too. Gives the reason when it knows that the mail wasn't sent, else nothing.
    virtual std::string send(const std::string& recipient, std::string& body) = 0;
};

}  // namespace velmora
