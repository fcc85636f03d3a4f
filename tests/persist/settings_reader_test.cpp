// What becomes of a file's bytes, and of the values in it.
#include "persist/settings_reader.h"

#include <gtest/gtest.h>

#include "settings_rig.h"

namespace velmora::tests {
namespace {

struct SettingsReaderTest : testing::Test, SettingsRig {};

TEST_F(SettingsReaderTest, ALineEndThatIsPartOfTheLineStaysInTheValue) {
    EXPECT_EQ(readBytes(fileOf({"txtTime=75\r\n", "path2move=E:\\a\r\n", "filetype=*.tmp\r\n",
                                "cboFile=C:\\f\r\n", "notCustMsg=m\r\n"})),
              0);
    EXPECT_EQ(form1.txtTime.Text(), "75\r\n");
    EXPECT_EQ(form1.txtDrive.Text(), "E:\\a\r\n");
    EXPECT_EQ(form1.txtFileType.Text(), "*.tmp\r\n");
    EXPECT_EQ(entries(form1.cboFile), Lines{"C:\\f\r\n"});
    EXPECT_EQ(notify.txtCustMsg.Text(), "m\r\n");
}

TEST_F(SettingsReaderTest, TheMinimumSpaceLosesAllThatFollowsItsDigits) {
    EXPECT_EQ(read({"minspace=50000\r\n"}), 0);
    EXPECT_EQ(form1.txtSpace.Text(), "50000");
    EXPECT_EQ(read({"minspace=5\r\n"}), 0);
    EXPECT_EQ(form1.txtSpace.Text(), "5");
    EXPECT_EQ(read({"minspace=12 %\r\n"}), 0);
    EXPECT_EQ(form1.txtSpace.Text(), "12");
    EXPECT_EQ(read({"minspace=-5\r\n"}), 0);
    EXPECT_EQ(form1.txtSpace.Text(), "-5") << "the first character is never cut";
}

// Two characters are too few to be cut.
TEST_F(SettingsReaderTest, AnEmptyMinimumSpaceComesBackAsALineEnd) {
    EXPECT_EQ(read({"minspace=\r\n"}), 0);
    EXPECT_EQ(form1.txtSpace.Text(), "\r\n");
}

TEST_F(SettingsReaderTest, BlanksAroundALineAreTrimmedOnceMoreWhenItIsPlain) {
    // A blank of the file is trimmed before the shift, a blank of the plain line after it.
    EXPECT_EQ(
        readBytes("  " + fileOf({"txtTime=60"}) + " " + shifted("  notCustMsg= a  ", 1) + "  \r\n"),
        0);
    EXPECT_EQ(notify.txtCustMsg.Text(), " a");
}

TEST_F(SettingsReaderTest, APlainCharacterThatShiftsToABlankIsTrimmedAtTheEnd) {
    EXPECT_EQ(read({"notCustMsg=a\x1F"}), 0);
    EXPECT_EQ(notify.txtCustMsg.Text(), "a");
}

TEST_F(SettingsReaderTest, LinesMayEndInOneCharacterOrInNothing) {
    EXPECT_EQ(readBytes("uyuUjnf>71\nopuFnbjm>b\ropuDvtuNth>c"), 0);
    EXPECT_EQ(form1.txtTime.Text(), "60");
    EXPECT_EQ(notify.txtYourEmail.Text(), "a");
    EXPECT_EQ(notify.txtCustMsg.Text(), "b");
}

TEST_F(SettingsReaderTest, BlankLinesAndFieldsArePassedOver) {
    EXPECT_EQ(readBytes("\r\n\r\n,,  ,\r\nuyuUjnf>71,,\r\n   \r\n"), 0);
    EXPECT_EQ(form1.txtTime.Text(), "60");
}

TEST_F(SettingsReaderTest, APlusEndsTheValueAndWhatFollowsIsALineOfItsOwn) {
    EXPECT_EQ(read({"notCustMsg=1+1=2", "notEmail=a+filetype=x"}), 0);
    EXPECT_EQ(notify.txtCustMsg.Text(), "1");
    EXPECT_EQ(notify.txtYourEmail.Text(), "a");
    EXPECT_EQ(form1.txtFileType.Text(), "x") << "a key after the plus is a key";
}

TEST_F(SettingsReaderTest, APlusInARecipientLosesTheRestOfTheRun) {
    EXPECT_EQ(read({"notcboEmail=a+b@x\r\nnotcboEmail=c@x\r\n"}), 0);
    EXPECT_EQ(entries(notify.cboNotEmail), (Lines{"a", "b@x\r\nc@x\r\n"}));
}

TEST_F(SettingsReaderTest, AnExclamationMarkInAValueIsACharacterLikeOthers) {
    EXPECT_EQ(read({"notCustMsg=!now!", "notEmailSubj=x"}), 0);
    EXPECT_EQ(notify.txtCustMsg.Text(), "!now!");
    EXPECT_EQ(notify.txtMailSubj.Text(), "x");
}

// There the mark becomes the quote that begins a field.
TEST_F(SettingsReaderTest, AnExclamationMarkAfterAPlusSwallowsLinesUpToTheNextOne) {
    EXPECT_EQ(read({"notCustMsg=a+!b", "notEmail=lost", "notEmailUser=c!d", "notEmailPass=kept"}),
              0);
    EXPECT_EQ(notify.txtCustMsg.Text(), "a");
    // The line ends in between are shifted back too.
    EXPECT_EQ(notify.txtYourEmail.Text(), "b\f\tlost\f\tnotEmailUser=c");
    EXPECT_EQ(notify.txtUser.Text(), "");
    EXPECT_EQ(notify.txtPass.Text(), "kept");
}

TEST_F(SettingsReaderTest, ATabInAValueEndsItAsItShiftsToALineEnd) {
    EXPECT_EQ(read({"notCustMsg=a\tb", "notEmail=c"}), 0);
    EXPECT_EQ(notify.txtCustMsg.Text(), "a");
    EXPECT_EQ(notify.txtYourEmail.Text(), "c");
}

TEST_F(SettingsReaderTest, LettersAreReadAsUtf8) {
    EXPECT_EQ(read({"notEmailUser=Größe \u6F22\u5B57 \U0001F4BE"}), 0);
    EXPECT_EQ(notify.txtUser.Text(), "Größe \u6F22\u5B57 \U0001F4BE");
}

TEST_F(SettingsReaderTest, ALineThatIsNoUtf8IsReadAsWindows1252) {
    EXPECT_EQ(read({"notEmailUser=Gr\xF6\xDF"
                    "e \x80",
                    "notEmailSubj=\xC3\xA9", "filetype=\xC3"}),
              0);
    EXPECT_EQ(notify.txtUser.Text(), "Größe \u20AC");
    EXPECT_EQ(notify.txtMailSubj.Text(), "\u00E9") << "each line by itself";
    EXPECT_EQ(form1.txtFileType.Text(), "\u00C3");
}

TEST_F(SettingsReaderTest, CheckBoxesClickWhenTheirValueChanges) {
    std::string clicks;
    form1.chkStartUp.Click.connect([&] { clicks += "startup "; });
    form1.chkSystray.Click.connect([&] { clicks += "systray "; });
    form1.chkUpdate.Click.connect([&] { clicks += "update "; });
    form1.chkCustTime.Click.connect([&] { clicks += "custom "; });
    form1.chkLog.Click.connect([&] { clicks += "log "; });
    const Lines changed{"chkUpdate=1", "chkStartUp=1",   "chkLog=0",
                        "insystray=0", "custtime=1\r\n", "updateauto=1\r\n"};
    EXPECT_EQ(read(changed), 0);
    EXPECT_EQ(clicks, "update startup log systray custom ");
    EXPECT_EQ(read(changed), 0);
    EXPECT_EQ(clicks, "update startup log systray custom ") << "nothing changes any more";
}

TEST_F(SettingsReaderTest, AnErrorOfAClickReachesTheCallerAndStopsTheReading) {
    form1.chkStartUp.Click.connect([] { throw RuntimeError(error::outOfMemory); });
    EXPECT_EQ(read({"chkStartUp=1", "notEmail=a"}), error::outOfMemory);
    EXPECT_EQ(notify.txtYourEmail.Text(), "");
}

TEST_F(SettingsReaderTest, TheLaterOfTheTwoUpdateLinesWins) {
    EXPECT_EQ(read({"chkUpdate=1", "updateauto=0"}), 0);
    EXPECT_EQ(form1.chkUpdate.Value(), 0);
    EXPECT_EQ(read({"updateauto=0", "chkUpdate=1"}), 0);
    EXPECT_EQ(form1.chkUpdate.Value(), 1);
}

TEST_F(SettingsReaderTest, OnlyTheSecondUpdateKeySetsTheAutomaticUpdateWithAnyValue) {
    EXPECT_EQ(read({"chkUpdate=1"}), 0);
    EXPECT_FALSE(forms.globals.bAutoUpdate);
    EXPECT_EQ(read({"updateauto=0"}), 0);
    EXPECT_TRUE(forms.globals.bAutoUpdate);
}

TEST_F(SettingsReaderTest, NumbersMayHaveBlanksAndLineEndsAroundThem) {
    EXPECT_EQ(read({"custtime= 1 \r\n", "lstAct=3\r\n", "lstEvt= 2\r\n", "chkLog=\r\n0"}), 0);
    EXPECT_EQ(form1.chkCustTime.Value(), 1);
    EXPECT_EQ(ticked(form1.lstAct), std::vector<int>{3});
    EXPECT_EQ(ticked(form1.lstEvt), std::vector<int>{2});
    EXPECT_EQ(form1.chkLog.Value(), 0);
}

TEST_F(SettingsReaderTest, IndexesAreRoundedWithTiesToEven) {
    EXPECT_EQ(read({"lstAct=1.5", "lstAct=2.5", "lstAct=4.6", "lstAct=-0.5"}), 0);
    EXPECT_EQ(ticked(form1.lstAct), (std::vector<int>{0, 2, 5}));
}

TEST_F(SettingsReaderTest, DatesAreReadWithoutTheirLineEnd) {
    EXPECT_EQ(read({"custtimebegin=9:10:11 AM\r\n", "custtimeend=11:59:59 PM\r\n",
                    "notDTPicker1=3/14/2026 3:09:26 PM", "notDTPicker2=12/31/2025"}),
              0);
    EXPECT_EQ(form1.DTTime1[0].Value(), (DateTime{1899, 12, 30, 9, 10, 11}));
    EXPECT_EQ(form1.DTTime1[1].Value(), (DateTime{1899, 12, 30, 23, 59, 59}));
    EXPECT_EQ(notify.DTPicker1.Value(), (DateTime{2026, 3, 14, 15, 9, 26}));
    EXPECT_EQ(notify.DTPicker2.Value(), (DateTime{2025, 12, 31, 0, 0, 0}));
}

TEST_F(SettingsReaderTest, APathSelectsEveryRowOfThatTextInAnyCase) {
    ListItem& exact = row("C:\\Data");
    ListItem& other = row("C:\\Data2");
    ListItem& same = row("c:\\DATA", true);
    EXPECT_EQ(read({"path=C:\\data  "}), 0);
    EXPECT_TRUE(exact.Selected());
    EXPECT_FALSE(other.Selected());
    EXPECT_TRUE(same.Selected());
    EXPECT_FALSE(exact.Checked());
    EXPECT_TRUE(same.Checked());
}

TEST_F(SettingsReaderTest, APathWithItsLineEndMatchesOnlyARowThatEndsTheSameWay) {
    ListItem& plain = row("C:\\");
    ListItem& ended = row("C:\\\r\n");
    EXPECT_EQ(read({"path=C:\\\r\n"}), 0);
    EXPECT_FALSE(plain.Selected());
    EXPECT_TRUE(ended.Selected());
}

TEST_F(SettingsReaderTest, APathWithoutARowIsDroppedWithoutAWord) {
    row("C:\\");
    EXPECT_EQ(read({"path=D:\\", "path=\r\n", "path="}), 0);
    EXPECT_EQ(form1.ListView1.Count(), 1);
    EXPECT_FALSE(form1.ListView1.ListItems(1).Selected());
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(SettingsReaderTest, ASoundThatExistsIsTakenAndAnotherBecomesTheChimes) {
    machine.windowsFolder = "D:\\Win";
    machine.files["C:\\s\\beep.wav"] = "RIFF";
    EXPECT_EQ(read({"txtAudio0=C:\\s\\beep.wav"}), 0);
    EXPECT_EQ(form1.txtAudio[0].Text(), "C:\\s\\beep.wav");
    EXPECT_EQ(read({"txtAudio0=C:\\s\\gone.wav"}), 0);
    EXPECT_EQ(form1.txtAudio[0].Text(), "D:\\Win\\media\\chimes.wav");
    EXPECT_EQ(form1.txtAudio[1].Text(), "");
    EXPECT_EQ(read({"txtAudio1="}), 0);
    EXPECT_EQ(form1.txtAudio[1].Text(), "D:\\Win\\media\\chimes.wav");
}

TEST_F(SettingsReaderTest, AnEmptyListedFileIsNotAddedButALoneLineEndIs) {
    EXPECT_EQ(read({"cboFile=", "cboFile=\r\n"}), 0);
    EXPECT_EQ(entries(form1.cboFile), Lines{"\r\n"});
}

TEST_F(SettingsReaderTest, EntriesAreAddedAndNeverCleared) {
    form1.cboFile.AddItem("a");
    notify.cboNotEmail.AddItem("a@x");
    form1.lstAct.setSelected(act::run, true);
    EXPECT_EQ(read({"cboFile=a", "notcboEmail=a@x", "lstAct=1"}), 0);
    EXPECT_EQ(entries(form1.cboFile), (Lines{"a", "a"}));
    EXPECT_EQ(entries(notify.cboNotEmail), (Lines{"a@x", "a@x"}));
    EXPECT_EQ(ticked(form1.lstAct), (std::vector<int>{1, 7}));
}

TEST_F(SettingsReaderTest, AnOlderRecipientIsTrimmedAndLowered) {
    EXPECT_EQ(read({"cboNotEmail=  Ops@Example.ORG", "notcboEmail=  Ops@Example.ORG"}), 0);
    EXPECT_EQ(entries(notify.cboNotEmail), (Lines{"ops@example.org", "  Ops@Example.ORG"}));
}

TEST_F(SettingsReaderTest, AnOlderProxyIsSwitchedOnToo) {
    EXPECT_EQ(read({"lstNotProxy=proxy", "lstNotPort=3128"}), 0);
    EXPECT_EQ(notify.txtProxy.Text(), "proxy");
    EXPECT_EQ(notify.txtPort.Text(), "3128");
    EXPECT_EQ(notify.chkProxy.Value(), 1);
}

TEST_F(SettingsReaderTest, ANewerProxyIsNotSwitchedOn) {
    EXPECT_EQ(read({"nottxtProxy=proxy", "nottxtPort=3128"}), 0);
    EXPECT_EQ(notify.chkProxy.Value(), 0);
}

}  // namespace
}  // namespace velmora::tests
