// What a save and a start give back, and what they don't.
#include <gtest/gtest.h>

#include "settings_rig.h"

namespace velmora::tests {
namespace {

struct SettingsRoundTripTest : testing::Test, SettingsRig {
    SettingsRoundTripTest() { form1.txtTime.setText("60"); }

    /// Saves here and starts there; the error's number of the start.
    int restart() {
        EXPECT_EQ(write(), 0);
        next.machine.files = machine.files;
        return next.run(2);
    }

    SettingsRig next;
};

TEST_F(SettingsRoundTripTest, EveryCheckBoxComesBackEitherWay) {
    const auto boxes = [](SettingsRig& rig) {
        return std::vector<CheckBox*>{&rig.form1.chkUpdate,       &rig.form1.chkStartUp,
                                      &rig.form1.chkOnTopMonitor, &rig.form1.chkNTLog,
                                      &rig.form1.chkLog,          &rig.form1.chkAutoSave,
                                      &rig.form1.chkSystray,      &rig.form1.chkCustTime,
                                      &rig.notify.chkIsHTML,      &rig.notify.chkProxy};
    };
    for (const int value : {0, 1}) {
        for (CheckBox* box : boxes(*this)) box->setValue(value);
        EXPECT_EQ(restart(), 0);
        for (CheckBox* box : boxes(next)) EXPECT_EQ(box->Value(), value) << box->Name();
    }
}

TEST_F(SettingsRoundTripTest, TextsOfTheMailSettingsComeBackAsTheyWere) {
    const auto boxes = [](SettingsRig& rig) {
        FrmNotify& n = rig.notify;
        return std::vector<TextBox*>{&n.txtYourEmail,
                                     &n.txtUser,
                                     &n.txtPass,
                                     &n.txtMailServer,
                                     &n.txtMailSubj,
                                     &n.txtCustMsg,
                                     &n.txtCustomContent,
                                     &n.txtCustEvtAmt,
                                     &n.txtProxy,
                                     &n.txtPort,
                                     &n.txtMailFromDisplayName};
    };
    for (TextBox* box : boxes(*this)) box->setText("W\u00E4rt, \"" + box->Name() + "\" !;\u6F22");
    EXPECT_EQ(restart(), 0);
    for (std::size_t i = 0; i < boxes(next).size(); ++i) {
        EXPECT_EQ(boxes(next)[i]->Text(), boxes(*this)[i]->Text());
    }
    for (TextBox* box : boxes(*this)) box->setText("");
    EXPECT_EQ(restart(), 0);
    for (TextBox* box : boxes(next)) EXPECT_EQ(box->Text(), "") << box->Name();
}

TEST_F(SettingsRoundTripTest, FourTextsComeBackWithALineEndAndTheMinimumSpaceWithout) {
    form1.txtSpace.setText("50000");
    form1.txtDrive.setText("E:\\");
    form1.txtFileType.setText("*.tmp");
    form1.cboFile.AddItem("C:\\f");
    EXPECT_EQ(restart(), 0);
    EXPECT_EQ(next.form1.txtTime.Text(), "60\r\n");
    EXPECT_EQ(next.form1.txtSpace.Text(), "50000");
    EXPECT_EQ(next.form1.txtDrive.Text(), "E:\\\r\n");
    EXPECT_EQ(next.form1.txtFileType.Text(), "*.tmp\r\n");
    EXPECT_EQ(entries(next.form1.cboFile), Lines{"C:\\f\r\n"});
}

TEST_F(SettingsRoundTripTest, AListedFileGrowsByALineEndEachTime) {
    form1.cboFile.AddItem("C:\\f");
    std::string expected = "C:\\f";
    std::string file;
    for (int round = 0; round < 4; ++round) {
        if (round == 0) write();
        SettingsRig rig;
        EXPECT_EQ(rig.readBytes(round == 0 ? content() : file), 0);
        expected += "\r\n";
        EXPECT_EQ(entries(rig.form1.cboFile), Lines{expected});
        rig.write();
        file = rig.content();
    }
}

TEST_F(SettingsRoundTripTest, TickMarksOfTheWatchListDontComeBack) {
    row("C:\\", true);
    row("D:\\", true);
    next.row("C:\\");
    next.row("D:\\");
    EXPECT_EQ(restart(), 0);
    for (const int i : {1, 2}) {
        EXPECT_FALSE(next.form1.ListView1.ListItems(i).Checked());
        EXPECT_FALSE(next.form1.ListView1.ListItems(i).Selected());
    }
}

TEST_F(SettingsRoundTripTest, TheMailPortAndAutoSaveSettingsHaveTheirDesignValuesAgain) {
    notify.txtMailPort.setText("587");
    form1.chkSaveSet.setValue(1);
    EXPECT_EQ(restart(), 0);
    EXPECT_EQ(next.notify.txtMailPort.Text(), "25");
    EXPECT_EQ(next.form1.chkSaveSet.Value(), 0);
}

TEST_F(SettingsRoundTripTest, SeveralRecipientsComeBackAsOneEntry) {
    notify.cboNotEmail.AddItem("a@x");
    notify.cboNotEmail.AddItem("B@x");
    EXPECT_EQ(restart(), 0);
    EXPECT_EQ(entries(next.notify.cboNotEmail), Lines{"a@x\r\nB@x\r\n"});
}

TEST_F(SettingsRoundTripTest, NoRecipientsComeBackAsNone) {
    EXPECT_EQ(restart(), 0);
    EXPECT_EQ(next.notify.cboNotEmail.ListCount(), 0);
}

TEST_F(SettingsRoundTripTest, OneSectionAndOneSendTimeComeBack) {
    notify.lstNotContent.setSelected(9, true);
    notify.lstNotTime.setSelected(2, true);
    EXPECT_EQ(restart(), 0);
    EXPECT_EQ(ticked(next.notify.lstNotContent), std::vector<int>{9});
    EXPECT_EQ(ticked(next.notify.lstNotTime), std::vector<int>{2});
}

TEST_F(SettingsRoundTripTest, TwoSectionsOrSendTimesAreATypeMismatchAtTheNextStart) {
    notify.lstNotContent.setSelected(1, true);
    notify.lstNotContent.setSelected(3, true);
    EXPECT_EQ(restart(), error::typeMismatch);
    notify.lstNotContent.setSelected(3, false);
    notify.lstNotTime.setSelected(0, true);
    notify.lstNotTime.setSelected(4, true);
    EXPECT_EQ(restart(), error::typeMismatch);
}

TEST_F(SettingsRoundTripTest, AllActionsAndEventsComeBack) {
    for (int i = 0; i < form1.lstAct.ListCount(); ++i) form1.lstAct.setSelected(i, true);
    for (int i = 0; i < form1.lstEvt.ListCount(); ++i) form1.lstEvt.setSelected(i, true);
    EXPECT_EQ(restart(), 0);
    EXPECT_EQ(ticked(next.form1.lstAct), ticked(form1.lstAct));
    EXPECT_EQ(ticked(next.form1.lstEvt), ticked(form1.lstEvt));
}

TEST_F(SettingsRoundTripTest, CustomTimesComeBackWhileCustomTimeIsOnOnly) {
    form1.DTTime1[0].setHour(6);
    form1.DTTime1[1].setMinute(45);
    EXPECT_EQ(restart(), 0);
    EXPECT_EQ(next.form1.DTTime1[0].Hour(), 8);
    EXPECT_EQ(next.form1.DTTime1[1].Minute(), 0);
    form1.chkCustTime.setValue(1);
    EXPECT_EQ(restart(), 0);
    EXPECT_EQ(next.form1.DTTime1[0].Value(), form1.DTTime1[0].Value());
    EXPECT_EQ(next.form1.DTTime1[1].Value(), form1.DTTime1[1].Value());
}

TEST_F(SettingsRoundTripTest, DatesComeBackInEveryRegion) {
    const std::vector<Regional> regions{
        {},
        {.dateOrder = DateOrder::dayMonthYear, .dateSeparator = ".", .twelveHourClock = false},
        {.dateOrder = DateOrder::yearMonthDay, .dateSeparator = "-", .timeSeparator = "."}};
    for (const Regional& regional : regions) {
        machine.platform().regional = next.machine.platform().regional = regional;
        for (const DateTime& value :
             {DateTime{2026, 3, 14, 15, 9, 26}, DateTime{2026, 12, 31}, DateTime{}}) {
            notify.DTPicker1.setValue(value);
            EXPECT_EQ(restart(), 0);
            EXPECT_EQ(next.notify.DTPicker1.Value(), value);
        }
    }
}

TEST_F(SettingsRoundTripTest, TheFirstSoundComesBackAndTheSecondBecomesTheChimes) {
    machine.files["C:\\beep.wav"] = "RIFF";
    form1.txtAudio[0].setText("C:\\beep.wav");
    form1.txtAudio[1].setText("C:\\beep.wav");
    EXPECT_EQ(restart(), 0);
    EXPECT_EQ(next.form1.txtAudio[0].Text(), "C:\\beep.wav");
    EXPECT_EQ(next.form1.txtAudio[1].Text(), "C:\\Windows\\media\\chimes.wav");
}

TEST_F(SettingsRoundTripTest, TheIntervalIsRebuiltFromItsSeconds) {
    form1.txtTime.setText("7265");
    form1.DTPInterval.setSecond(17);
    EXPECT_EQ(restart(), 0);
    EXPECT_EQ(next.form1.DTPInterval.Hour(), 2);
    EXPECT_EQ(next.form1.DTPInterval.Minute(), 1) << "7265 less two hours is no minute; as it was";
    EXPECT_EQ(next.form1.DTPInterval.Second(), 5);
}

TEST_F(SettingsRoundTripTest, AFileInWindows1252IsSavedAsUtf8) {
    EXPECT_EQ(next.read({"notEmailUser=J\xFCrgen", "path2move=D:\\\xC4rger\r\n"}), 0);
    EXPECT_EQ(next.written("notEmailUser="), Lines{"notEmailUser=J\u00FCrgen"});
    EXPECT_EQ(next.written("path2move="), Lines{"path2move=D:\\\u00C4rger\r\n\r\n"});
}

TEST_F(SettingsRoundTripTest, AValueWithAPlusIsCutThere) {
    notify.txtPass.setText("se+cret");
    notify.txtMailSubj.setText("+");
    EXPECT_EQ(restart(), 0);
    EXPECT_EQ(next.notify.txtPass.Text(), "se");
    EXPECT_EQ(next.notify.txtMailSubj.Text(), "");
}

}  // namespace
}  // namespace velmora::tests
