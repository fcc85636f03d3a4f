// Why a server didn't take a message, in words for a user.
#pragma once

#include <string>
#include <string_view>

#include "platform/smtp_client.h"

namespace velmora::network {

/// What a server has answered, line by line.
class ServerReplies {
  public:
    /// One line, with or without its end.
    void add(std::string_view line);
    /// The last line of the last refusal, that is, of a reply from 400 on; empty when the server
    /// has agreed to something since. Its farewell agrees to nothing.
    const std::string& refusal() const { return refusal_; }

  private:
    std::string refusal_;
};

struct MailOutcome {
    int result = 0;     ///< the library's code, 0 for success
    std::string words;  ///< what the library says about a failure; may be empty
    ServerReplies replies;
};

/// Empty for success.
std::string failureInWords(const MailOutcome& outcome, const SmtpMessage& message);

}  // namespace velmora::network
