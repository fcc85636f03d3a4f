// The n-th call of the socket fails, for each n of a whole sending.
#include "notify/mail_server.h"

namespace velmora::tests {
namespace {

struct FaultRun : MailRig {
    explicit FaultRun(bool isSlow) {
        if (isSlow) beSlow();
        recipients({"a@example.org", "b@example.org", "c@example.org"});
    }

    /// How many mails went out whole, with the recipient that stands in their third piece.
    Texts written() const {
        Texts all;
        Texts mail;
        for (const std::string& piece : socket.sent) {
            if (piece.starts_with("helo ")) mail.clear();
            mail.push_back(piece);
            if (piece == "\r\n.\r\n" && mail.size() == 10) all.push_back(mail[2]);
        }
        return all;
    }
};

TEST(MailFault, OneFailingCallCostsOneMailAtMost) {
    const Texts all{"rcpt to:a@example.org\r\n", "rcpt to:b@example.org\r\n",
                    "rcpt to:c@example.org\r\n"};
    for (const bool slow : {false, true}) {
        FaultRun whole(slow);
        whole.sending.prcSendEmailZ();
        ASSERT_EQ(whole.written(), all);
        const int calls = static_cast<int>(whole.socket.calls.size());
        ASSERT_GT(calls, 60);
        for (int n = 1; n <= calls; ++n) {
            SCOPED_TRACE(n);
            FaultRun run(slow);
            run.socket.failCall(n);
            EXPECT_EQ(run.statusWords(),
                      (Texts{"Busy sending mail...", "Busy sending mail - Email sent: 1/3",
                             "Busy sending mail - Email sent: 2/3",
                             "Busy sending mail - Email sent: 3/3", "Ready - Emails sent: 3"}));
            EXPECT_EQ(run.alertTexts(), (Texts{"Notfication Message Send to: c@example.org",
                                               "Notfication Message Send to: b@example.org",
                                               "Notfication Message Send to: a@example.org"}));
            // The calls are shared evenly between the three.
            const auto hit = static_cast<std::size_t>((n - 1) / (calls / 3));
            Texts others = all;
            others.erase(others.begin() + static_cast<std::ptrdiff_t>(hit));
            Texts written = run.written();
            std::erase(written, all[hit]);
            EXPECT_EQ(written, others);
        }
    }
}

TEST(MailFault, AnAlertThatFailsKeepsNoMailBack) {
    FaultRun run(false);
    run.forms.globals.lngAlertsRaised = 2'147'483'647;  // counting on is an overflow
    run.sending.prcSendEmailZ();
    EXPECT_EQ(run.written().size(), 3u);
    EXPECT_EQ(run.form.StatusTxt.Text(), "Ready - Emails sent: 3");
}

TEST(MailFault, AMachineThatFailsLeavesTheBodyEmpty) {
    FaultRun run(false);
    run.select({6});
    run.machine.drives["C:"] = {1, 2};
    run.machine.files["C:\\a.txt"] = "one";
    run.form.txtCustomContent.setText("C:\\a.txt");
    run.machine.log.failCall(2, error::deviceIo);  // the reading, behind the test for the file
    run.sending.prcSendEmailZ();
    EXPECT_EQ(run.written().size(), 3u);
    EXPECT_EQ(run.socket.sent[8], "\r\n");
}

}  // namespace
}  // namespace velmora::tests
