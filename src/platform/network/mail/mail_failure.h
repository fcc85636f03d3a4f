// Why a server didn't take a message, in words for a user.
#pragma once

#include <string>
#include <string_view>

#include "platform/smtp_client.h"

namespace velmora::network {

/// The lines that a server has sent.
class ServerReplies {
  public:
    /// One line, with or without its end.
    void add(std::string_view line);
    /// The last line; empty when there was none.
    const std::string& last() const { return last_; }
    /// The last line if it is a refusal, that is, a reply from 400 on.
    std::string refusal() const;

  private:
    std::string last_;
};

struct MailOutcome {
    int result = 0;     ///< the library's code, 0 for success
    std::string words;  ///< what the library says about a failure; may be empty
    ServerReplies replies;
};

/// Empty for success.
std::string failureInWords(const MailOutcome& outcome, const SmtpMessage& message);

}  // namespace velmora::network
