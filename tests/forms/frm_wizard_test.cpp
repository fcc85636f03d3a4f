// The setup wizard's steps, words and first values.
#include "forms/frm_wizard.h"

#include <gtest/gtest.h>

#include "forms/form1.h"
#include "forms/frm_notify.h"

namespace velmora::tests {
namespace {

struct FrmWizardTest : testing::Test {
    FrmWizard form;

    std::vector<std::string> entriesOf(const ComboBox& box) {
        std::vector<std::string> all;
        for (int i = 0; i < box.ListCount(); ++i) all.push_back(box.List(i));
        return all;
    }
};

TEST_F(FrmWizardTest, TheStepsHaveTheirNamesInOrderAlsoInTheirList) {
    const char* const names[] = {"Welcome",
                                 "Drives and Paths to Watch",
                                 "Size in (KB) or Percentage",
                                 "Action on Space Shortage",
                                 "Specified Path to Move",
                                 "Listed Specified Program(s)",
                                 "Specified Files",
                                 "Custom Watch Time ",
                                 " Alert on Selected Events",
                                 "Notification Settings"};
    ASSERT_EQ(form.Frame1.size(), std::size(names));
    for (std::size_t i = 0; i < std::size(names); ++i) {
        EXPECT_EQ(form.Frame1[i].Caption(), names[i]);
        EXPECT_EQ(form.Frame1[i].Index(), static_cast<int>(i));
        EXPECT_EQ(form.Frame1[i].Visible(), i == 0) << i;
        EXPECT_EQ(form.lblStep[i].Caption(), names[i]);
        EXPECT_EQ(form.lblStep[i].Index(), static_cast<int>(i));
        EXPECT_EQ(form.lblExplain[i].Index(), static_cast<int>(i));
        EXPECT_FALSE(form.lblExplain[i].Caption().empty()) << i;
    }
}

TEST_F(FrmWizardTest, FieldsHaveTheNamesOfThoseThatTheyStandFor) {
    for (const char* name : {"cboFile", "cboProg", "cmdPAdd", "cmdPRem", "lstAct", "txtDrive",
                             "txtFileType", "txtFreeSpace", "chkCustTime", "lblOp", "cmdProgress",
                             "cmdReverse", "cmdApply", "cmdOK", "cmdCancel", "cmdHelp"}) {
        EXPECT_NE(form.find(name), nullptr) << name;
    }
    const std::pair<const char*, int> arrays[] = {
        {"Frame1", 10}, {"chkop", 5}, {"OpDriv", 2}, {"DTTime1", 2}};
    for (const auto& [name, count] : arrays) {
        for (int i = 0; i < count; ++i) EXPECT_NE(form.find(name, i), nullptr) << name << i;
        EXPECT_EQ(form.find(name, count), nullptr) << name;
    }
}

TEST_F(FrmWizardTest, EveryPlaceOfAStepIsThatOfItsName) {
    const auto nameOf = [this](int step) {
        return form.Frame1[static_cast<std::size_t>(step)].Caption();
    };
    EXPECT_EQ(nameOf(wizard_step::welcome), "Welcome");
    EXPECT_EQ(nameOf(wizard_step::drives), "Drives and Paths to Watch");
    EXPECT_EQ(nameOf(wizard_step::space), "Size in (KB) or Percentage");
    EXPECT_EQ(nameOf(wizard_step::actions), "Action on Space Shortage");
    EXPECT_EQ(nameOf(wizard_step::path), "Specified Path to Move");
    EXPECT_EQ(nameOf(wizard_step::programs), "Listed Specified Program(s)");
    EXPECT_EQ(nameOf(wizard_step::files), "Specified Files");
    EXPECT_EQ(nameOf(wizard_step::times), "Custom Watch Time ");
    EXPECT_EQ(nameOf(wizard_step::events), " Alert on Selected Events");
    EXPECT_EQ(nameOf(wizard_step::mail), "Notification Settings");
}

TEST_F(FrmWizardTest, WelcomeAndPathHaveTheirExplanations) {
    EXPECT_EQ(form.lblExplain[wizard_step::welcome].Caption(),
              "This Wizard is design to assist the user in easily customizing the program.  Just "
              "follow the steps and answer each section accordingly.  Press 'OK' to apply the "
              "settings or press 'Close' to cancel it.");
    EXPECT_EQ(form.lblExplain[wizard_step::path].Caption(),
              "The Folder/Path to Move File to On Triggered Action");
}

TEST_F(FrmWizardTest, TheButtonsAreCalledAsTheWelcomeCallsThem) {
    EXPECT_EQ(form.cmdOK.Caption(), "&OK");
    EXPECT_EQ(form.cmdCancel.Caption(), "&Close");
    EXPECT_EQ(form.cmdApply.Caption(), "&Apply");
    EXPECT_EQ(form.cmdHelp.Caption(), "&Help");
    EXPECT_EQ(form.cmdProgress.Caption(), "&Next");
    EXPECT_EQ(form.cmdReverse.Caption(), "&Back");
}

TEST_F(FrmWizardTest, TheQuestionsHaveTheirChoicesAndBeginUnanswered) {
    EXPECT_EQ(form.lblFileQuestion.Caption(), "What kind of files do you use often?");
    EXPECT_EQ(form.chkFileKind[0].Caption(), "Business (Office, Doc., Database....)");
    EXPECT_EQ(form.chkFileKind[1].Caption(), "Media (music, movie clips, pictures...)");
    EXPECT_EQ(form.chkFileKind[2].Caption(), "Internet (html, swf, xml...)");
    for (const CheckBox& kind : form.chkFileKind) EXPECT_FALSE(kind.ticked());
    EXPECT_EQ(form.lblSpeedQuestion.Caption(),
              "What connection speed do you have?  This will help assess your Velmora settings.");
    EXPECT_EQ(
        entriesOf(form.cboSpeed),
        (std::vector<std::string>{"Slow (dial-up, mobile, VPN)", "Medium (DSL, cable, wireless)",
                                  "Fast (wired network, or local drives only)"}));
    EXPECT_EQ(form.cboSpeed.ListIndex(), -1);
    EXPECT_EQ(form.lblFileProposal.Caption() + form.lblSpeedProposal.Caption(), "");
}

TEST_F(FrmWizardTest, TheWordsOfTheTimesAndOfTheMail) {
    EXPECT_EQ(form.chkCustTime.Caption(), "Enable Custom Time");
    EXPECT_EQ(form.lblInterval.Caption(), "Time Interval (sec)");
    EXPECT_EQ(form.lblTime[0].Caption(), "Start Time");
    EXPECT_EQ(form.lblTime[1].Caption(), "End Time");
    EXPECT_EQ(form.lblMail[mail_word::port].Caption(), "Mail Server Port:");
    EXPECT_EQ(form.lblMail[mail_word::fromDisplay].Caption(), "Mail  From Display:");
    EXPECT_EQ(form.lblMail[mail_word::recipients].Caption(), "Email(s) to send to:");
    EXPECT_EQ(form.lblMail[mail_word::server].Caption(), "Mail Server:");
    EXPECT_EQ(form.lblMail[mail_word::encryption].Caption(), "Encryption:");
    EXPECT_EQ(form.lblMail[mail_word::address].Caption(), "Your Email:");
    EXPECT_EQ(form.lblMail[mail_word::user].Caption(), "User Name:");
    EXPECT_EQ(form.lblMail[mail_word::password].Caption(), "Password:");
    EXPECT_EQ(form.lblMail[mail_word::subject].Caption(), "Subject:");
    EXPECT_EQ(form.chkIsHTML.Caption(), "Send in HTML format");
    EXPECT_EQ(form.lblPortHint.Caption(), "Most Outgoing Mail uses port 25");
    EXPECT_EQ(form.txtMailPort.ToolTipText(), "Most Outgoing Mail uses port 25");
    EXPECT_TRUE(form.txtPass.masked());
    EXPECT_EQ(entriesOf(form.cboEncryption), (std::vector<std::string>{"None", "STARTTLS", "TLS"}));
}

TEST_F(FrmWizardTest, TheEventsHaveTheWizardsOwnWords) {
    const char* const events[] = {"No Change in Free Space Size (Stagnancy)",
                                  "Change in Free Space Size", "Change in Amount of File/Folder(s)",
                                  "Modification to file(s)", "Listed Drive/Path become N/A!"};
    ASSERT_EQ(form.chkop.size(), std::size(events));
    for (std::size_t i = 0; i < std::size(events); ++i) {
        EXPECT_EQ(form.chkop[i].Caption(), events[i]);
        EXPECT_EQ(form.chkop[i].Index(), static_cast<int>(i));
    }
}

TEST_F(FrmWizardTest, FieldsOfTheMainWindowsNamesHaveItsCaptionsAndColumns) {
    Form1 form1;
    EXPECT_EQ(form.OpDriv[0].Caption(), form1.OpDriv[0].Caption());
    EXPECT_EQ(form.OpDriv[1].Caption(), form1.OpDriv[1].Caption());
    EXPECT_TRUE(form.OpDriv[0].Value());
    form.OpDriv[1].choose();
    EXPECT_FALSE(form.OpDriv[0].Value());
    EXPECT_EQ(form.chkDrive.Caption(), form1.chkDrive.Caption());
    ASSERT_EQ(form.lstAct.ListCount(), form1.lstAct.ListCount());
    for (int i = 0; i < form1.lstAct.ListCount(); ++i) {
        EXPECT_EQ(form.lstAct.List(i), form1.lstAct.List(i));
    }
    for (const auto& [mine, theirs] : {std::pair<ListView&, ListView&>{form.LVFile, form1.LVFile},
                                       {form.LVProg, form1.LVProg}}) {
        ASSERT_EQ(mine.ColumnCount(), theirs.ColumnCount());
        for (int i = 1; i <= mine.ColumnCount(); ++i) {
            EXPECT_EQ(mine.ColumnHeaders(i).Text, theirs.ColumnHeaders(i).Text);
        }
    }
    EXPECT_EQ(form.Slider1.Max(), 100);
    EXPECT_EQ(form.Slider1.LargeChange(), 5);
}

}  // namespace
}  // namespace velmora::tests
