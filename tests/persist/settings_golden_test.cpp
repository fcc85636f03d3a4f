// The written file, byte for byte: golden/set.dat is made by a script of its own.
#include <gtest/gtest.h>

#include "golden_set_dat.h"
#include "settings_rig.h"

namespace velmora::tests {
namespace {

const std::string golden(std::begin(goldenSetDat), std::end(goldenSetDat));

struct SettingsGoldenTest : testing::Test, SettingsRig {};

void fillForm1(Form1& form1) {
    for (CheckBox* box :
         {&form1.chkUpdate, &form1.chkOnTopMonitor, &form1.chkAutoSave, &form1.chkCustTime}) {
        box->setValue(1);
    }
    form1.chkSystray.setValue(0);
    form1.txtAudio[0].setText("C:\\Klänge\\Größe.wav");
    form1.txtAudio[1].setText("D:\\警報\\ベル.wav");
    form1.txtTime.setText("90");
    form1.txtSpace.setText("50000");
    form1.txtDrive.setText("E:\\Ablage\\größer");
    form1.txtFileType.setText("*.tmp;*.bak");
    form1.DTTime1[0].setHour(7);
    form1.DTTime1[0].setMinute(45);
    form1.DTTime1[1].setMinute(30);
    form1.DTTime1[1].setSecond(15);
    form1.DTPInterval.setSecond(30);
    form1.ListView1.Add("C:\\").setChecked(true);
    form1.ListView1.Add("D:\\").setSelected(true);
    form1.ListView1.Add("\\\\server\\größe").setChecked(true);
    form1.cboFile.AddItem("C:\\a.txt");
    form1.cboFile.AddItem("C:\\Temp\\mañana.log");
    for (const int i : {0, 5, 11}) form1.lstAct.setSelected(i, true);
    for (const int i : {2, 4}) form1.lstEvt.setSelected(i, true);
}

void fillNotify(FrmNotify& notify) {
    notify.txtYourEmail.setText("jürgen@example.org");
    notify.txtUser.setText("jürgen");
    notify.txtPass.setText("pä55 wörd!");
    notify.txtMailServer.setText("mail.example.org");
    notify.txtMailSubj.setText("Žluťoučký kůň: málo místa \U0001F4BE");
    notify.txtMailFromDisplayName.setText("Velmora – Büro");
    for (const char* address : {"zoë@example.org", "ops+disk@example.org", "東京@example.org"}) {
        notify.cboNotEmail.AddItem(address);
    }
    for (const int i : {0, 3, 9}) notify.lstNotContent.setSelected(i, true);
    for (const int i : {1, 4}) notify.lstNotTime.setSelected(i, true);
    notify.txtCustMsg.setText("Größe prüfen, \"sofort\"!");
    notify.txtCustomContent.setText("C:\\Berichte\\übersicht.txt");
    notify.txtCustEvtAmt.setText("7");
    notify.DTPicker1.setValue({1899, 12, 30, 6, 30, 0});
    notify.DTPicker2.setValue({2026, 3, 14, 23, 59, 59});
    notify.txtProxy.setText("proxy.example.org");
    notify.txtPort.setText("3128");
    notify.chkIsHTML.setValue(1);
    notify.chkProxy.setValue(1);
}

TEST_F(SettingsGoldenTest, IsWrittenByteForByte) {
    fillForm1(form1);
    fillNotify(notify);
    EXPECT_EQ(write(), 0);
    EXPECT_EQ(linesOf(content()), linesOf(golden)) << "in plain lines, for reading";
    EXPECT_TRUE(content() == golden);
}

// Its two lists of several choices end the reading, so that they are read one by one.
TEST_F(SettingsGoldenTest, IsReadBackUpToItsListsOfSeveralChoices) {
    EXPECT_EQ(readBytes(golden), error::typeMismatch);
    EXPECT_EQ(notify.txtMailSubj.Text(), "Žluťoučký kůň: málo místa \U0001F4BE");
    EXPECT_EQ(entries(notify.cboNotEmail),
              (Lines{"zoë@example.org\r\nops", "disk@example.org\r\n東京@example.org\r\n"}));
    EXPECT_EQ(notify.txtCustMsg.Text(), "");
}

TEST_F(SettingsGoldenTest, IsReadWholeWithoutItsListsOfSeveralChoices) {
    Lines lines = linesOf(golden);
    // The two runs contain line ends, and are one line each.
    std::erase_if(lines, [](const auto& line) {
        return line.starts_with("NotlstContent") || line.starts_with("notlstTime");
    });
    EXPECT_EQ(readBytes(fileOf(lines)), 0);
    EXPECT_EQ(notify.txtCustMsg.Text(), "Größe prüfen, \"sofort\"!");
    EXPECT_EQ(notify.DTPicker2.Value(), (DateTime{2026, 3, 14, 23, 59, 59}));
    EXPECT_EQ(form1.DTTime1[1].Value(), (DateTime{1899, 12, 30, 17, 30, 15}));
    EXPECT_EQ(entries(form1.cboFile), (Lines{"C:\\a.txt\r\n", "C:\\Temp\\mañana.log\r\n"}));
    EXPECT_EQ(ticked(form1.lstAct), (std::vector<int>{0, 5, 11}));
    EXPECT_EQ(ticked(form1.lstEvt), (std::vector<int>{2, 4}));
    EXPECT_EQ(form1.DTPInterval.Minute(), 2) << "90 seconds are one and a half minutes, to even";
    EXPECT_EQ(form1.DTPInterval.Second(), 30);
}

}  // namespace
}  // namespace velmora::tests
