#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "loopback_server.h"
#include "platform/network/mail_client.h"

namespace velmora::network {
namespace {

class MailClientTest : public testing::Test {
  protected:
    void SetUp() override {
        const std::string reason = client->unavailableBecause();
        if (!reason.empty()) GTEST_SKIP() << reason;
    }

    static SmtpMessage messageTo(std::int32_t port) {
        return {.server = "127.0.0.1",
                .port = port,
                .encryption = Encryption::startTls,
                .user = "user",
                .password = "secret",
                .sender = "a@example.com",
                .recipient = "b@example.com",
                .data = "Subject: x\r\n\r\ntext\r\n"};
    }
    bool comesToAnEnd() {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (!client->ended() && std::chrono::steady_clock::now() < end) {
            client->waitForActivity(100);
        }
        return client->ended();
    }
    /// Why the message could not be sent.
    std::string failureOf(const SmtpMessage& message) {
        client->begin(message);
        EXPECT_TRUE(comesToAnEnd());
        return client->failure();
    }
    /// The same with a server that says only this and ends.
    std::string failureWith(const std::string& greeting) {
        LoopbackServer server([&](Peer& peer) { peer.send(greeting); });
        return failureOf(messageTo(server.port()));
    }

    std::unique_ptr<SmtpClient> client = makeSmtpClient();
};

bool has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST_F(MailClientTest, NothingIsUnderWayAtFirst) {
    EXPECT_TRUE(client->ended());
    EXPECT_EQ(client->failure(), "");
    client->cancel();
    client->waitForActivity(3'600'000);
    EXPECT_TRUE(client->ended());
}

TEST_F(MailClientTest, WhatHasLineBreaksIsRefusedAtOnce) {
    LoopbackServer server([](Peer& peer) { peer.waitForEnd(); });
    const auto expectRefusal = [&](std::string SmtpMessage::*field, const std::string& text) {
        SmtpMessage message = messageTo(server.port());
        message.*field = text;
        client->begin(message);
        EXPECT_TRUE(client->ended());
        EXPECT_NE(client->failure(), "");
    };
    for (const std::string& end : {std::string("\r\nRCPT TO:<c@example.com>"), std::string("\n"),
                                   std::string("\r"), std::string("\0", 1)}) {
        expectRefusal(&SmtpMessage::server, "127.0.0.1" + end);
        expectRefusal(&SmtpMessage::user, "user" + end);
        expectRefusal(&SmtpMessage::sender, "a@example.com" + end);
        expectRefusal(&SmtpMessage::recipient, "b@example.com" + end);
    }
    for (const char* name : {"", "127.0.0.1/x", "x@127.0.0.1", "127.0.0.1?", "127.0.0.1#", "a b"}) {
        expectRefusal(&SmtpMessage::server, name);
    }
    expectRefusal(&SmtpMessage::recipient, "");
    EXPECT_EQ(server.connections(), 0);
}

TEST_F(MailClientTest, PortsOutsideTheRangeAreRefusedAtOnce) {
    for (const std::int32_t port : {-1, 0, 65536}) {
        client->begin(messageTo(port));
        EXPECT_TRUE(client->ended());
        EXPECT_TRUE(has(client->failure(), std::to_string(port))) << client->failure();
    }
}

TEST_F(MailClientTest, AServerThatIsNotThereIsNamed) {
    const std::int32_t port = deafPort();
    const std::string failure = failureOf(messageTo(port));
    EXPECT_TRUE(has(failure, "127.0.0.1") && has(failure, std::to_string(port))) << failure;
    SmtpMessage message = messageTo(25);
    message.server = "nowhere.invalid";
    const std::string unknown = failureOf(message);
    EXPECT_TRUE(has(unknown, "nowhere.invalid")) << unknown;
}

TEST_F(MailClientTest, WithoutEncryptionNothingIsSaid) {
    std::string said;
    {
        LoopbackServer server([&](Peer& peer) {
            peer.send("220 mail.example ready\r\n");
            said += peer.receiveUntil("\r\n");
            peer.send("250-mail.example\r\n250 AUTH PLAIN LOGIN\r\n");
            said += peer.receiveUntil("\r\n");
            peer.send("502 no\r\n");
            peer.waitForEnd();
        });
        const std::string failure = failureOf(messageTo(server.port()));
        EXPECT_TRUE(has(failure, "encryption")) << failure;
        client.reset();
    }
    EXPECT_FALSE(has(said, "AUTH") || has(said, "MAIL")) << said;
}

TEST_F(MailClientTest, AServerThatSpeaksNoMailIsAFailure) {
    const std::string busy = failureWith("554 go away\r\n");
    EXPECT_TRUE(has(busy, "554 go away")) << busy;
    EXPECT_NE(failureWith("HTTP/1.1 400 Bad Request\r\n\r\n"), "");
    EXPECT_NE(failureWith(""), "");
}

TEST_F(MailClientTest, ASendingCanBeGivenUp) {
    LoopbackServer silent([](Peer& peer) { peer.waitForEnd(); });
    client->begin(messageTo(silent.port()));
    client->waitForActivity(10);
    EXPECT_FALSE(client->ended());
    EXPECT_EQ(client->failure(), "");
    client->cancel();
    EXPECT_TRUE(client->ended());
    EXPECT_NE(client->failure(), "");
    // The next one is another sending.
    client->begin(messageTo(silent.port()));
    EXPECT_FALSE(client->ended());
    client->begin(messageTo(deafPort()));
    EXPECT_TRUE(comesToAnEnd());
    EXPECT_TRUE(has(client->failure(), "reached")) << client->failure();
}

TEST_F(MailClientTest, ItsEndGivesUpWhatIsUnderWay) {
    LoopbackServer silent([](Peer& peer) { peer.waitForEnd(); });
    client->begin(messageTo(silent.port()));
    client->waitForActivity(10);
    client.reset();
}

TEST(NoMailClient, SaysWhyAndEndsAtOnce) {
    const auto client = makeSmtpClient();
    const std::string reason = client->unavailableBecause();
    if (reason.empty()) GTEST_SKIP() << "this build sends encrypted mail";
    client->begin({});
    EXPECT_TRUE(client->ended());
    EXPECT_EQ(client->failure(), reason);
}

}  // namespace
}  // namespace velmora::network
