// Sends a finished message to a mail server over an encrypted connection, in the background.
#pragma once

#include <cstdint>
#include <string>

#include "base/secret.h"

namespace velmora {

enum class Encryption { startTls, tls };

/// One message to one recipient.
struct SmtpMessage {
    std::string server;     ///< host name; the server's certificate must be for it
    std::int32_t port = 0;  ///< 1 to 65535
    Encryption encryption = Encryption::tls;
    std::string user;  ///< empty for no authentication
    Secret password;
    std::string sender;  ///< the bare address
    std::string recipient;
    std::string data;  ///< headers and body, line ends CR LF
};

class SmtpClient {
  public:
    virtual ~SmtpClient() = default;
    /// Why this program can't send encrypted; empty when it can.
    virtual std::string unavailableBecause() = 0;
    /// Begins to send. A sending that is under way is given up.
    virtual void begin(SmtpMessage message) = 0;
    /// Whether the sending has ended. It does within 60 s.
    virtual bool ended() = 0;
    /// How it ended: empty when the server took the message, else the reason in words.
    virtual std::string failure() = 0;
    /// Gives up a sending that is under way.
    virtual void cancel() = 0;
    /// Waits until the sending has ended, at most so long.
    virtual void waitForActivity(std::int32_t milliseconds) = 0;
};

}  // namespace velmora
