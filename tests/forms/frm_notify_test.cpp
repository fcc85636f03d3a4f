// The fields of the window of the mail settings, as they are at the start.
#include <gtest/gtest.h>

#include "forms/forms.h"

namespace velmora::tests {
namespace {

struct FrmNotifyTest : testing::Test {
    Forms forms;
    FrmNotify& form = forms.frmNotify;
};

TEST_F(FrmNotifyTest, HasItsCaptionAndBeginsHidden) {
    EXPECT_EQ(form.Name(), "frmNotify");
    EXPECT_EQ(form.Caption(), "Notification Settings");
    EXPECT_FALSE(form.Visible());
}

TEST_F(FrmNotifyTest, HasFourPagesInOrder) {
    const char* const pages[] = {"Notify Content:", "Custom Messeage", "Email Acct. Info.",
                                 "Send Option(s):"};
    ASSERT_EQ(form.TabStrip1.TabCount(), 4);
    ASSERT_EQ(form.frE.size(), 4u);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(form.TabStrip1.Tabs(i + 1), pages[i]);
        EXPECT_EQ(form.find("frE", i), &form.frE[static_cast<std::size_t>(i)]);
    }
}

TEST_F(FrmNotifyTest, TheButtonsHaveTheirCaptions) {
    const std::pair<const CommandButton*, const char*> captions[] = {
        {&form.Command1, "Send &Now"}, {&form.cmdApply, "&Apply"},  {&form.cmdOK, "&OK"},
        {&form.cmdCancel, "&Cancel"},  {&form.Command2, "X"},       {&form.cmdAdd, "Add"},
        {&form.cmdClear, "Clear All"}, {&form.cmdRemove, "Remove"}, {&form.cmdNT, "NT Evt"}};
    for (const auto& [button, caption] : captions) {
        EXPECT_EQ(button->Caption(), caption) << button->Name();
        EXPECT_EQ(form.find(button->Name()), button);
    }
    EXPECT_NE(form.find("cmdNotOpenFile"), nullptr);
}

TEST_F(FrmNotifyTest, TheSectionsHaveTheirCaptionsAndNoneIsTicked) {
    const char* const captions[] = {"Specified File(s) currently listed",
                                    "Specified Programs currently listed",
                                    "Info. on Listed Drive/Path(s)",
                                    "Alert(s) triggered",
                                    "Current Running Processes",
                                    "Current RAM usage",
                                    "Custom Content in text file",
                                    "Current User",
                                    "Session Length",
                                    "NT Log Events"};
    ASSERT_EQ(form.lstNotContent.ListCount(), 10);
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(form.lstNotContent.List(i), captions[i]);
        EXPECT_FALSE(form.lstNotContent.Selected(i));
    }
}

TEST_F(FrmNotifyTest, TheTimesHaveTheirCaptionsAndNoneIsTicked) {
    const char* const captions[] = {"Send Hourly", "Send Once Daily by Custom time",
                                    "Send Once by Custom time interval", "Send on Alert (All)",
                                    "Send on ALert (High Only)"};
    ASSERT_EQ(form.lstNotTime.ListCount(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(form.lstNotTime.List(i), captions[i]);
        EXPECT_FALSE(form.lstNotTime.Selected(i));
    }
}

TEST_F(FrmNotifyTest, TheTextsHaveTheirDefaults) {
    for (const TextBox* box :
         {&form.txtCustomContent, &form.txtCustMsg, &form.txtMailServer, &form.txtYourEmail,
          &form.txtUser, &form.txtPass, &form.txtProxy, &form.txtPort, &form.StatusTxt}) {
        EXPECT_EQ(box->Text(), "") << box->Name();
    }
    EXPECT_EQ(form.txtCustEvtAmt.Text(), "4");
    EXPECT_EQ(form.txtMailPort.Text(), "25");
    EXPECT_EQ(form.txtMailSubj.Text(), "Karvelle Velmora: system info");
    EXPECT_EQ(form.txtMailFromDisplayName.Text(), "Velmora");
    EXPECT_EQ(form.cboNotEmail.ListCount(), 0);
    EXPECT_EQ(form.cboNotEmail.Text(), "");
}

TEST_F(FrmNotifyTest, ThePasswordAloneIsMasked) {
    for (const Control* control : form.controls()) {
        const auto* box = dynamic_cast<const TextBox*>(control);
        if (box == nullptr) continue;
        EXPECT_EQ(box->masked(), box == &form.txtPass) << box->Name();
    }
}

TEST_F(FrmNotifyTest, TheTipsSayWhatFieldsAreFor) {
    EXPECT_EQ(form.txtCustomContent.ToolTipText(),
              "Text base file whose content will be send in the email");
    EXPECT_EQ(form.txtCustEvtAmt.ToolTipText(),
              "This is to specify the amount of events to send in the email.  4 is the default.");
    EXPECT_EQ(form.txtMailPort.ToolTipText(), "Most Outgoing Mail uses port 25");
}

TEST_F(FrmNotifyTest, TheOptionsAreOffAndTheProxysFieldsDisabled) {
    EXPECT_EQ(form.chkIsHTML.Caption(), "Send in HTML format");
    EXPECT_FALSE(form.chkIsHTML.ticked());
    EXPECT_EQ(form.chkProxy.Caption(), "Use Proxy");
    EXPECT_FALSE(form.chkProxy.ticked());
    EXPECT_FALSE(form.txtProxy.Enabled());
    EXPECT_FALSE(form.txtPort.Enabled());
}

TEST_F(FrmNotifyTest, TheTimersHaveTheirMinute) {
    EXPECT_EQ(form.tmrEmail.Interval(), 60000);
    EXPECT_TRUE(form.tmrEmail.Enabled());
    EXPECT_EQ(form.tim_timeoutSend.Interval(), 60000);
    EXPECT_FALSE(form.tim_timeoutSend.Enabled());
}

TEST_F(FrmNotifyTest, TheHeadingsOfTheListsInTheMailAreTheirTags) {
    EXPECT_EQ(forms.form1.ListView1.Tag(), "Listed Drive/Path(s)");
    EXPECT_EQ(forms.form1.LVAlert.Tag(), "Alerts");
    EXPECT_EQ(forms.form1.LVFile.Tag(), "Listed Specified File(s)");
    EXPECT_EQ(forms.form1.LVProg.Tag(), "Listed Specified Program(s)");
}

TEST_F(FrmNotifyTest, TheSettingsFileKnowsTheListsByTheirTags) {
    EXPECT_EQ(form.cboNotEmail.Tag(), "notcboEmail");
    EXPECT_EQ(form.lstNotContent.Tag(), "NotlstContent");
    EXPECT_EQ(form.lstNotTime.Tag(), "notlstTime");
}

TEST_F(FrmNotifyTest, TheLabelForANewerVersionIsEmpty) {
    EXPECT_EQ(forms.form1.lblNewVer.Caption(), "");
    EXPECT_EQ(forms.form1.find("lblNewVer"), &forms.form1.lblNewVer);
}

}  // namespace
}  // namespace velmora::tests
