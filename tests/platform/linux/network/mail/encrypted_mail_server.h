// A mail server on the loopback address that takes one message over an encrypted connection.
#pragma once

#include <openssl/ssl.h>

#include <functional>
#include <future>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/network/mail/tls_authority.h"
#include "platform/network/loopback_server.h"
#include "platform/smtp_client.h"

namespace velmora::linuxhost {

class EncryptedMailServer {
  public:
    /// Its certificate is for `host`.
    EncryptedMailServer(Encryption encryption, const TlsAuthority& authority,
                        const std::string& host = "localhost");

    std::int32_t port() const { return server_.port(); }
    /// Waits until the first conversation is over.
    void waitForConversation() { isOver_.get_future().wait(); }

    /// What it says to a command instead of agreeing, by the command's first word; "." for the end
    /// of the message.
    std::map<std::string, std::string> replies;
    /// Its list of what it can do, after its own name.
    std::string abilities = "250 AUTH PLAIN\r\n";
    /// The lines that came encrypted, without their ends, and without those of the message.
    std::vector<std::string> commands;
    /// User and password, as they came.
    std::string login;
    /// The message as it came, with its stuffed points.
    std::string data;
    /// Whether the message came to its end.
    bool isWhole = false;
    /// Runs when its first line has come.
    std::function<void()> onData;
    /// Whether anything but the beginning of the encryption was said in the clear.
    bool saidInTheClear = false;

  private:
    void serve(network::Peer& peer);
    bool beginInTheClear(network::Peer& peer);
    void converse(SSL* line);
    void takeMessage(SSL* line);
    std::string replyTo(const std::string& command) const;

    std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> context_;
    Encryption encryption_;
    std::promise<void> isOver_;
    bool hasServed_ = false;
    network::LoopbackServer server_;
};

}  // namespace velmora::linuxhost
