#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <future>

#include "platform/linux/network/mail/encrypted_mail_server.h"
#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"
#include "platform/network/mail/mail_job.h"
#include "platform/network/mail_client.h"

namespace velmora::linuxhost {
namespace {

class EncryptedMail : public testing::TestWithParam<Encryption> {
  protected:
    EncryptedMail() {
        // The server's library knows no other way to write to a client that has gone.
        signal(SIGPIPE, SIG_IGN);
        trust(authority_);
    }
    void trust(const TlsAuthority& authority) { std::ofstream(authorities_) << authority.pem(); }

    /// How the sending ends; the connection has ended then too.
    std::string failureOf(const SmtpMessage& message) {
        const auto client = network::makeSmtpClient();
        client->begin(message);
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (!client->ended() && std::chrono::steady_clock::now() < end) {
            client->waitForActivity(100);
        }
        EXPECT_TRUE(client->ended());
        return client->failure();
    }
    SmtpMessage messageFor(const EncryptedMailServer& server) const {
        return {.server = "localhost",
                .port = server.port(),
                .encryption = GetParam(),
                .user = "user",
                .password = "secret",
                .sender = "a@example.com",
                .recipient = "b@example.com",
                .data = "Subject: x\r\n\r\ntext\r\n"};
    }
    void expectFailure(EncryptedMailServer& server, const std::string& part) {
        const std::string failure = failureOf(messageFor(server));
        EXPECT_NE(failure.find(part), std::string::npos) << failure;
        EXPECT_EQ(server.data, "");
    }

