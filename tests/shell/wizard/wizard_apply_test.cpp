// When the wizard's values go out, and that nothing else does.
#include "shell/wizard/wizard_rig.h"

namespace velmora::tests {
namespace {

// Every line of a settings file that a start takes, with values that its rules allow.
const Words richSettings{"chkLog=1",
                         "chkAutoSave=0",
                         "minspace=64000\r\n",
                         "txtTime=30\r\n",
                         "notEmail=server@example.com",
                         "notEmailUser=server",
                         "notEmailPass=secret",
                         "notMailServer=mail.example.com",
                         "notEmailSubj=disk",
                         "notMailFromDisp=Server",
                         "notcboEmail=admin@example.com\r\n",
                         "NotlstContent=2",
                         "notlstTime=1",
                         "notCustMsg=hello",
                         "notchkHTML=1",
                         "notchkProxy=1",
                         "nottxtProxy=proxy.example.com",
                         "nottxtPort=3128",
                         "insystray=1",
                         "path2move=E:\\spare\\\r\n",
                         "filetype=.avi|.mp3\r\n",
                         "custtime=1\r\n",
                         "custtimebegin=06:15:00\r\n",
                         "custtimeend=21:45:00\r\n",
                         "cboFile=D:\\a.bin\r\n",
                         "cboFile=D:\\b.bin\r\n",
                         "lstAct=0\r\n",
                         "lstAct=2\r\n",
                         "lstAct=4\r\n",
                         "lstAct=8\r\n",
                         "lstEvt=1\r\n",
                         "lstEvt=4\r\n",
                         "smtpSecurity=TLS 465"};

/// With every kind of setting, also those that the settings file doesn't have.
struct RichWizardTest : testing::Test, WizardRig {
    RichWizardTest() : WizardRig(richSettings) {
        machine.files["D:\\a.bin"] = "12345";
        machine.files["D:\\b.bin"] = "";
        watched.userTick(1, true);
        watched.userTick(3, true);
        watched.Add("\\\\nas\\backup");
        watched.userSelect({2});
        form1.LVFile.userDrop({"D:\\a.bin", "D:\\b.bin"});
        form1.LVProg.userDrop({"D:\\a.bin", "D:\\b.bin"});
        form1.cboProg.AddItem("D:\\tool.exe");
        form1.chkSeq.userClick();
        reopen();
        host.boxes.clear();
    }
};

TEST_F(RichWizardTest, ApplyingWhatWasReadChangesNothingAtAll) {
    const std::string file = saved();
    const std::string before = contentBesidesWizard(forms);
    apply();
    EXPECT_EQ(contentBesidesWizard(forms), before);
    wizard.cmdOK.userClick();
    EXPECT_EQ(contentBesidesWizard(forms), before);
    EXPECT_EQ(saved(), file);
    EXPECT_EQ(said(), Words{});
}

TEST_F(RichWizardTest, ASettingInPercentAndForEachRowIsKeptToo) {
    form1.txtSpace.setText("15");
    form1.OpDriv[1].userClick();
    form1.chkDrive.userClick();
    watched.ListItems(1).setSubItems(3, "22");
    reopen();
    host.boxes.clear();
    const std::string file = saved();
    const std::string before = contentBesidesWizard(forms);
    EXPECT_TRUE(wizard.OpDriv[1].Value());
    EXPECT_TRUE(wizard.chkDrive.ticked());
    apply();
    EXPECT_EQ(contentBesidesWizard(forms), before);
    EXPECT_EQ(saved(), file);
    EXPECT_EQ(said(), Words{});
}

TEST_F(RichWizardTest, AClosedWizardAppliesNothing) {
    wizard.txtDrive.setText("D:\\");
    wizard.txtMailServer.setText("other.example.com");
    wizard.cmdCancel.userClick();
    form1.txtDrive.setText("E:\\later\\");
    mail.txtMailServer.setText("later.example.com");
    const std::string before = contentBesidesWizard(forms);
    wizard.chkop[0].Click();
    wizard.chkop[0].setValue(1);
    wizard.cmdApply.Click();
    EXPECT_EQ(contentBesidesWizard(forms), before);
    wizard.cmdOK.Click();
    EXPECT_EQ(contentBesidesWizard(forms), before);
}

TEST(UnopenedWizardTest, ApplyAndOkChangeNothing) {
    WizardRig rig(WizardRig::Opened::no);
    ASSERT_FALSE(rig.wizard.Visible());
    const std::string before = contentBesidesWizard(rig.forms);
    rig.wizard.cmdApply.Click();
    rig.wizard.cmdOK.Click();
    EXPECT_EQ(contentBesidesWizard(rig.forms), before);
}

TEST_F(RichWizardTest, OkClosesAlsoWhenTheWatchListWasRefused) {
    forms.globals.bChecking = true;
    wizard.ListView1.userTick(2, true);
    wizard.txtMailSubj.setText("new");
    host.answers = {BoxAnswer::no};
    wizard.cmdOK.userClick();
    EXPECT_FALSE(wizard.Visible());
    EXPECT_EQ(rowsOf(watched), (Words{"*C:\\", "D:\\", "*E:\\", "\\\\nas\\backup"}));
    EXPECT_EQ(mail.txtMailSubj.Text(), "new");
}

TEST_F(RichWizardTest, CancelLeavesNoTrace) {
    const std::string before = contentBesidesWizard(forms);
    const std::string file = saved();
    host.answers = {BoxAnswer::ok, BoxAnswer::ok, BoxAnswer::ok, BoxAnswer::no};
    host.paths = {"D:\\new", "D:\\a.bin", "D:\\b.bin"};
    machine.folders.insert("d:\\new");
    for (int i = 1; i <= 9; ++i) wizard.cmdProgress.userClick();
    wizard.ListView1.userTick(1, false);
    wizard.ListView1.userTick(2, true);
    wizard.ListView1.userSelect({2});
    wizard.cmdLVRemove.userClick();
    wizard.cmdLVAdd.userClick();
    wizard.OpDriv[1].userClick();
    wizard.txtFreeSpace.setText("25");
    wizard.chkDrive.userClick();
    wizard.lstAct.userTick(act::move, true);
    wizard.lstAct.userTick(act::mail, false);
    wizard.lstAct.userTick(act::mail, true);
    wizard.txtDrive.setText("D:\\");
    wizard.cmdFolder.userClick();
    wizard.cboProg.setText("D:\\a.bin");
    wizard.cmdPAdd.userClick();
    wizard.LVProg.Clear();
    wizard.cboFile.setText("");
    wizard.cmdFAdd.userClick();
    wizard.LVFile.Remove(1);
    wizard.chkFileKind[0].userClick();
    wizard.chkCustTime.userClick();
    wizard.cboSpeed.userChoose(2);
    for (CheckBox& event : wizard.chkop) event.userClick();
    wizard.txtMailServer.setText("");
    wizard.txtPass.setText("other");
    wizard.cmdClear.userClick();
    wizard.chkIsHTML.userClick();
    wizard.cmdCancel.userClick();
    EXPECT_FALSE(wizard.Visible());
    EXPECT_EQ(contentBesidesWizard(forms), before);
    EXPECT_EQ(saved(), file);
    open();
    EXPECT_EQ(rowsOf(wizard.ListView1), (Words{"*C:\\", "D:\\", "*E:\\", "\\\\nas\\backup"}));
    EXPECT_EQ(wizard.txtMailServer.Text(), "mail.example.com");
    EXPECT_EQ(wizard.txtPass.Text(), "secret");
    EXPECT_EQ(ticksOf(wizard.lstAct), (std::vector{0, 2, 4, 8}));
    EXPECT_EQ(wizard.txtFileType.Text(), form1.txtFileType.Text());
    EXPECT_EQ(wizard.txtTime.Text(), "30");
    for (const CheckBox& kind : wizard.chkFileKind) EXPECT_FALSE(kind.ticked());
    EXPECT_EQ(wizard.cboSpeed.ListIndex(), -1);
    EXPECT_EQ(wizard.lblFileProposal.Caption() + wizard.lblSpeedProposal.Caption(), "");
}

struct WizardApplyTest : testing::Test, WizardRig {};

TEST_F(WizardApplyTest, OkWritesAndThenCloses) {
    bool wasOpen = false;
    form1.txtDrive.Change.connect([&] { wasOpen = wizard.Visible(); });
    wizard.txtDrive.setText("D:\\spare\\");
    wizard.cmdOK.userClick();
    EXPECT_EQ(form1.txtDrive.Text(), "D:\\spare\\");
    EXPECT_TRUE(wasOpen);
    EXPECT_FALSE(wizard.Visible());
}

TEST_F(WizardApplyTest, OkIsApplyAndThenCancel) {
    Words clicked;
    wizard.cmdApply.Click.connect([&] { clicked.emplace_back("apply"); });
    wizard.cmdCancel.Click.connect([&] { clicked.emplace_back("cancel"); });
    wizard.cmdOK.userClick();
    EXPECT_EQ(clicked, (Words{"apply", "cancel"}));
}

TEST_F(WizardApplyTest, ApplyLeavesTheWizardOpenAtItsStep) {
    wizard.cmdProgress.userClick();
    wizard.txtDrive.setText("D:\\");
    apply();
    EXPECT_TRUE(wizard.Visible());
    EXPECT_TRUE(wizard.Frame1[1].Visible());
    EXPECT_EQ(form1.txtDrive.Text(), "D:\\");
}

TEST_F(WizardApplyTest, ClosingItsFrameDiscardsAsCancelDoes) {
    wizard.txtDrive.setText("D:\\");
    wizard.userClose();
    EXPECT_FALSE(wizard.Visible());
    EXPECT_EQ(form1.txtDrive.Text(), "");
    open();
    EXPECT_EQ(wizard.txtDrive.Text(), "");
}

TEST_F(WizardApplyTest, AnAppliedValueIsSavedByTheUsualSaving) {
    const std::string before = machine.files[settingsPath];
    wizard.txtFreeSpace.setText("4711");
    apply();
    EXPECT_EQ(machine.files[settingsPath], before);
    EXPECT_NE(saved().find(prcEn("minspace=4711\r\n")), std::string::npos);
}

TEST_F(WizardApplyTest, OtherOrdersThanReadingAndWritingDoNothing) {
    SetupWizard another(forms, machine.platform(), host, {.alerts = alerts, .monitor = monitor});
    wizard.txtDrive.setText("D:\\");
    for (const std::int16_t order : {0, 3, -1}) {
        another.prcSettingW(order);
        EXPECT_EQ(form1.txtDrive.Text(), "");
        EXPECT_EQ(wizard.txtDrive.Text(), "D:\\");
    }
    another.prcSettingW(2);
    EXPECT_EQ(wizard.txtDrive.Text(), "");
    wizard.txtDrive.setText("D:\\");
    another.prcSettingW(1);
    EXPECT_EQ(form1.txtDrive.Text(), "D:\\");
}

// A check writes the interval, the custom time moves on, an action takes a file off its list.
TEST_F(WizardApplyTest, WhatTheProgramChangedMeanwhileStays) {
    machine.files["D:\\a.bin"] = "1";
    machine.files["D:\\b.bin"] = "2";
    form1.LVFile.userDrop({"D:\\a.bin", "D:\\b.bin"});
    reopen();
    form1.LVFile.Remove(1);
    form1.txtTime.setText("65");
    form1.DTTime1[1].setMinute(1);
    form1.txtSpace.setText("123");
    mail.txtUser.setText("new");
    watched.Remove(2);
    wizard.txtDrive.setText("D:\\");
    apply();
    EXPECT_EQ(tagsOf(form1.LVFile), Words{"D:\\b.bin"});
    EXPECT_EQ(form1.txtTime.Text(), "65");
    EXPECT_EQ(form1.DTTime1[1].Minute(), 1);
    EXPECT_EQ(form1.txtSpace.Text(), "123");
    EXPECT_EQ(mail.txtUser.Text(), "new");
    EXPECT_EQ(rowsOf(watched), (Words{"C:\\", "E:\\"}));
    EXPECT_EQ(form1.txtDrive.Text(), "D:\\");
    // And is shown from then on.
    EXPECT_EQ(wizard.txtFreeSpace.Text(), "123");
    EXPECT_EQ(tagsOf(wizard.LVFile), Words{"D:\\b.bin"});
    EXPECT_EQ(wizard.txtUser.Text(), "new");
}

TEST_F(WizardApplyTest, ASecondApplyWritesNothingAgain) {
    wizard.txtDrive.setText("D:\\");
    apply();
    form1.txtDrive.setText("C:\\other\\");
    apply();
    EXPECT_EQ(form1.txtDrive.Text(), "C:\\other\\");
}

TEST_F(WizardApplyTest, MailSettingsThatAreChangedInTheirOwnWindowAreShownOnceItCloses) {
    mail.Show();
    mail.txtMailServer.setText("mail.example.com");
    wizard.txtUser.setText("typed here");
    mail.txtUser.setText("typed there");
    mail.Hide();
    EXPECT_EQ(wizard.txtMailServer.Text(), "mail.example.com");
    EXPECT_EQ(wizard.txtUser.Text(), "typed here");
    apply();
    EXPECT_EQ(mail.txtMailServer.Text(), "mail.example.com");
    EXPECT_EQ(mail.txtUser.Text(), "typed here");
}

TEST_F(WizardApplyTest, AClosedWizardReadsNothing) {
    close();
    mail.Show();
    mail.txtMailServer.setText("mail.example.com");
    mail.Hide();
    EXPECT_EQ(wizard.txtMailServer.Text(), "");
}

TEST_F(WizardApplyTest, TheMailsPasswordStaysInNoFieldOfAClosedWizard) {
    mail.txtPass.setText("secret");
    reopen();
    EXPECT_EQ(wizard.txtPass.Text(), "secret");
    close();
    EXPECT_EQ(wizard.txtPass.Text(), "");
    EXPECT_EQ(mail.txtPass.Text(), "secret");
}

}  // namespace
}  // namespace velmora::tests
