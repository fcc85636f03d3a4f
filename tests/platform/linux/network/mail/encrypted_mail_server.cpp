#include "platform/linux/network/mail/encrypted_mail_server.h"

#include <utility>

namespace velmora::linuxhost {

namespace {

constexpr const char* lineEnd = "\r\n";

std::string readLine(SSL* line) {
    std::string text;
    for (char letter = 0; !text.ends_with(lineEnd);) {
        if (SSL_read(line, &letter, 1) <= 0) return {};
        text += letter;
    }
    return text;
}

void say(SSL* line, const std::string& text) {
    SSL_write(line, text.data(), static_cast<int>(text.size()));
}

std::string firstWord(const std::string& command) {
    return command.substr(0, command.find_first_of(" \r"));
}

}  // namespace

EncryptedMailServer::EncryptedMailServer(Encryption encryption, const TlsAuthority& authority,
                                         const std::string& host)
    : context_(SSL_CTX_new(TLS_server_method()), SSL_CTX_free),
      encryption_(encryption),
      server_([this](network::Peer& peer) { serve(peer); }) {
    SSL_CTX_use_certificate(context_.get(), authority.certificateFor(host).get());
    SSL_CTX_use_PrivateKey(context_.get(), authority.key());
}

bool EncryptedMailServer::beginInTheClear(network::Peer& peer) {
    peer.send("220 ready\r\n");
    const std::string hello = peer.receiveUntil(lineEnd);
    peer.send("250-localhost\r\n250 STARTTLS\r\n");
    const std::string begin = peer.receiveUntil(lineEnd);
    saidInTheClear = !hello.starts_with("EHLO ") || begin != "STARTTLS\r\n";
    peer.send("220 go ahead\r\n");
    return !saidInTheClear;
}

void EncryptedMailServer::serve(network::Peer& peer) {
    const bool isStartTls = encryption_ == Encryption::startTls;
    if (isStartTls && !beginInTheClear(peer)) return;
    const std::unique_ptr<SSL, decltype(&SSL_free)> line(SSL_new(context_.get()), SSL_free);
    SSL_set_fd(line.get(), static_cast<int>(peer.socket()));
    if (SSL_accept(line.get()) != 1) return;
    if (!isStartTls) say(line.get(), "220 ready\r\n");
    converse(line.get());
    if (!std::exchange(hasServed_, true)) isOver_.set_value();
}

std::string EncryptedMailServer::replyTo(const std::string& command) const {
    const std::string word = firstWord(command);
    if (const auto reply = replies.find(word); reply != replies.end()) return reply->second;
    if (word == "EHLO") return "250-localhost\r\n" + abilities;
    if (word == "AUTH") return "235 welcome\r\n";
    if (word == "DATA") return "354 go on\r\n";
    return word == "QUIT" ? "221 bye\r\n" : "250 fine\r\n";
}

void EncryptedMailServer::takeMessage(SSL* line) {
    for (std::string text = readLine(line); !text.empty(); text = readLine(line)) {
        if (data.empty() && onData) onData();
        isWhole = text == ".\r\n";
        if (isWhole) return;
        data += text;
    }
}

void EncryptedMailServer::converse(SSL* line) {
    for (std::string command = readLine(line); !command.empty(); command = readLine(line)) {
        commands.push_back(command.substr(0, command.size() - 2));
        if (command == "AUTH PLAIN\r\n") {
            say(line, "334 \r\n");
            login = readLine(line);
        }
        const std::string reply = replyTo(command);
        say(line, reply);
        if (!reply.starts_with("354")) continue;
        takeMessage(line);
        say(line, replyTo("."));
    }
}

}  // namespace velmora::linuxhost
