// The rules on the wizard's own fields, and that what was asked there isn't asked again.
#include "rows/watch_row.h"
#include "shell/wizard/wizard_rig.h"

namespace velmora::tests {
namespace {

struct WizardRulesTest : testing::Test, WizardRig {
    WizardRulesTest() {
        for (const char* path : {"D:\\a.bin", "D:\\b.bin", "D:\\tool.exe"}) {
            machine.files[path] = "12345";
        }
        machine.folders.insert("d:\\data");
    }
    void forget() {
        host.boxes.clear();
        host.answers.clear();
    }
};

TEST_F(WizardRulesTest, PercentAbove100BecomesTenWithItsMessageOnceOnly) {
    wizard.OpDriv[1].userClick();
    EXPECT_EQ(said(), Words{"Cannot set over 100%"});
    EXPECT_EQ(wizard.txtFreeSpace.Text(), "10");
    EXPECT_TRUE(wizard.Slider1.Visible());
    EXPECT_EQ(form1.txtSpace.Text(), "50000");
    forget();
    wizard.txtFreeSpace.setText("15");
    apply();
    EXPECT_EQ(said(), Words{});
    EXPECT_TRUE(form1.OpDriv[1].Value());
    EXPECT_FALSE(form1.OpDriv[0].Value());
    EXPECT_EQ(form1.txtSpace.Text(), "15");
    EXPECT_EQ(watched.ColumnHeaders(4).Text, "Trigger S( %)");
    EXPECT_TRUE(form1.Slider1.Visible());
    EXPECT_EQ(form1.Slider1.Value(), 10);
    EXPECT_EQ(form1.lblMB.Caption(), "");
    // A user's own click still has the message.
    form1.OpDriv[0].userClick();
    form1.txtSpace.setText("200");
    form1.OpDriv[1].userClick();
    EXPECT_EQ(said(), Words{"Cannot set over 100%"});
}

TEST_F(WizardRulesTest, BackToKilobytesTheNumberFollowsTheUnit) {
    wizard.OpDriv[1].userClick();
    wizard.Slider1.userScroll(35);
    EXPECT_EQ(wizard.txtFreeSpace.Text(), "35");
    apply();
    EXPECT_EQ(form1.Slider1.Value(), 35);
    EXPECT_EQ(form1.txtSpace.Text(), "35");
    wizard.OpDriv[0].userClick();
    EXPECT_FALSE(wizard.Slider1.Visible());
    wizard.txtFreeSpace.setText("2500000");
    EXPECT_EQ(wizard.lblMB.Caption(), "2500.0 MB");
    EXPECT_EQ(wizard.lblGB.Caption(), "2.5 GB");
    apply();
    EXPECT_TRUE(form1.OpDriv[0].Value());
    EXPECT_EQ(form1.txtSpace.Text(), "2500000");
    EXPECT_EQ(form1.lblMB.Caption(), "2500.0 MB");
    EXPECT_EQ(form1.lblGB.Caption(), "2.5 GB");
    EXPECT_FALSE(form1.Slider1.Visible());
    EXPECT_EQ(watched.ColumnHeaders(4).Text, "Trigger S(KB)");
}

TEST_F(WizardRulesTest, AllOfTheMinimumSpaceIsShownWhenTheWizardOpens) {
    form1.txtSpace.setText("2500000");
    reopen();
    EXPECT_EQ(wizard.lblMB.Caption(), "2500.0 MB");
    EXPECT_EQ(wizard.lblGB.Caption(), "2.5 GB");
    EXPECT_FALSE(wizard.Slider1.Visible());
    form1.txtSpace.setText("30");
    form1.OpDriv[1].userClick();
    form1.Slider1.userScroll(45);
    reopen();
    EXPECT_TRUE(wizard.OpDriv[1].Value());
    EXPECT_EQ(wizard.txtFreeSpace.Text(), "45");
    EXPECT_EQ(wizard.Slider1.Value(), 45);
    EXPECT_TRUE(wizard.Slider1.Visible());
    EXPECT_EQ(wizard.lblMB.Caption(), "");
}

TEST_F(WizardRulesTest, TheUnitAloneGoesThereToo) {
    form1.txtSpace.setText("40");
    reopen();
    wizard.OpDriv[1].userClick();
    apply();
    EXPECT_TRUE(form1.OpDriv[1].Value());
    EXPECT_EQ(form1.txtSpace.Text(), "40");
    EXPECT_EQ(said(), Words{});
}

TEST_F(WizardRulesTest, TheNumberAloneDoesNotClickTheUnit) {
    int clicks = 0;
    for (OptionButton& unit : form1.OpDriv) unit.Click.connect([&] { ++clicks; });
    wizard.txtFreeSpace.setText("70000");
    apply();
    EXPECT_EQ(form1.txtSpace.Text(), "70000");
    EXPECT_EQ(form1.lblMB.Caption(), "70.0 MB");
    EXPECT_EQ(clicks, 0);
}

TEST_F(WizardRulesTest, ANumberThatIsNoneBecomesOne) {
    wizard.txtFreeSpace.setText("abc");
    EXPECT_EQ(said(), Words{"Please input only numbers."});
    EXPECT_EQ(wizard.txtFreeSpace.Text(), "1");
    wizard.UpDownSpace.userUp();
    EXPECT_EQ(wizard.txtFreeSpace.Text(), "2");
    wizard.UpDownSpace.userDown();
    wizard.UpDownSpace.userDown();
    wizard.UpDownSpace.userDown();
    EXPECT_EQ(wizard.txtFreeSpace.Text(), "0");
}

TEST_F(WizardRulesTest, AValueForEachRowIsToldOnceAndWrittenToAllRows) {
    host.paths = {"D:\\data"};
    wizard.cmdLVAdd.userClick();
    wizard.txtFreeSpace.setText("900");
    wizard.chkDrive.userClick();
    EXPECT_EQ(said(),
              Words{"Set the Listed Path's Specified Drive Space by Double Clicking on the Value "
                    "shown in the List."});
    EXPECT_FALSE(wizard.txtFreeSpace.Enabled());
    EXPECT_FALSE(form1.chkDrive.ticked());
    forget();
    apply();
    EXPECT_EQ(said(), Words{});
    EXPECT_TRUE(form1.chkDrive.ticked());
    EXPECT_FALSE(form1.txtSpace.Enabled());
    EXPECT_EQ(form1.txtSpace.Text(), "900");
    ASSERT_EQ(watched.Count(), 4);
    for (int i = 1; i <= 4; ++i) EXPECT_EQ(watched.ListItems(i).SubItems(3), "900") << i;
    wizard.chkDrive.userClick();
    apply();
    EXPECT_TRUE(form1.txtSpace.Enabled());
    EXPECT_EQ(watched.ListItems(1).SubItems(3), "");
    // A user's own click still has the message.
    form1.chkDrive.userClick();
    EXPECT_EQ(said().size(), 1u);
}

TEST_F(WizardRulesTest, ActionsThatExcludeEachOtherDoSoInTheWizardAndQuietlyThere) {
    form1.lstAct.userTick(act::remove, true);
    reopen();
    wizard.lstAct.userTick(act::move, true);
    EXPECT_EQ(said(), Words{"The 'Delete Specified files' option will be de-selected"});
    EXPECT_EQ(ticksOf(wizard.lstAct), std::vector{static_cast<int>(act::move)});
    EXPECT_TRUE(wizard.txtDrive.Enabled());
    forget();
    EXPECT_FALSE(form1.txtDrive.Enabled());
    apply();
    EXPECT_EQ(said(), Words{});
    EXPECT_EQ(ticksOf(form1.lstAct), std::vector{static_cast<int>(act::move)});
    EXPECT_TRUE(form1.txtDrive.Enabled());
    wizard.lstAct.userTick(act::recycle, true);
    forget();
    apply();
    EXPECT_EQ(said(), Words{});
    EXPECT_EQ(ticksOf(form1.lstAct), std::vector{static_cast<int>(act::recycle)});
    EXPECT_FALSE(form1.txtDrive.Enabled());
}

// Somebody ticks in the main window meanwhile: the rules of that list hold.
TEST_F(WizardRulesTest, AnActionThatIsTickedMeanwhileIsExcludedWithItsMessage) {
    wizard.lstAct.userTick(act::move, true);
    form1.lstAct.userTick(act::recycle, true);
    apply();
    EXPECT_EQ(said(),
              Words{"The 'Send Specified files to Recycle Bin' option will be de-selected"});
    EXPECT_EQ(ticksOf(form1.lstAct), std::vector{static_cast<int>(act::move)});
}

TEST_F(WizardRulesTest, MovingToTheLargestPathRequiresTwoRowsOfTheWizardsList) {
    wizard.ListView1.userSelect({2});
    wizard.cmdLVRemove.userClick();  // E: isn't ready
    wizard.lstAct.userTick(act::autoMove, true);
    EXPECT_EQ(said(), Words{"You must have two or more listed drive/path(s) that are functionally "
                            "ready to select this option."});
    EXPECT_EQ(ticksOf(wizard.lstAct), std::vector<int>{});
    forget();
    host.paths = {"D:\\data"};
    wizard.cmdLVAdd.userClick();
    wizard.lstAct.userTick(act::autoMove, true);
    EXPECT_EQ(said(), Words{});
    apply();
    EXPECT_EQ(said(), Words{});
    EXPECT_EQ(ticksOf(form1.lstAct), std::vector{static_cast<int>(act::autoMove)});
}

TEST_F(WizardRulesTest, AnActionThatTheMainWindowRefusesIsShownAsRefused) {
    wizard.lstAct.userTick(act::autoMove, true);
    watched.Remove(2);
    apply();
    EXPECT_EQ(said(), Words{"You must have two or more listed drive/path(s) that are functionally "
                            "ready to select this option."});
    EXPECT_EQ(ticksOf(form1.lstAct), std::vector<int>{});
    EXPECT_EQ(ticksOf(wizard.lstAct), std::vector<int>{});
}

const std::string mailQuestion = "Please review your email settings. Open Notification Settings?";

TEST_F(WizardRulesTest, MailAsksForItsSettingsOnce) {
    host.answers = {BoxAnswer::yes};
    wizard.lstAct.userTick(act::mail, true);
    EXPECT_EQ(said(), Words{mailQuestion});
    EXPECT_TRUE(mail.Visible());
    mail.Hide();
    forget();
    apply();
    EXPECT_EQ(said(), Words{});
    EXPECT_FALSE(mail.Visible());
    EXPECT_EQ(ticksOf(form1.lstAct), std::vector{static_cast<int>(act::mail)});
    // A user's own tick still asks.
    form1.lstAct.userTick(act::mail, false);
    form1.lstAct.userTick(act::mail, true);
    EXPECT_EQ(said(), Words{mailQuestion});
}

TEST_F(WizardRulesTest, AnActionsTickGoesThereAsAClick) {
    Words fired;
    form1.lstAct.ItemCheck.connect([&](int index) { fired.push_back(std::to_string(index)); });
    form1.lstAct.Click.connect([&] { fired.emplace_back("click"); });
    form1.lstAct.userTick(act::pause, true);
    fired.clear();
    reopen();
    wizard.lstAct.userTick(act::alert, true);
    wizard.lstAct.userTick(act::pause, false);
    apply();
    EXPECT_EQ(fired, (Words{"10", "click", "0", "click"}));
}

TEST_F(WizardRulesTest, WhatARuleDisablesSaysWhy) {
    EXPECT_FALSE(wizard.lblSpaceWhy.Visible());
    EXPECT_FALSE(wizard.lblDriveWhy.Visible());
    EXPECT_TRUE(wizard.lblTimeWhy.Visible());
    wizard.chkDrive.userClick();
    EXPECT_TRUE(wizard.lblSpaceWhy.Visible());
    wizard.chkDrive.userClick();
    EXPECT_FALSE(wizard.lblSpaceWhy.Visible());
    wizard.lstAct.userTick(act::alert, true);
    EXPECT_FALSE(wizard.txtDrive.Enabled());
    EXPECT_TRUE(wizard.lblDriveWhy.Visible());
    wizard.lstAct.userTick(act::move, true);
    EXPECT_FALSE(wizard.lblDriveWhy.Visible());
    wizard.chkCustTime.userClick();
    EXPECT_TRUE(wizard.DTTime1[0].Enabled());
    EXPECT_TRUE(wizard.DTTime1[1].Enabled());
    EXPECT_FALSE(wizard.lblTimeWhy.Visible());
    wizard.chkCustTime.userClick();
    EXPECT_FALSE(wizard.DTTime1[1].Enabled());
    EXPECT_TRUE(wizard.lblTimeWhy.Visible());
    EXPECT_EQ(wizard.lblDriveWhy.Caption(),
              "The path is used while the action \"Move Sp. Files to Sp. Path\" is ticked, in the "
              "step \"Action on Space Shortage\".");
}

TEST_F(WizardRulesTest, TheMailSettingsBesideItLeaveTheRulesOfTicksThatWereNotApplied) {
    wizard.chkCustTime.userClick();
    wizard.lstAct.userTick(act::alert, true);
    wizard.lstAct.userTick(act::move, true);
    form1.txtDrive.setEnabled(false);
    mail.Show();
    mail.Hide();
    EXPECT_TRUE(wizard.DTTime1[0].Enabled());
    EXPECT_TRUE(wizard.DTTime1[1].Enabled());
    EXPECT_FALSE(wizard.lblTimeWhy.Visible());
    EXPECT_TRUE(wizard.txtDrive.Enabled());
    EXPECT_FALSE(wizard.lblDriveWhy.Visible());
}

TEST_F(WizardRulesTest, EncryptionThatIsImpossibleSaysWhy) {
    EXPECT_TRUE(wizard.cboEncryption.Enabled());
    EXPECT_FALSE(wizard.lblEncryptionWhy.Visible());
    mail.cboEncryption.setToolTipText("no library");
    mail.cboEncryption.setEnabled(false);
    reopen();
    EXPECT_FALSE(wizard.cboEncryption.Enabled());
    EXPECT_TRUE(wizard.lblEncryptionWhy.Visible());
    EXPECT_EQ(wizard.lblEncryptionWhy.Caption(), "no library");
    // One that the settings brought can be taken back.
    mail.cboEncryption.setText(mail_encryption::tls);
    reopen();
    EXPECT_TRUE(wizard.cboEncryption.Enabled());
    EXPECT_TRUE(wizard.lblEncryptionWhy.Visible());
}

TEST_F(WizardRulesTest, ThePathIsThatOfAChosenFile) {
    host.paths = {"D:\\data\\file.txt", ""};
    wizard.cmdFolder.userClick();
    EXPECT_EQ(wizard.txtDrive.Text(), "D:\\data\\");
    wizard.cmdFolder.userClick();
    EXPECT_EQ(wizard.txtDrive.Text(), "D:\\data\\");
    EXPECT_EQ(form1.txtDrive.Text(), "");
}

TEST_F(WizardRulesTest, AProgramIsAddedToBoxAndListAndRemovedFromBoth) {
    host.paths = {"D:\\tool.exe"};
    wizard.cmdPBrowse.userClick();
    EXPECT_EQ(wizard.cboProg.Text(), "D:\\tool.exe");
    wizard.cmdPAdd.userClick();
    EXPECT_EQ(entriesOf(wizard.cboProg), Words{"D:\\tool.exe"});
    ASSERT_EQ(wizard.LVProg.Count(), 1);
    EXPECT_EQ(wizard.LVProg.ListItems(1).Text(), "tool.exe");
    EXPECT_EQ(wizard.LVProg.ListItems(1).SubItems(1), "Execute");
    EXPECT_EQ(wizard.LVProg.ListItems(1).Tag(), "D:\\tool.exe");
    wizard.cboProg.setText("D:\\a.bin");
    wizard.cmdPAdd.userClick();
    apply();
    EXPECT_EQ(tagsOf(form1.LVProg), (Words{"D:\\tool.exe", "D:\\a.bin"}));
    EXPECT_EQ(entriesOf(form1.cboProg), (Words{"D:\\tool.exe", "D:\\a.bin"}));
    wizard.cmdPRem.userClick();  // none is selected
    EXPECT_EQ(wizard.LVProg.Count(), 2);
    EXPECT_EQ(wizard.cboProg.ListCount(), 2);
    wizard.LVProg.userSelect({1});
    wizard.cmdPRem.userClick();
    EXPECT_EQ(tagsOf(wizard.LVProg), Words{"D:\\a.bin"});
    EXPECT_EQ(entriesOf(wizard.cboProg), Words{"D:\\a.bin"});
    apply();
    EXPECT_EQ(tagsOf(form1.LVProg), Words{"D:\\a.bin"});
    EXPECT_EQ(entriesOf(form1.cboProg), Words{"D:\\a.bin"});
    // A row without an entry takes none with it.
    wizard.LVProg.userDrop({"D:\\tool.exe", "D:\\b.bin"});
    wizard.LVProg.userSelect({2});
    wizard.cmdPRem.userClick();
    EXPECT_EQ(tagsOf(wizard.LVProg), (Words{"D:\\a.bin", "D:\\b.bin"}));
    EXPECT_EQ(entriesOf(wizard.cboProg), Words{"D:\\a.bin"});
    EXPECT_EQ(said(), Words{});
}

TEST_F(WizardRulesTest, AProgramThatIsNoFileIsReportedOnce) {
    wizard.cmdPAdd.userClick();
    EXPECT_EQ(said(), Words{});
    wizard.cboProg.setText("D:\\gone.exe");
    wizard.cmdPAdd.userClick();
    EXPECT_EQ(said(), Words{"File does not exists."});
    EXPECT_EQ(wizard.cboProg.ListCount(), 0);
    EXPECT_EQ(wizard.LVProg.Count(), 0);
    wizard.cmdPRem.userClick();
    EXPECT_EQ(said().back(), "No item listed.");
}

TEST_F(WizardRulesTest, DroppedProgramsGoToBoxOrList) {
    wizard.LVProg.userDrop({"D:\\tool.exe"});
    EXPECT_EQ(wizard.cboProg.Text(), "D:\\tool.exe");
    EXPECT_EQ(wizard.LVProg.Count(), 0);
    wizard.LVProg.userDrop({"D:\\tool.exe", "D:\\gone.exe", "D:\\a.bin"});
    EXPECT_EQ(tagsOf(wizard.LVProg), (Words{"D:\\tool.exe", "D:\\a.bin"}));
    wizard.cboProg.userDrop({"D:\\a.bin", "D:\\b.bin"});
    EXPECT_EQ(entriesOf(wizard.cboProg), (Words{"D:\\a.bin", "D:\\b.bin"}));
    wizard.cboFile.userDrop({"D:\\b.bin"});
    EXPECT_EQ(wizard.cboFile.Text(), "D:\\b.bin");
    wizard.cboFile.userDrop({"D:\\a.bin", "D:\\b.bin"});
    EXPECT_EQ(entriesOf(wizard.cboFile), (Words{"D:\\a.bin", "D:\\b.bin"}));
}

const std::string missing =
    "The file/folder you are attempting to add does not exists: \r\nD:\\gone\r\nAdd anyway?";

TEST_F(WizardRulesTest, FilesAreAddedByTextOrChosenAndTheBoxKeepsItsEntries) {
    wizard.cboFile.setText("D:\\a.bin; b.bin;D:\\gone");
    wizard.cmdFAdd.userClick();
    EXPECT_EQ(said(), Words{missing});
    EXPECT_EQ(tagsOf(wizard.LVFile), (Words{"D:\\a.bin", "D:\\b.bin"}));
    EXPECT_EQ(wizard.cboFile.ListCount(), 0);
    forget();
    wizard.cboFile.setText("");
    host.paths = {std::string("D:\\\0a.bin\0b.bin", 15)};
    wizard.cmdFAdd.userClick();
    EXPECT_EQ(tagsOf(wizard.LVFile), (Words{"D:\\a.bin", "D:\\b.bin", "D:\\a.bin", "D:\\b.bin"}));
    EXPECT_EQ(host.dialogs, Words{"Choose File/Folder |c:\\"});
    wizard.LVFile.userSelect({2});
    wizard.cmdFRem.userClick();
    apply();
    EXPECT_EQ(tagsOf(form1.LVFile), (Words{"D:\\a.bin", "D:\\a.bin", "D:\\b.bin"}));
    wizard.LVFile.Clear();
    wizard.cmdFRem.userClick();
    EXPECT_EQ(said(), Words{"No item listed."});
}

TEST_F(WizardRulesTest, DroppedFilesAreListedOrAskedAboutThereOnly) {
    host.answers = {BoxAnswer::yes};
    wizard.LVFile.userDrop({"D:\\gone", "D:\\data"});
    EXPECT_EQ(said(), Words{missing});
    EXPECT_EQ(tagsOf(wizard.LVFile), (Words{"D:\\gone", "D:\\data"}));
    EXPECT_EQ(wizard.cboFile.Text(), "D:\\gone");
    apply();
    EXPECT_EQ(said(), Words{missing});
    EXPECT_EQ(tagsOf(form1.LVFile), (Words{"D:\\gone", "D:\\data"}));
    EXPECT_EQ(form1.LVFile.ListItems(1).SubItems(1), "n/a");
    EXPECT_EQ(form1.cboFile.Text(), "D:\\gone");
}

TEST_F(WizardRulesTest, AddingFilesDoesNotPauseTheWatch) {
    int clicks = 0;
    form1.cmdPause.Click.connect([&] { ++clicks; });
    form1.cmdPause.setCaption("Pause Watch");
    wizard.cmdFAdd.userClick();
    EXPECT_EQ(clicks, 0);
}

TEST_F(WizardRulesTest, ListsAreSortedByTheirColumns) {
    wizard.LVFile.userDrop({"D:\\a.bin", "D:\\b.bin"});
    wizard.LVFile.userClickPart(1);
    EXPECT_EQ(wizard.LVFile.SortOrder(), 1);
    EXPECT_EQ(tagsOf(wizard.LVFile), (Words{"D:\\b.bin", "D:\\a.bin"}));
    wizard.LVProg.userClickPart(2);
    EXPECT_EQ(wizard.LVProg.SortKey(), 1);
    wizard.ListView1.userClickPart(1);
    EXPECT_EQ(rowsOf(wizard.ListView1), (Words{"E:\\", "D:\\", "C:\\"}));
}

TEST_F(WizardRulesTest, RecipientsNeedAnAddressByTheButtonAndNotByTheKey) {
    wizard.cboNotEmail.setText("nobody");
    wizard.cmdAdd.userClick();
    EXPECT_EQ(wizard.cboNotEmail.ListCount(), 0);
    wizard.cboNotEmail.KeyPress(13);
    wizard.cboNotEmail.setText(" a@b.c ");
    wizard.cmdAdd.userClick();
    EXPECT_EQ(entriesOf(wizard.cboNotEmail), (Words{"nobody", "a@b.c"}));
    apply();
    EXPECT_EQ(entriesOf(mail.cboNotEmail), (Words{"nobody", "a@b.c"}));
    wizard.cboNotEmail.userChoose(0);
    wizard.cmdRemove.userClick();
    EXPECT_EQ(entriesOf(wizard.cboNotEmail), Words{"a@b.c"});
    apply();
    EXPECT_EQ(entriesOf(mail.cboNotEmail), Words{"a@b.c"});
    wizard.cmdClear.userClick();
    EXPECT_EQ(mail.cboNotEmail.ListCount(), 1);
    apply();
    EXPECT_EQ(mail.cboNotEmail.ListCount(), 0);
}

TEST_F(WizardRulesTest, TheIntervalStepsByASecondAndNotBelowOne) {
    wizard.UpDown1.userUp();
    EXPECT_EQ(wizard.txtTime.Text(), "61");
    wizard.txtTime.setText("2");
    wizard.UpDown1.userDown();
    wizard.UpDown1.userDown();
    EXPECT_EQ(wizard.txtTime.Text(), "1");
    EXPECT_EQ(form1.txtTime.Text(), "60\r\n");
}

}  // namespace
}  // namespace velmora::tests
