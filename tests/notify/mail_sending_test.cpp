// Sending the mail to all recipients.
#include "notify/mail_server.h"

namespace velmora::tests {
namespace {

const std::string bareBody = "\r\nCustom Message: \r\n";

struct MailSendingTest : testing::Test, MailRig {
    const std::string& status() { return form.StatusTxt.Text(); }
    /// The pieces of the mail with that number, from 0.
    Texts mailNumber(std::size_t number) const {
        const auto from = socket.sent.begin() + static_cast<std::ptrdiff_t>(number * 10);
        return {from, from + 10};
    }
};

TEST_F(MailSendingTest, SendsOneMailToEachRecipient) {
    recipients({"a@example.org", "b@example.org"});
    form.txtCustMsg.setText("Hello");
    sending.prcSendEmailZ();
    ASSERT_EQ(socket.sent.size(), 20u);
    EXPECT_EQ(mailNumber(0), mail("mail.example.org", "a@example.org", bareBody + "Hello"));
    EXPECT_EQ(mailNumber(1), mail("mail.example.org", "b@example.org", bareBody + "Hello"));
    EXPECT_EQ(socket.countOf("Connect mail.example.org 25"), 2);
}

TEST_F(MailSendingTest, TheStatusShowsHowFarItIs) {
    recipients({"a@example.org", "b@example.org"});
    EXPECT_EQ(statusWords(),
              (Texts{"Busy sending mail...", "Busy sending mail - Email sent: 1/2",
                     "Busy sending mail - Email sent: 2/2", "Ready - Emails sent: 2"}));
}

TEST_F(MailSendingTest, EachAttemptIsAnAlert) {
    recipients({"a@example.org", " b@example.org  "});
    sending.prcSendEmailZ();
    EXPECT_EQ(alertTexts(), (Texts{"Notfication Message Send to: b@example.org",
                                   "Notfication Message Send to: a@example.org"}));
    const ConstAlertRow alert(form1.LVAlert.ListItems(1));
    EXPECT_EQ(alert.rating(), "Medium");
    EXPECT_EQ(alert.time(), "20260314 15:09");
    EXPECT_FALSE(forms.sysWorkSystray.tmrSystray.Enabled());
}

TEST_F(MailSendingTest, WithoutRecipientsNothingIsSent) {
    EXPECT_EQ(statusWords(), (Texts{"Busy sending mail...", "Ready - Emails sent: 0"}));
    EXPECT_TRUE(socket.calls.empty());
    EXPECT_TRUE(alertTexts().empty());
}

TEST_F(MailSendingTest, AMissingSettingIsNamedAndNothingElseHappens) {
    const std::pair<TextBox*, const char*> settings[] = {
        {&form.txtMailServer, "No SMTP server selected for outgoing mail"},
        {&form.txtMailPort, "No SMTP server PORT selected for outgoing mail (default = 25)"},
        {&form.txtYourEmail, "No EMAIL address selected for outgoing mail"}};
    recipients({"a@example.org"});
    select({5});
    for (const auto& [box, word] : settings) {
        const std::string filled = box->Text();
        for (const char* nothing : {"", "   "}) {
            box->setText(nothing);
            form.StatusTxt.setText("before");
            EXPECT_EQ(statusWords(), Texts{word});
        }
        box->setText(filled);
    }
    EXPECT_TRUE(socket.calls.empty());
    EXPECT_TRUE(alertTexts().empty());
    EXPECT_EQ(machine.log.count(), 0);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(MailSendingTest, OfSeveralMissingSettingsTheFirstIsNamed) {
    form.txtYourEmail.setText("");
    form.txtMailPort.setText("");
    sending.prcSendEmailZ();
    EXPECT_EQ(status(), "No SMTP server PORT selected for outgoing mail (default = 25)");
    form.txtMailServer.setText("");
    sending.prcSendEmailZ();
    EXPECT_EQ(status(), "No SMTP server selected for outgoing mail");
}

TEST_F(MailSendingTest, TheProxysSettingsAreNotAmongThoseThatMustBeThere) {
    recipients({"a@example.org"});
    useProxy();
    form.txtMailServer.setText("");
    sending.prcSendEmailZ();
    EXPECT_EQ(status(), "No SMTP server selected for outgoing mail");
}

TEST_F(MailSendingTest, TheBodyIsTheSectionsAndTheCustomMessage) {
    recipients({"a@example.org"});
    select({1});
    form.txtCustMsg.setText("one\r\ntwo");
    sending.prcSendEmailZ();
    EXPECT_EQ(socket.sent[8],
              "Alerts\r\n=============\r\nno info\r\n\r\n\r\nCustom Message: \r\none\r\ntwo\r\n");
}

TEST_F(MailSendingTest, TheNumberOfEventsIsTheCustomMessageToo) {
    recipients({"a@example.org"});
    select({9});
    form.txtCustMsg.setText("12");
    sending.prcSendEmailZ();
    EXPECT_EQ(socket.sent[8],
              inventory.prcWMI_NTEvt(12) + "\r\n\r\n\r\nCustom Message: \r\n12\r\n");
}

TEST_F(MailSendingTest, ANumberOfEventsBeyond16BitsEmptiesTheBody) {
    recipients({"a@example.org"});
    select({1, 9});
    form.txtCustMsg.setText("40000");
    sending.prcSendEmailZ();
    EXPECT_EQ(socket.sent, mail("mail.example.org", "a@example.org", ""));
    EXPECT_EQ(status(), "Ready - Emails sent: 1");
}

TEST_F(MailSendingTest, ACustomFileThatCanNotBeReadEmptiesTheBody) {
    recipients({"a@example.org"});
    machine.drives["C:"] = {1, 2};
    machine.files["C:\\a.txt"] = "one";
    machine.lockedFiles["C:\\a.txt"] = error::permissionDenied;
    form.txtCustomContent.setText("C:\\a.txt");
    select({6});
    sending.prcSendEmailZ();
    EXPECT_EQ(socket.sent, mail("mail.example.org", "a@example.org", ""));
}

TEST_F(MailSendingTest, TheBodyIsComposedOnceBeforeTheFirstRecipient) {
    recipients({"a@example.org", "b@example.org"});
    select({5});
    sending.prcSendEmailZ();
    EXPECT_EQ(machine.log.calls(), Texts{"GlobalMemoryStatus 32"});
}

TEST_F(MailSendingTest, TheHtmlOptionHasNoEffect) {
    recipients({"a@example.org"});
    form.chkIsHTML.setValue(1);
    sending.prcSendEmailZ();
    EXPECT_EQ(socket.sent, mail("mail.example.org", "a@example.org", bareBody));
}

TEST_F(MailSendingTest, WithAProxyTheMailGoesThereInHtmlForm) {
    recipients({"a@example.org", "b@example.org", "c@example.org"});
    form.txtCustMsg.setText("one\r\ntwo");
    useProxy();
    sending.prcSendEmailZ();
    ASSERT_EQ(socket.sent.size(), 30u);
    const std::string body = "<br>Custom Message: <br>one<br>two";
    const Texts entries{"a@example.org", "b@example.org", "c@example.org"};
    for (std::size_t i = 0; i < entries.size(); ++i) {
        EXPECT_EQ(mailNumber(i), mail("proxy.example.org", entries[i], body, "html")) << i;
    }
    EXPECT_EQ(socket.countOf("Connect proxy.example.org 8025"), 3);
    EXPECT_EQ(socket.countOf("Connect"), 3);
}

TEST_F(MailSendingTest, OnlyWholeLineEndsBecomeBreaks) {
    recipients({"a@example.org"});
    form.txtCustMsg.setText("a\rb\nc<d>&");
    useProxy();
    sending.prcSendEmailZ();
    EXPECT_EQ(socket.sent[8], "<br>Custom Message: <br>a\rb\nc<d>&\r\n");
}

TEST_F(MailSendingTest, TheBodyStaysChangedWhenTheProxyIsSwitchedOffMeanwhile) {
    recipients({"a@example.org", "b@example.org"});
    useProxy();
    beSlow();
    host.onYield = [this](int yield) {
        if (yield == 3) form.chkProxy.setValue(0);
        deliver();
    };
    sending.prcSendEmailZ();
    const std::string body = "<br>Custom Message: <br>";
    ASSERT_EQ(socket.sent.size(), 20u);
    EXPECT_EQ(mailNumber(0), mail("proxy.example.org", "a@example.org", body, "html"));
    EXPECT_EQ(mailNumber(1), mail("mail.example.org", "b@example.org", body, "plain"));
}

TEST_F(MailSendingTest, TheAccountsTextsAreUsedAsTheyAreTyped) {
    recipients({"a@example.org"});
    form.txtMailServer.setText(" mail.example.org ");
    form.txtYourEmail.setText(" <me@example.org>");
    form.txtMailFromDisplayName.setText("");
    form.txtMailSubj.setText("  ");
    form.txtMailPort.setText(" 2525 ");
    sending.prcSendEmailZ();
    EXPECT_EQ(socket.countOf("Connect  mail.example.org  2525"), 1);
    EXPECT_EQ(socket.sent[0], "helo  mail.example.org \r\n");
    EXPECT_EQ(socket.sent[1], "mail from: <me@example.org>\r\n");
    EXPECT_EQ(socket.sent[4], "From: \"\"  <me@example.org>\r\n");
    EXPECT_EQ(socket.sent[5], "Subject:   \r\n");
}

TEST_F(MailSendingTest, RecipientsAreTrimmedOfBlanksOnly) {
    recipients({"  a@example.org ", "b@example.org\r\nc@example.org\r\n", ""});
    sending.prcSendEmailZ();
    EXPECT_EQ(socket.sent[2], "rcpt to:a@example.org\r\n");
    EXPECT_EQ(socket.sent[12], "rcpt to:b@example.org\r\nc@example.org\r\n\r\n");
    EXPECT_EQ(socket.sent[22], "rcpt to:\r\n");
    EXPECT_EQ(alertTexts()[1], "Notfication Message Send to: b@example.org\r\nc@example.org\r\n");
}

TEST_F(MailSendingTest, NothingOfTheAccountsUserIsSent) {
    recipients({"a@example.org"});
    form.txtUser.setText("somebody");
    form.txtPass.setText("secret");
    sending.prcSendEmailZ();
    EXPECT_EQ(socket.sent, mail("mail.example.org", "a@example.org", bareBody));
}

TEST_F(MailSendingTest, APortThatIsNoNumberSkipsTheMailAndCounts) {
    recipients({"a@example.org", "b@example.org"});
    for (const char* port : {"smtp", "25a", "3000000000", "1,5x"}) {
        form.txtMailPort.setText(port);
        EXPECT_EQ(statusWords().back(), "Ready - Emails sent: 2") << port;
    }
    EXPECT_TRUE(socket.calls.empty());
    EXPECT_EQ(alertTexts().size(), 8u);
}

TEST_F(MailSendingTest, APortThatNoConnectionHasSkipsTheMailAndCounts) {
    recipients({"a@example.org"});
    for (const char* port : {"0", "-25", "65536", "2147483647"}) {
        form.txtMailPort.setText(port);
        EXPECT_EQ(statusWords().back(), "Ready - Emails sent: 1") << port;
        EXPECT_EQ(socket.state, socket_state::closed);
    }
    EXPECT_TRUE(socket.sent.empty());
    EXPECT_EQ(alertTexts().size(), 4u);
}

TEST_F(MailSendingTest, APortIsReadAsAWholeNumber) {
    recipients({"a@example.org"});
    for (const auto& [text, port] :
         {std::pair{"1,025", "1025"}, {"24.6", "25"}, {"1E3", "1000"}, {"65535", "65535"}}) {
        form.txtMailPort.setText(text);
        socket.calls.clear();
        sending.prcSendEmailZ();
        EXPECT_EQ(socket.countOf(std::string("Connect mail.example.org ") + port), 1) << text;
    }
}

TEST_F(MailSendingTest, AProxyWithoutAPortChangesTheBodyAndSkipsTheMail) {
    recipients({"a@example.org"});
    form.chkProxy.setValue(1);
    sending.prcSendEmailZ();
    EXPECT_TRUE(socket.calls.empty());
    EXPECT_EQ(status(), "Ready - Emails sent: 1");
}

TEST_F(MailSendingTest, TheBodyOfAMailThatWasSkippedForItsPortStaysChanged) {
    recipients({"a@example.org", "b@example.org"});
    form.chkProxy.setValue(1);
    form1.LVAlert.RowInserted.connect([this](int) { form.chkProxy.setValue(0); });
    sending.prcSendEmailZ();
    EXPECT_EQ(socket.sent, mail("mail.example.org", "b@example.org", "<br>Custom Message: <br>"));
}

TEST_F(MailSendingTest, ItIsBusyOnceTheBodyIsComposed) {
    machine.files["D:\\file"] = "";
    form1.LVFile.Add("file");
    select({2});
    form.StatusTxt.setText("before");
    std::string during;
    host.onYield = [&](int) { during = status(); };
    sending.prcSendEmailZ();
    EXPECT_EQ(during, "before");
    EXPECT_EQ(status(), "Ready - Emails sent: 0");
}

TEST_F(MailSendingTest, WhatIsTypedWhileItConnectsChangesNothing) {
    recipients({"a@example.org"});
    beSlow();
    host.onYield = [this](int yield) {
        if (yield == 1) {
            for (TextBox* box : {&form.txtMailServer, &form.txtYourEmail, &form.txtMailSubj,
                                 &form.txtMailFromDisplayName}) {
                box->setText("typed");
            }
        }
        deliver();
    };
    sending.prcSendEmailZ();
    EXPECT_EQ(socket.sent, mail("mail.example.org", "a@example.org", bareBody));
}

TEST_F(MailSendingTest, ASecondSendingBeforeTheConnectionStandsLeavesTheFirstWaiting) {
    recipients({"a@example.org"});
    beSlow();
    bool again = true;
    host.onYield = [this, &again](int yield) {
        if (std::exchange(again, false)) sending.prcSendEmailZ();
        if (yield > 100) throw StillWaiting();
        deliver();
    };
    EXPECT_THROW(sending.prcSendEmailZ(), StillWaiting);
    EXPECT_EQ(socket.sent, mail("mail.example.org", "a@example.org", bareBody));
}

TEST_F(MailSendingTest, AnEncryptionThatIsNotKnownSendsNothing) {
    recipients({"a@example.org"});
    form.cboEncryption.setText("tls");
    EXPECT_EQ(statusWords(), Texts{"No such encryption: tls"});
    EXPECT_TRUE(socket.calls.empty());
    EXPECT_TRUE(machine.smtpClient.messages.empty());
}

TEST_F(MailSendingTest, AnEncryptionThatIsChangedWhileTheBodyIsComposedSendsNothingPlain) {
    recipients({"a@example.org"});
    form1.LVFile.Add("file");
    select({2});
    form.cboEncryption.setText("TLS");
    host.onYield = [this](int) { form.cboEncryption.setText("tls"); };
    EXPECT_EQ(statusWords().back(), "Ready - Emails sent: 0");
    EXPECT_TRUE(socket.calls.empty());
    EXPECT_EQ(alertTexts(), Texts{"Notification Message not sent to: a@example.org "
                                  "(no such encryption: tls)"});
}

TEST_F(MailSendingTest, EncryptedMailTakesTheOtherWay) {
    recipients({"a@example.org", "b@example.org"});
    form.cboEncryption.setListIndex(2);
    machine.smtpClient.napsToEnd = 2;
    EXPECT_EQ(statusWords().back(), "Ready - Emails sent: 2");
    EXPECT_TRUE(socket.calls.empty());
    ASSERT_EQ(machine.smtpClient.messages.size(), 2u);
    EXPECT_EQ(machine.smtpClient.messages[0].encryption, Encryption::tls);
    EXPECT_EQ(machine.smtpClient.messages[1].recipient, "b@example.org");
    EXPECT_EQ(alertTexts().front(), "Notfication Message Send to: b@example.org");
}

TEST_F(MailSendingTest, AnEncryptedMailThatFailsIsAHighAlertAndNotCounted) {
    recipients({"a@example.org"});
    form.cboEncryption.setListIndex(1);
    machine.smtpClient.reason = "wrong password";
    EXPECT_EQ(statusWords(), (Texts{"Busy sending mail...", "Busy sending mail - Email sent: 1/1",
                                    "Ready - Emails sent: 0"}));
    EXPECT_EQ(alertTexts(),
              Texts{"Notification Message not sent to: a@example.org (wrong password)"});
    EXPECT_EQ(ConstAlertRow(form1.LVAlert.ListItems(1)).rating(), "High");
}

struct WithoutEncryption : NotifyRig {
    WithoutEncryption() { machine.smtpClient.unavailable = "no library"; }
};

TEST(MailWithoutEncryption, TheChoiceIsDisabledAndSaysWhy) {
    WithoutEncryption rig;
    const MailSending sending(rig.forms, rig.platform, rig.host, rig.content, rig.alerts);
    EXPECT_FALSE(rig.form.cboEncryption.Enabled());
    EXPECT_EQ(rig.form.cboEncryption.ToolTipText(), "no library");
}

TEST(MailWithoutEncryption, WhatTheSettingsBroughtCanBeTakenBack) {
    WithoutEncryption rig;
    const MailSending sending(rig.forms, rig.platform, rig.host, rig.content, rig.alerts);
    rig.form.cboEncryption.setText("TLS");
    EXPECT_TRUE(rig.form.cboEncryption.Enabled());
    rig.form.cboEncryption.setListIndex(0);
    EXPECT_FALSE(rig.form.cboEncryption.Enabled());
}

TEST(MailWithEncryption, TheChoiceIsEnabled) {
    MailRig rig;
    EXPECT_TRUE(rig.form.cboEncryption.Enabled());
}

TEST_F(MailSendingTest, AServerThatClosesAfterTheRecipientIsNotReported) {
    recipients({"a@example.org", "b@example.org"});
    closesAt = "rcpt to:a@";
    EXPECT_EQ(statusWords(),
              (Texts{"Busy sending mail...", "Busy sending mail - Email sent: 1/2",
                     "Busy sending mail - Email sent: 2/2", "Ready - Emails sent: 2"}));
    // The first ended behind its third piece, the second went through.
    ASSERT_EQ(socket.sent.size(), 13u);
    EXPECT_EQ(socket.sent[4], "mail from:me@example.org\r\n");
    EXPECT_EQ(socket.sent[12], "\r\n.\r\n");
    EXPECT_EQ(alertTexts().size(), 2u);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(MailSendingTest, ASilentServerLeavesTheStatusAsItIs) {
    recipients({"a@example.org", "b@example.org"});
    replies.erase("rcpt to:");
    host.onYield = [](int yield) {
        if (yield == 5000) throw StillWaiting();
    };
    EXPECT_THROW(sending.prcSendEmailZ(), StillWaiting);
    EXPECT_EQ(status(), "Busy sending mail...");
    EXPECT_TRUE(alertTexts().empty());
}

TEST_F(MailSendingTest, RecipientsThatAHandlerRemovesAreNotWrittenTo) {
    recipients({"a@example.org", "b@example.org", "c@example.org"});
    beSlow();
    host.onYield = [this](int yield) {
        if (yield == 2) form.cboNotEmail.RemoveItem(2);
        deliver();
    };
    EXPECT_EQ(statusWords(),
              (Texts{"Busy sending mail...", "Busy sending mail - Email sent: 1/2",
                     "Busy sending mail - Email sent: 2/2", "Ready - Emails sent: 2"}));
}

TEST_F(MailSendingTest, RecipientsThatAHandlerAddsAreNotWrittenTo) {
    recipients({"a@example.org"});
    beSlow();
    host.onYield = [this](int yield) {
        if (yield == 2) form.cboNotEmail.AddItem("b@example.org");
        deliver();
    };
    EXPECT_EQ(statusWords(), (Texts{"Busy sending mail...", "Busy sending mail - Email sent: 1/2",
                                    "Ready - Emails sent: 1"}));
}

TEST_F(MailSendingTest, ASecondSendingTakesTheSocketFromTheFirst) {
    recipients({"a@example.org"});
    beSlow();
    bool again = true;
    host.onYield = [this, &again](int yield) {
        if (yield == 4 && std::exchange(again, false)) sending.prcSendEmailZ();
        deliver();
    };
    EXPECT_EQ(statusWords(), (Texts{"Busy sending mail...", "Busy sending mail - Email sent: 1/1",
                                    "Ready - Emails sent: 1", "Busy sending mail - Email sent: 1/1",
                                    "Ready - Emails sent: 1"}));
    // The first had come to its second piece; the second is whole.
    ASSERT_EQ(socket.sent.size(), 12u);
    EXPECT_EQ(Texts(socket.sent.begin() + 2, socket.sent.end()),
              mail("mail.example.org", "a@example.org", bareBody));
    EXPECT_EQ(alertTexts().size(), 2u);
}

TEST_F(MailSendingTest, TheSendOperationOfTheFormSends) {
    recipients({"a@example.org"});
    form.SendEmail();
    EXPECT_EQ(socket.sent.size(), 10u);
}

TEST_F(MailSendingTest, DefaultSendOpensItsTargetForTheWindow) {
    sending.prcDefaultSend("mailto:a@example.org");
    ASSERT_EQ(machine.executed.size(), 1u);
    const fake::FakeExecution& order = machine.executed[0];
    EXPECT_EQ(order.owner, "frmNotify");
    EXPECT_EQ(order.verb, "open");
    EXPECT_EQ(order.file, "mailto:a@example.org");
    EXPECT_EQ(order.parameters, "");
    EXPECT_EQ(order.directory, "");
    EXPECT_EQ(order.showCommand, 0);
    EXPECT_TRUE(socket.calls.empty());
}

}  // namespace
}  // namespace velmora::tests
