#include "persist/settings_writer.h"

#include <gtest/gtest.h>

#include "settings_rig.h"

namespace velmora::tests {
namespace {

struct SettingsWriterTest : testing::Test, SettingsRig {
    SettingsWriterTest() { form1.txtTime.setText("60"); }
};

/// Every field with a value of its own, so that two that are mixed up show.
void fillOptions(Form1& form1) {
    form1.chkUpdate.setValue(1);
    form1.chkOnTopMonitor.setValue(1);
    form1.chkLog.setValue(0);
    form1.chkAutoSave.setValue(1);
    form1.txtAudio[0].setText("first.wav");
    form1.txtAudio[1].setText("second.wav");
    form1.txtTime.setText("61");
    form1.txtSpace.setText("62");
    form1.chkSystray.setValue(0);
    form1.txtDrive.setText("target");
    form1.txtFileType.setText("types");
    form1.chkCustTime.setValue(1);
    form1.DTTime1[0].setHour(9);
    form1.DTTime1[1].setHour(16);
    form1.DTPInterval.setSecond(59);
}

void fillMail(FrmNotify& notify) {
    notify.txtYourEmail.setText("sender");
    notify.txtUser.setText("user");
    notify.txtPass.setText("pass");
    notify.txtMailServer.setText("server");
    notify.txtMailSubj.setText("subject");
    notify.txtMailFromDisplayName.setText("display");
    notify.txtMailPort.setText("2525");
    notify.cboNotEmail.AddItem("a@x");
    notify.cboNotEmail.AddItem("b@x");
    notify.lstNotContent.setSelected(2, true);
    notify.lstNotContent.setSelected(9, true);
    notify.lstNotTime.setSelected(0, true);
    notify.lstNotTime.setSelected(4, true);
    notify.txtCustMsg.setText("message");
    notify.txtCustomContent.setText("content");
    notify.txtCustEvtAmt.setText("7");
    notify.DTPicker1.setHour(3);
    notify.DTPicker2.setHour(14);
    notify.txtProxy.setText("proxy");
    notify.txtPort.setText("3128");
    notify.chkIsHTML.setValue(1);
}

TEST_F(SettingsWriterTest, WritesAll40KeysInOrderTwelveOfThemWithALineEndOfTheirOwn) {
    fillOptions(form1);
    fillMail(notify);
    row("C:\\", true);
    form1.cboFile.AddItem("file");
    form1.lstAct.setSelected(act::progressDialog, true);
    form1.lstEvt.setSelected(evt::unavailable, true);
    EXPECT_EQ(written(), (Lines{"chkUpdate=1",
                                "chkStartUp=0",
                                "chkOnTopMonitor=1",
                                "chkNTLog=0",
                                "chkLog=0",
                                "chkAutoSave=1",
                                "txtAudio0=first.wav",
                                "txtAudio1=second.wav",
                                "txtTime=61\r\n",
                                "minspace=62\r\n",
                                "notEmail=sender",
                                "notEmailUser=user",
                                "notEmailPass=pass",
                                "notMailServer=server",
                                "notEmailSubj=subject",
                                "notMailFromDisp=display",
                                "notcboEmail=a@x\r\nnotcboEmail=b@x\r\n",
                                "NotlstContent=2\r\nNotlstContent=9\r\n",
                                "notlstTime=0\r\nnotlstTime=4\r\n",
                                "notCustMsg=message",
                                "notCustCont=content",
                                "notCustEvtAmt=7",
                                "notDTPicker1=3:00:00 AM",
                                "notDTPicker2=2:00:00 PM",
                                "nottxtProxy=proxy",
                                "nottxtPort=3128",
                                "notchkHTML=1",
                                "notchkProxy=0",
                                "insystray=0",
                                "path2move=target\r\n",
                                "filetype=types\r\n",
                                "custtime=1\r\n",
                                "custtimebegin=9:00:00 AM\r\n",
                                "custtimeend=4:00:00 PM\r\n",
                                "custtimeDTPI=12:01:59 AM",
                                "updateauto=1\r\n",
                                "path=C:\\\r\n",
                                "cboFile=file\r\n",
                                "lstAct=11\r\n",
                                "lstEvt=4\r\n"}));
}

// One box at a time, so that no box answers for another.
TEST_F(SettingsWriterTest, WritesEachCheckBoxUnderItsOwnKey) {
    const std::vector<std::pair<CheckBox*, std::string>> boxes{
        {&form1.chkStartUp, "chkStartUp="},   {&form1.chkOnTopMonitor, "chkOnTopMonitor="},
        {&form1.chkNTLog, "chkNTLog="},       {&form1.chkLog, "chkLog="},
        {&form1.chkAutoSave, "chkAutoSave="}, {&notify.chkIsHTML, "notchkHTML="},
        {&notify.chkProxy, "notchkProxy="},   {&form1.chkSystray, "insystray="}};
    for (const auto& [box, key] : boxes) {
        for (const int value : {0, 1}) {
            const Lines before = written();
            const bool changes = box->Value() != value;
            box->setValue(value);
            const Lines after = written();
            EXPECT_EQ(written(key), Lines{key + std::to_string(value)});
            int differing = 0;
            for (std::size_t i = 0; i < after.size(); ++i) differing += before[i] != after[i];
            EXPECT_EQ(differing, changes ? 1 : 0) << key;
        }
    }
}

TEST_F(SettingsWriterTest, WritesTheUpdateCheckTwice) {
    form1.chkUpdate.setValue(1);
    EXPECT_EQ(written("chkUpdate="), Lines{"chkUpdate=1"});
    EXPECT_EQ(written("updateauto="), Lines{"updateauto=1\r\n"});
}

TEST_F(SettingsWriterTest, WritesTheDesignValuesOfAFreshProgram) {
    EXPECT_EQ(written(), (Lines{"chkUpdate=0",
                                "chkStartUp=0",
                                "chkOnTopMonitor=0",
                                "chkNTLog=0",
                                "chkLog=1",
                                "chkAutoSave=0",
                                "txtAudio0=",
                                "txtAudio1=",
                                "txtTime=60\r\n",
                                "minspace=\r\n",
                                "notEmail=",
                                "notEmailUser=",
                                "notEmailPass=",
                                "notMailServer=",
                                "notEmailSubj=Karvelle Velmora: system info",
                                "notMailFromDisp=Velmora",
                                "",
                                "",
                                "",
                                "notCustMsg=",
                                "notCustCont=",
                                "notCustEvtAmt=4",
                                "notDTPicker1=12:00:00 PM",
                                "notDTPicker2=1:00:00 AM",
                                "nottxtProxy=",
                                "nottxtPort=",
                                "notchkHTML=0",
                                "notchkProxy=0",
                                "insystray=1",
                                "path2move=\r\n",
                                "filetype=\r\n",
                                "custtime=0\r\n",
                                "custtimeDTPI=12:01:00 AM",
                                "updateauto=0\r\n"}));
}

TEST_F(SettingsWriterTest, ShowsNoReadableKeyAndEndsEachLineWithARealLineEnd) {
    write();
    EXPECT_FALSE(contains(content(), "txtTime"));
    EXPECT_TRUE(content().starts_with("dilVqebuf>1\r\n"));
    EXPECT_TRUE(contains(content(), "\r\nuyuUjnf>71\x0E\x0B\r\nnjotqbdf>\x0E\x0B\r\n"));
    EXPECT_TRUE(content().ends_with("vqebufbvup>1\x0E\x0B\r\n"));
}

TEST_F(SettingsWriterTest, LeavesABlankLineForEachEmptyRun) {
    write();
    EXPECT_TRUE(contains(content(), "Wfmnpsb\r\n\r\n\r\n\r\nopuDvtuNth>\r\n"));
}

TEST_F(SettingsWriterTest, WritesTheCustomTimesOnlyWhileCustomTimeIsOn) {
    EXPECT_TRUE(written("custtimebegin=").empty());
    EXPECT_TRUE(written("custtimeend=").empty());
    form1.chkCustTime.setValue(1);
    EXPECT_EQ(written("custtimebegin="), Lines{"custtimebegin=8:00:00 AM\r\n"});
    EXPECT_EQ(written("custtimeend="), Lines{"custtimeend=5:00:00 PM\r\n"});
}

TEST_F(SettingsWriterTest, WritesNeitherTheMailPortNorAutoSaveSettings) {
    const Lines before = written();
    notify.txtMailPort.setText("2525");
    form1.chkSaveSet.setValue(1);
    EXPECT_EQ(written(), before);
}

TEST_F(SettingsWriterTest, WritesALineForEachTickedRow) {
    row("C:\\", true);
    row("D:\\", false).setSelected(true);
    row("\\\\host\\share", true);
    EXPECT_EQ(written("path="), (Lines{"path=C:\\\r\n", "path=\\\\host\\share\r\n"}));
}

TEST_F(SettingsWriterTest, WritesALineForEachListedFile) {
    form1.cboFile.AddItem("a");
    form1.cboFile.AddItem("");
    form1.cboFile.AddItem("b\r\n");
    EXPECT_EQ(written("cboFile="), (Lines{"cboFile=a\r\n", "cboFile=\r\n", "cboFile=b\r\n\r\n"}));
}

TEST_F(SettingsWriterTest, WritesALineForEachChosenActionAndThenEachEvent) {
    for (const int i : {act::alert, act::sound, act::progressDialog})
        form1.lstAct.setSelected(i, true);
    for (const int i : {evt::stagnancy, evt::modification}) form1.lstEvt.setSelected(i, true);
    Lines all = written();
    EXPECT_EQ(
        Lines(all.end() - 5, all.end()),
        (Lines{"lstAct=0\r\n", "lstAct=5\r\n", "lstAct=11\r\n", "lstEvt=0\r\n", "lstEvt=3\r\n"}));
}

TEST_F(SettingsWriterTest, WritesDatesInTheRegionalForm) {
    machine.platform().regional = {
        .dateOrder = DateOrder::dayMonthYear, .dateSeparator = ".", .twelveHourClock = false};
    notify.DTPicker1.setValue({2026, 3, 14, 15, 9, 26});
    EXPECT_EQ(written("notDTPicker1="), Lines{"notDTPicker1=14.03.2026 15:09:26"});
    EXPECT_EQ(written("notDTPicker2="), Lines{"notDTPicker2=01:00:00"});
}

TEST_F(SettingsWriterTest, WritesLettersAsTheBytesOfUtf8) {
    notify.txtUser.setText("\u00E9\u6F22\U0001F4BE");
    write();
    EXPECT_TRUE(contains(content(), "opuFnbjmVtfs>\xC4\xAA\xE7\xBD\xA3\xF1\xA0\x93\xBF\r\n"));
}

TEST_F(SettingsWriterTest, WritesValuesAsTypedBlanksIncluded) {
    notify.txtCustMsg.setText("  a = b  ");
    form1.txtTime.setText(" 60 ");
    EXPECT_EQ(written("notCustMsg="), Lines{"notCustMsg=  a = b  "});
    EXPECT_EQ(written("txtTime="), Lines{"txtTime= 60 \r\n"});
}

TEST_F(SettingsWriterTest, YieldsForEachEntryOfTheThreeRuns) {
    notify.cboNotEmail.AddItem("a");
    write();
    EXPECT_EQ(host.yields, 1 + 10 + 5);
}

TEST_F(SettingsWriterTest, WritesLaterLinesAsTheyAreAfterAYield) {
    host.onYield = [this](int) { notify.txtCustMsg.setText("changed"); };
    EXPECT_EQ(written("notCustMsg="), Lines{"notCustMsg=changed"});
}

TEST_F(SettingsWriterTest, HasNoFileOpenDuringAYield) {
    host.onYield = [this](int) { EXPECT_EQ(machine.log.countOf("writeOver"), 0); };
    write();
    EXPECT_EQ(machine.log.calls(), Lines{"writeOver " + path});
}

}  // namespace
}  // namespace velmora::tests
