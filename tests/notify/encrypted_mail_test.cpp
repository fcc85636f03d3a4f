// The mail over an encrypted connection: its settings, its recipients, and sendings that overlap or
// are cut short.
#include "notify/encrypted_mail.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "forms/form_numbers.h"
#include "notify/notify_rig.h"

namespace velmora::tests {
namespace {

struct EncryptedMailTest : testing::Test, NotifyRig {
    EncryptedMailTest() {
        form.txtMailServer.setText(" mail.example.org ");
        form.txtMailPort.setText("465");
        form.txtYourEmail.setText(" <me@example.org>");
        form.txtUser.setText("somebody");
        form.txtPass.setText("secret");
        form.cboEncryption.setText(mail_encryption::tls);
    }
    std::string send(const std::string& recipient) { return mail.send(recipient, body); }
    /// To whom a message went out, in order.
    Texts recipients() const {
        Texts texts;
        for (const SmtpMessage& message : client.messages) texts.push_back(message.recipient);
        return texts;
    }

    fake::FakeSmtpClient& client = machine.smtpClient;
    EncryptedMail mail{form, platform, host};
    std::string body = "Hello";
};

TEST_F(EncryptedMailTest, TheMessageHasTheAccountsSettings) {
    EXPECT_EQ(send("<a@example.org>"), "");
    ASSERT_EQ(client.messages.size(), 1u);
    const SmtpMessage& message = client.messages[0];
    EXPECT_EQ(message.server, "mail.example.org");
    EXPECT_EQ(message.port, 465);
    EXPECT_EQ(message.encryption, Encryption::tls);
    EXPECT_EQ(message.user, "somebody");
    EXPECT_EQ(message.password.text(), "secret");
    EXPECT_EQ(message.sender, "me@example.org");
    EXPECT_EQ(message.recipient, "a@example.org");
    EXPECT_TRUE(message.data.starts_with("Date: Sat, 14 Mar 2026 15:09:26 +0000\r\n"));
    EXPECT_TRUE(message.data.ends_with("\r\n\r\nSGVsbG8=\r\n"));
    form.cboEncryption.setText(mail_encryption::startTls);
    send("a@example.org");
    EXPECT_EQ(client.messages[1].encryption, Encryption::startTls);
}

TEST_F(EncryptedMailTest, YieldsUntilItHasEnded) {
    client.napsToEnd = 3;
    EXPECT_EQ(send("a@example.org"), "");
    EXPECT_EQ(host.yields, 3);
    EXPECT_EQ(client.cancelled, 0);
    EXPECT_EQ(recipients(), Texts{"a@example.org"});
}

TEST_F(EncryptedMailTest, GivesTheReasonOfAFailure) {
    client.napsToEnd = 3;
    client.reason = "The mail server refuses the message: 550 no";
    EXPECT_EQ(send("a@example.org"), "The mail server refuses the message: 550 no");
    client.reason = "";
    EXPECT_EQ(send("a@example.org"), "");
}

TEST_F(EncryptedMailTest, APortThatNoConnectionHasIsTheReason) {
    for (const char* port : {"smtp", "0", "65536", "25.5"}) {
        form.txtMailPort.setText(port);
        EXPECT_EQ(send("a@example.org"), "the mail server's port is no number from 1 to 65535");
    }
    EXPECT_TRUE(client.messages.empty());
}

TEST_F(EncryptedMailTest, EachAddressOfARecipientGetsAMessage) {
    EXPECT_EQ(send("a@example.org\r\n \r\n b@example.org \r\n\r\n<c@example.org>\r\n"), "");
    EXPECT_EQ(recipients(), (Texts{"a@example.org", "b@example.org", "c@example.org"}));
    for (const SmtpMessage& message : client.messages) {
        EXPECT_TRUE(message.data.find("\r\nTo: <" + message.recipient + ">\r\n") !=
                    std::string::npos);
    }
}

TEST_F(EncryptedMailTest, OneAddressMayEndWithALineEnd) {
    EXPECT_EQ(send("a@example.org\r\n"), "");
    EXPECT_EQ(recipients(), Texts{"a@example.org"});
    client.reason = "no";
    EXPECT_EQ(send("a@example.org\r\n"), "no");
}

TEST_F(EncryptedMailTest, TheReasonsOfSeveralAddressesAreJoined) {
    client.reasons = {{"a@example.org", "550 no"}, {"c@example.org", "551 gone"}};
    EXPECT_EQ(send("a@example.org\r\nb@example.org\r\nc@example.org"),
              "a@example.org: 550 no; c@example.org: 551 gone");
    EXPECT_EQ(send("b@example.org\r\nc@example.org"), "c@example.org: 551 gone");
    EXPECT_EQ(client.messages.size(), 5u);
}

TEST_F(EncryptedMailTest, AnAddressThatIsRefusedKeepsNoOtherFromItsMessage) {
    const std::string failure = send("a b@example.org\r\nc@example.org");
    EXPECT_TRUE(failure.starts_with("a b@example.org: the recipient's address ")) << failure;
    EXPECT_EQ(recipients(), Texts{"c@example.org"});
}

TEST_F(EncryptedMailTest, WhatIsNoAddressIsRefused) {
    for (const char* recipient : {"", "  ", "\r\n", " \r\n\r\n", "a@example.org\rb@example.org",
                                  "a@example.org\nb@example.org", "a@example.org\n",
                                  "a@example.org\r", "a@example.org,b@example.org"}) {
        EXPECT_NE(send(recipient), "") << recipient;
    }
    form.txtYourEmail.setText("Me <me@example.org>");
    EXPECT_NE(send("a@example.org"), "");
    EXPECT_TRUE(client.messages.empty());
    EXPECT_EQ(host.yields, 0);
}

TEST_F(EncryptedMailTest, AMailThatIsBeingSentKeepsAnotherFromBeginning) {
    client.napsToEnd = 3;
    std::string other;
    host.onYield = [&](int yield) {
        if (yield == 2) other = send("b@example.org");
    };
    EXPECT_EQ(send("a@example.org"), "");
    EXPECT_EQ(other, "another mail is being sent");
    EXPECT_EQ(recipients(), Texts{"a@example.org"});
    EXPECT_EQ(client.cancelled, 0);
    EXPECT_EQ(send("c@example.org"), "");
}

TEST_F(EncryptedMailTest, NorDoesAnotherBeginBetweenTwoAddresses) {
    client.napsToEnd = 1;
    Texts others;
    host.onYield = [&](int) { others.push_back(send("c@example.org")); };
    EXPECT_EQ(send("a@example.org\r\nb@example.org"), "");
    EXPECT_EQ(others, Texts(2, "another mail is being sent"));
    EXPECT_EQ(recipients(), (Texts{"a@example.org", "b@example.org"}));
}

TEST_F(EncryptedMailTest, TheEndOfTheProgramGivesItUp) {
    client.napsToEnd = 3;
    host.onYield = [](int yield) {
        if (yield == 2) throw ProgramEnd();
    };
    EXPECT_THROW(send("a@example.org\r\nb@example.org"), ProgramEnd);
    EXPECT_EQ(client.cancelled, 1);
    EXPECT_EQ(recipients(), Texts{"a@example.org"});
    host.onYield = nullptr;
    EXPECT_EQ(send("c@example.org"), "");
    EXPECT_EQ(recipients(), (Texts{"a@example.org", "c@example.org"}));
    EXPECT_EQ(client.cancelled, 1);
}

TEST_F(EncryptedMailTest, AnErrorInAYieldIsTheReasonAndGivesItUp) {
    client.napsToEnd = 3;
    host.onYield = [](int yield) {
        if (yield == 1) throw RuntimeError(error::typeMismatch);
    };
    EXPECT_EQ(send("a@example.org"), "Type mismatch");
    EXPECT_EQ(client.cancelled, 1);
    EXPECT_EQ(send("a@example.org"), "");
}

}  // namespace
}  // namespace velmora::tests