    TestFolder folder_;
    std::string authorities_ = folder_ / "authorities.pem";
    Environment caFile_{"VELMORA_CA_FILE", authorities_};
    TlsAuthority authority_;
};

INSTANTIATE_TEST_SUITE_P(Kinds, EncryptedMail,
                         testing::Values(Encryption::startTls, Encryption::tls),
                         [](const auto& kind) {
                             return kind.param == Encryption::tls ? "Tls" : "StartTls";
                         });

TEST_P(EncryptedMail, TheServerTakesTheMessage) {
    EncryptedMailServer server(GetParam(), authority_);
    EXPECT_EQ(failureOf(messageFor(server)), "");
    EXPECT_FALSE(server.saidInTheClear);
    ASSERT_GE(server.commands.size(), 5U);
    EXPECT_TRUE(server.commands[0].starts_with("EHLO "));
    EXPECT_EQ(server.commands[1], "AUTH PLAIN");
    // "\0user\0secret" in Base64.
    EXPECT_EQ(server.login, "AHVzZXIAc2VjcmV0\r\n");
    const auto mail =
        std::find_if(server.commands.begin(), server.commands.end(),
                     [](const std::string& command) { return command.starts_with("MAIL"); });
    ASSERT_LT(mail + 2, server.commands.end());
    EXPECT_TRUE(mail->starts_with("MAIL FROM:<a@example.com>")) << *mail;
    EXPECT_EQ(mail[1], "RCPT TO:<b@example.com>");
    EXPECT_EQ(mail[2], "DATA");
    EXPECT_EQ(server.data, "Subject: x\r\n\r\ntext\r\n");
}

TEST_P(EncryptedMail, PointsAtTheBeginningOfALineAreDoubled) {
    EncryptedMailServer server(GetParam(), authority_);
    SmtpMessage message = messageFor(server);
    message.data = ".first\r\n.\r\n..\r\na.b\r\n\r\n.last\r\n";
    EXPECT_EQ(failureOf(message), "");
    EXPECT_EQ(server.data, "..first\r\n..\r\n...\r\na.b\r\n\r\n..last\r\n");
}

TEST_P(EncryptedMail, ALongMessageArrivesWhole) {
    EncryptedMailServer server(GetParam(), authority_);
    SmtpMessage message = messageFor(server);
    while (message.data.size() < 300'000) message.data += "a line with 8-bit \xC3\xA4 in it\r\n";
    EXPECT_EQ(failureOf(message), "");
    EXPECT_TRUE(server.data == message.data);
}

TEST_P(EncryptedMail, WithoutAUserNobodyLogsIn) {
    EncryptedMailServer server(GetParam(), authority_);
    SmtpMessage message = messageFor(server);
    message.user = "";
    EXPECT_EQ(failureOf(message), "");
    EXPECT_TRUE(
        std::none_of(server.commands.begin(), server.commands.end(),
                     [](const std::string& command) { return command.starts_with("AUTH"); }));
}

TEST_P(EncryptedMail, AWrongPasswordIsToldInTheServersWords) {
    EncryptedMailServer server(GetParam(), authority_);
    server.replies["AUTH"] = "535 5.7.8 wrong password\r\n";
    expectFailure(server, "password: 535 5.7.8 wrong password");
}

TEST_P(EncryptedMail, ARefusalIsToldInTheServersWords) {
    for (const char* command : {"MAIL", "RCPT", "DATA"}) {
        EncryptedMailServer server(GetParam(), authority_);
        server.replies[command] = "550 5.1.1 not here\r\n";
        expectFailure(server, "550 5.1.1 not here");
    }
    EncryptedMailServer server(GetParam(), authority_);
    server.replies["."] = "552 5.3.4 too big\r\n";
    const std::string failure = failureOf(messageFor(server));
    EXPECT_NE(failure.find("552 5.3.4 too big"), std::string::npos) << failure;
}

TEST_P(EncryptedMail, AMessageThatIsGivenUpIsNotCompleted) {
    bool isWhole = true;
    {
        EncryptedMailServer server(GetParam(), authority_);
        std::promise<void> hasBegun;
        std::promise<void> isCancelled;
        server.onData = [&] {
            hasBegun.set_value();
            isCancelled.get_future().wait();
        };
        SmtpMessage message = messageFor(server);
        message.data += std::string(30'000'000, 'x');
        const auto client = network::makeSmtpClient();
        client->begin(message);
        hasBegun.get_future().wait();
        client->cancel();
        isCancelled.set_value();
        EXPECT_TRUE(client->ended());
        server.waitForConversation();
        isWhole = server.isWhole;
    }
    EXPECT_FALSE(isWhole);
}

TEST_P(EncryptedMail, AnUnknownAuthorityIsNotTrusted) {
    EncryptedMailServer server(GetParam(), authority_);
    trust(TlsAuthority("Another authority"));
    expectFailure(server, "is not trusted");
    EXPECT_TRUE(server.commands.empty());
}

TEST_P(EncryptedMail, ACertificateForAnotherHostIsNotTaken) {
    EncryptedMailServer server(GetParam(), authority_, "other.example");
    expectFailure(server, "is not for \"localhost\"");
    EXPECT_TRUE(server.commands.empty());
}

TEST_P(EncryptedMail, TheSystemsOwnAuthoritiesDoNotKnowIt) {
    const Environment none("VELMORA_CA_FILE", std::nullopt);
    EncryptedMailServer server(GetParam(), authority_);
    expectFailure(server, "is not trusted");
}

TEST_P(EncryptedMail, AMissingFileOfAuthoritiesIsNamed) {
    const Environment missing("VELMORA_CA_FILE", folder_ / "missing.pem");
    EncryptedMailServer server(GetParam(), authority_);
    expectFailure(server, "missing.pem");
}

TEST(MailJob, OnceItIsClosedNothingIsSent) {
    network::MailJob job;
    job.close();
    SmtpMessage message{.server = "localhost",
                        .port = 1,
                        .user = "user",
                        .password = "secret",
                        .sender = "a@example.com",
                        .recipient = "b@example.com",
                        .data = "Subject: x\r\n\r\ntext\r\n"};
    EXPECT_EQ(job.send(message), "There is not enough memory to send the message.");
}

}  // namespace
}  // namespace velmora::linuxhost
