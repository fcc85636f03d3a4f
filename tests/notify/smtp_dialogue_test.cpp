// One dialogue with a mail server, step by step.
#include "notify/mail_server.h"

namespace velmora::tests {
namespace {

struct SmtpDialogueTest : testing::Test, MailRig {
    SmtpDialogue dialogue{host};

    bool send(bool isHtml = false) {
        return dialogue.sendmail(socket, "mail.example.org", 25, "you@example.org",
                                 "me@example.org", "Velmora", "Karvelle Velmora: system info",
                                 "text", timer, isHtml);
    }
    bool waits(const std::string& code) { return dialogue.prcWaitReply(socket, code, timer); }
    /// Waits for a code until that yield, in which it gives up.
    bool stillWaitsAt(int last, const std::string& code) {
        host.onYield = [last](int yield) {
            if (yield == last) throw StillWaiting();
        };
        try {
            waits(code);
        } catch (const StillWaiting&) {
            return true;
        }
        return false;
    }
    void connect(const std::string& received = {}) {
        socket.state = socket_state::connected;
        socket.received = received;
    }
    const Texts whole = mail("mail.example.org", "you@example.org", "text");
    /// The first pieces of the mail.
    Texts pieces(int count) const { return {whole.begin(), whole.begin() + count}; }
};

TEST_F(SmtpDialogueTest, SendsEveryPieceAsItIsWritten) {
    EXPECT_TRUE(send());
    EXPECT_EQ(socket.wire(),
              "helo mail.example.org\r\n"
              "mail from:me@example.org\r\n"
              "rcpt to:you@example.org\r\n"
              "DATA\r\n"
              "From: \"Velmora\" me@example.org\r\n"
              "Subject: Karvelle Velmora: system info\r\n"
              "Content-Type: text/plain;To: you@example.org\r\n"
              "\r\n"
              "text\r\n"
              "\r\n.\r\n");
    EXPECT_EQ(socket.sent, whole);
}

TEST_F(SmtpDialogueTest, TheHtmlFormChangesTheTypeAlone) {
    EXPECT_TRUE(send(true));
    EXPECT_EQ(socket.sent, mail("mail.example.org", "you@example.org", "text", "html"));
}

TEST_F(SmtpDialogueTest, ClosesAndStopsItsTimerAtTheEnd) {
    EXPECT_TRUE(send());
    EXPECT_EQ(socket.state, socket_state::closed);
    EXPECT_EQ(socket.countOf("Close"), 1);
    EXPECT_FALSE(timer.Enabled());
    EXPECT_EQ(timer.Interval(), 0);
}

TEST_F(SmtpDialogueTest, AConnectionThatStandsIsClosedFirst) {
    for (const int state : {socket_state::connecting, socket_state::connected,
                            socket_state::closing, socket_state::failed}) {
        socket.calls.clear();
        socket.state = state;
        EXPECT_TRUE(send()) << state;
        EXPECT_EQ(socket.countOf("Close"), 2) << state;
    }
}

TEST_F(SmtpDialogueTest, ASlowServerIsWaitedFor) {
    beSlow();
    EXPECT_TRUE(send());
    EXPECT_EQ(socket.sent, whole);
    // One yield for the connection, and one for each of the six replies.
    EXPECT_EQ(host.yields, 7);
    EXPECT_EQ(socket.countOf("waitForActivity"), 7);
}

TEST_F(SmtpDialogueTest, AQuickServerCostsNoYield) {
    EXPECT_TRUE(send());
    EXPECT_EQ(host.yields, 0);
}

TEST_F(SmtpDialogueTest, TheTimersTickIsNeverDue) {
    beSlow();
    std::vector<bool> enabled;
    host.onYield = [this, &enabled](int) {
        EXPECT_EQ(timer.Interval(), 0);
        enabled.push_back(timer.Enabled());
        deliver();
    };
    EXPECT_TRUE(send());
    EXPECT_EQ(enabled, std::vector<bool>(7, true));
}

TEST_F(SmtpDialogueTest, TheTimerIsStoppedAndStartedByItsTwoProcedures) {
    EXPECT_EQ(timer.Interval(), 60000);
    SmtpDialogue::prcTimerStart(timer);
    EXPECT_TRUE(timer.Enabled());
    EXPECT_EQ(timer.Interval(), 0);
    timer.setInterval(60000);
    SmtpDialogue::prcTimerStop(timer);
    EXPECT_FALSE(timer.Enabled());
    EXPECT_EQ(timer.Interval(), 0);
}

TEST_F(SmtpDialogueTest, AConnectionThatFailsIsWaitedForWithoutEnd) {
    for (const int state : {socket_state::failed, socket_state::closed, socket_state::closing,
                            socket_state::resolvingHost, socket_state::connecting}) {
        socket.state = socket_state::closed;
        socket.stateAfterConnect = state;
        host.yields = 0;
        host.onYield = [](int yield) {
            if (yield == 1000) throw StillWaiting();
        };
        EXPECT_THROW(send(), StillWaiting) << state;
        EXPECT_TRUE(socket.sent.empty());
    }
}

TEST_F(SmtpDialogueTest, ASilentServerIsWaitedForWithoutEnd) {
    const char* const silentAt[] = {"helo ", "mail from:", "rcpt to:", "DATA\r\n", "\r\n.\r\n"};
    const std::size_t sent[] = {1, 2, 3, 4, 10};
    for (std::size_t step = 0; step < 5; ++step) {
        const auto reply = replies.extract(silentAt[step]);
        socket.sent.clear();
        host.yields = 0;
        host.onYield = [](int yield) {
            if (yield == 1000) throw StillWaiting();
        };
        EXPECT_THROW(send(), StillWaiting) << silentAt[step];
        EXPECT_EQ(socket.sent.size(), sent[step]);
        replies[reply.key()] = reply.mapped();
    }
}

TEST_F(SmtpDialogueTest, WithoutAGreetingNothingIsSent) {
    for (const char* other : {"", "22\r\n", "250 20\r\n"}) {
        greeting = other;
        host.yields = 0;
        host.onYield = [](int yield) {
            if (yield == 1000) throw StillWaiting();
        };
        EXPECT_THROW(send(), StillWaiting) << other;
        EXPECT_TRUE(socket.sent.empty());
    }
}

TEST_F(SmtpDialogueTest, AServerThatClosesEndsItAsFailed) {
    const std::pair<const char*, int> closings[] = {
        {"helo ", 1}, {"mail from:", 2}, {"rcpt to:", 3}, {"DATA\r\n", 4}, {"\r\n.\r\n", 10}};
    for (const auto& [closing, sent] : closings) {
        closesAt = closing;
        socket.sent.clear();
        EXPECT_FALSE(send()) << closing;
        EXPECT_EQ(socket.sent, pieces(sent)) << closing;
        // Only a connection that stands is closed.
        EXPECT_EQ(socket.state, socket_state::closing);
        EXPECT_TRUE(timer.Enabled());
    }
}

TEST_F(SmtpDialogueTest, AServerThatClosesWhileTheTextGoesOutIsAnError) {
    closesAt = "Subject: ";
    EXPECT_EQ(errorOf([this] { send(); }), fake::FakeWinsock::notConnected);
    EXPECT_EQ(socket.sent, pieces(6));
}

TEST_F(SmtpDialogueTest, AFailureReplyIsNoEnd) {
    replies["rcpt to:"] = "550 no such user\r\n";
    int waited = 0;
    host.onYield = [this, &waited](int) {
        if (++waited == 50) socket.state = socket_state::closing;
    };
    EXPECT_FALSE(send());
    EXPECT_EQ(waited, 50);
    EXPECT_EQ(socket.sent, pieces(3));
}

TEST_F(SmtpDialogueTest, ACodeCountsWhereverItStands) {
    greeting = "554 busy, queue number 1220\r\n";
    replies["helo "] = "550 250 mails in your box\r\n";
    replies["\r\n.\r\n"] = "425 try later\r\n";
    EXPECT_TRUE(send());
}

TEST_F(SmtpDialogueTest, ADialogueHasOnlyTheCodesOfItsSteps) {
    // Each of these lacks the digits that are waited for.
    const std::pair<const char*, const char*> others[] = {{"helo ", "220 25\r\n"},
                                                          {"mail from:", "25\r\n"},
                                                          {"rcpt to:", "354 25 50\r\n"},
                                                          {"DATA\r\n", "250 35 54\r\n"},
                                                          {"\r\n.\r\n", "354 2 5\r\n"}};
    for (const auto& [step, other] : others) {
        const std::string right = replies[step];
        replies[step] = other;
        host.yields = 0;
        host.onYield = [](int yield) {
            if (yield == 100) throw StillWaiting();
        };
        EXPECT_THROW(send(), StillWaiting) << step;
        replies[step] = right;
    }
}

TEST_F(SmtpDialogueTest, TheLastStepTakesAnyReplyWithTheseTwoDigits) {
    for (const char* reply : {"250 taken\r\n", "251\r\n", "425 no\r\n", "25"}) {
        replies["\r\n.\r\n"] = reply;
        EXPECT_TRUE(send()) << reply;
    }
}

TEST_F(SmtpDialogueTest, MoreTextInTheFirstPacketDoesNoHarm) {
    greeting = "220-welcome\r\n220-to this server\r\n220 ready\r\n";
    EXPECT_TRUE(send());
    EXPECT_EQ(socket.sent, whole);
}

TEST_F(SmtpDialogueTest, AServerThatTalksAheadIsNotHeardTwice) {
    // What came with the greeting is gone with the greeting's wait.
    greeting = "220 ready\r\n250 hello\r\n";
    replies.erase("helo ");
    host.onYield = [](int yield) {
        if (yield == 100) throw StillWaiting();
    };
    EXPECT_THROW(send(), StillWaiting);
    EXPECT_EQ(socket.sent, pieces(1));
}

TEST_F(SmtpDialogueTest, LinesThatBeginWithADotAreNotDoubled) {
    EXPECT_TRUE(
        dialogue.sendmail(socket, "s", 25, "r", "f", "d", "s", ".one\r\n..\r\n.two", timer, false));
    EXPECT_EQ(socket.sent[8], ".one\r\n..\r\n.two\r\n");
}

TEST_F(SmtpDialogueTest, TextsWithLineEndsGoOutAsTheyStand) {
    EXPECT_TRUE(dialogue.sendmail(socket, "s", 25, "a@b\r\nc@d\r\n", "f\r\nx", "d\"q", "s\r\nt",
                                  "b", timer, false));
    EXPECT_EQ(socket.sent[1], "mail from:f\r\nx\r\n");
    EXPECT_EQ(socket.sent[2], "rcpt to:a@b\r\nc@d\r\n\r\n");
    EXPECT_EQ(socket.sent[4], "From: \"d\"q\" f\r\nx\r\n");
    EXPECT_EQ(socket.sent[5], "Subject: s\r\nt\r\n");
    EXPECT_EQ(socket.sent[7], "To: a@b\r\nc@d\r\n\r\n\r\n");
}

TEST_F(SmtpDialogueTest, NoQuitIsSent) {
    EXPECT_TRUE(send());
    EXPECT_EQ(socket.wire().find("quit"), std::string::npos);
    EXPECT_EQ(socket.wire().find("QUIT"), std::string::npos);
}

TEST_F(SmtpDialogueTest, AReplyThatIsThereNeedsNoYield) {
    connect("250 ok\r\n");
    timer.setInterval(1);
    EXPECT_TRUE(waits("250"));
    EXPECT_EQ(host.yields, 0);
    EXPECT_TRUE(timer.Enabled());
    EXPECT_EQ(timer.Interval(), 0);
}

TEST_F(SmtpDialogueTest, ACodeMayComeInPieces) {
    connect("2");
    host.onYield = [this](int yield) { socket.received = yield == 1 ? "5" : "0"; };
    EXPECT_TRUE(waits("250"));
    EXPECT_EQ(host.yields, 2);
}

TEST_F(SmtpDialogueTest, ACodeMayBeCutOffAfterALongText) {
    connect(std::string(5000, '2') + "2");
    host.onYield = [this](int yield) { socket.received = yield == 1 ? "" : "50"; };
    EXPECT_TRUE(waits("250"));
    EXPECT_EQ(host.yields, 2);
}

TEST_F(SmtpDialogueTest, DigitsOfDifferentPlacesAreNoCode) {
    connect("2 5 0");
    EXPECT_TRUE(stillWaitsAt(100, "250"));
}

TEST_F(SmtpDialogueTest, EndsWhenTheConnectionIsGoneWithoutTheCode) {
    for (const int state : {socket_state::closed, socket_state::closing, socket_state::failed}) {
        connect("220");
        host.yields = 0;
        host.onYield = [this, state](int yield) {
            if (yield == 3) socket.state = state;
        };
        EXPECT_FALSE(waits("250")) << state;
        EXPECT_EQ(host.yields, 3);
    }
}

TEST_F(SmtpDialogueTest, ACodeThatCameBeforeTheEndCounts) {
    connect("250 good-bye");
    socket.state = socket_state::closing;
    EXPECT_TRUE(waits("250"));
}

TEST_F(SmtpDialogueTest, ACodeThatComesWithTheEndDuringAYieldIsNotRead) {
    connect("220");
    host.onYield = [this](int) {
        socket.state = socket_state::closing;
        socket.received = "250";
    };
    EXPECT_FALSE(waits("250"));
}

TEST_F(SmtpDialogueTest, WithoutAConnectionReadingIsAnError) {
    EXPECT_EQ(errorOf([this] { waits("250"); }), fake::FakeWinsock::notConnected);
}

}  // namespace
}  // namespace velmora::tests
