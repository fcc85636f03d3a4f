// What a save tells about the next start.
#include <gtest/gtest.h>

#include "persist/settings_rig.h"

namespace velmora::tests {
namespace {

constexpr const char* keptIntervals =
    "Kept are 10 to 59 seconds, whole minutes up to 59 and whole hours, saved by hand once the "
    "countdown has begun anew.";

struct ReadBackTest : testing::Test, SettingsRig {
    ReadBackTest() {
        form1.txtTime.setText("60");
        form1.DTPInterval.setMinute(1);
        form1.txtSpace.setText("50000");
        for (TextBox& sound : form1.txtAudio) sound.setText("C:\\Windows\\media\\chimes.wav");
        forms.hints.Said.connect([this](const Hint& hint) { hints.push_back(hint); });
    }

    /// Saves; the fields that were hinted at, those that would end the start with a "!".
    Lines save() {
        hints.clear();
        write();
        Lines fields;
        for (const Hint& hint : hints) {
            fields.push_back(hint.field + (hint.endsStart ? "!" : ""));
        }
        return fields;
    }
    /// The error of the next start.
    int nextStart() {
        SettingsRig next;
        return next.readBytes(content());
    }
    bool advises(const std::string& sentence) {
        return hints.size() == 1 && hints[0].text.ends_with(". " + sentence);
    }
    std::vector<Hint> hints;
};

TEST_F(ReadBackTest, SettingsThatComeBackGiveNoHint) {
    EXPECT_EQ(save(), Lines{});
    form1.txtSpace.setText("50000");
    form1.txtDrive.setText("D:\\target");
    form1.chkCustTime.setValue(1);
    form1.cboFile.AddItem("C:\\größe.log");
    form1.lstAct.setSelected(2, true);
    form1.lstAct.setSelected(5, true);
    form1.lstEvt.setSelected(1, true);
    notify.txtPass.setText("p\"a,s's! w");
    notify.cboNotEmail.AddItem("a@x");
    notify.lstNotTime.setSelected(3, true);
    notify.lstNotContent.setSelected(0, true);
    notify.txtCustMsg.setText("one\r\ntwo ");
    notify.txtCustMsg.setText("one\r\ntwo");
    row("C:\\", true);
    EXPECT_EQ(save(), Lines{}) << testing::PrintToString(hints.empty() ? "" : hints[0].text);
}

TEST_F(ReadBackTest, TwoSendTimesEndTheNextStart) {
    notify.lstNotTime.setSelected(0, true);
    notify.lstNotTime.setSelected(3, true);
    EXPECT_EQ(save(), Lines{"frmNotify.lstNotTime!"});
    EXPECT_TRUE(advises("Tick one entry at most."));
    EXPECT_EQ(nextStart(), error::typeMismatch);
}

TEST_F(ReadBackTest, AllSectionsDoToo) {
    for (int i = 0; i < notify.lstNotContent.ListCount(); ++i) {
        notify.lstNotContent.setSelected(i, true);
    }
    EXPECT_EQ(save(), Lines{"frmNotify.lstNotContent!"});
    EXPECT_TRUE(advises("Tick one entry at most."));
    EXPECT_EQ(nextStart(), error::typeMismatch);
}

TEST_F(ReadBackTest, APasswordThatSwallowsTheLinesBehindItIsNamed) {
    notify.txtPass.setText("abc+!def");
    EXPECT_EQ(save(), Lines{"frmNotify.txtPass!"});
    EXPECT_TRUE(advises("Take \"+\" out of it."));
    EXPECT_FALSE(contains(hints[0].text, "abc"));
    EXPECT_NE(nextStart(), 0);
}

TEST_F(ReadBackTest, AMessageThatHoldsAKeyIsNamed) {
    notify.txtCustMsg.setText("our custtime=late");
    EXPECT_EQ(save(), Lines{"frmNotify.txtCustMsg!"});
    EXPECT_TRUE(advises("Take \"custtime=\" out of it."));
    EXPECT_EQ(nextStart(), error::typeMismatch);
}

TEST_F(ReadBackTest, EachTrapIsNamed) {
    notify.txtPass.setText("abc+!def");
    notify.lstNotTime.setSelected(1, true);
    notify.lstNotTime.setSelected(3, true);
    notify.txtCustMsg.setText("our custtime=late");
    EXPECT_EQ(save(),
              (Lines{"frmNotify.txtPass!", "frmNotify.lstNotTime!", "frmNotify.txtCustMsg!"}));
    EXPECT_TRUE(hints[0].text.ends_with("Take \"+\" out of it."));
    EXPECT_TRUE(hints[1].text.ends_with("Tick one entry at most."));
    EXPECT_TRUE(hints[2].text.ends_with("Take \"custtime=\" out of it."));
}

TEST_F(ReadBackTest, WhatComesBackChangedIsNamedBehindTheTraps) {
    notify.txtMailSubj.setText("one+two");
    notify.lstNotTime.setSelected(1, true);
    notify.lstNotTime.setSelected(3, true);
    EXPECT_EQ(save(), (Lines{"frmNotify.lstNotTime!", "frmNotify.txtMailSubj"}));
}

TEST_F(ReadBackTest, ATrapBehindATabIsNamedByItsField) {
    notify.txtPass.setText("a\tcusttime=x");
    EXPECT_EQ(save(), Lines{"frmNotify.txtPass!"});
    EXPECT_TRUE(advises("Take the tab out of it."));
}

TEST_F(ReadBackTest, AMissingIntervalIsNoReasonToSearchNoFurther) {
    form1.txtTime.setText("");
    notify.lstNotContent.setSelected(1, true);
    notify.lstNotContent.setSelected(3, true);
    EXPECT_EQ(save(), (Lines{"DTPInterval!", "frmNotify.lstNotContent!"}));
}

TEST_F(ReadBackTest, AnIntervalWhoseLineAnotherKeyTakesIsNamed) {
    form1.txtTime.setText("7 minspace=60");
    EXPECT_EQ(save(), Lines{"DTPInterval!"});
    EXPECT_EQ(nextStart(), error::typeMismatch);
}

TEST_F(ReadBackTest, AMissingIntervalIsNamed) {
    form1.txtTime.setText("");
    EXPECT_EQ(save(), Lines{"DTPInterval!"});
    EXPECT_TRUE(advises(keptIntervals));
}

TEST_F(ReadBackTest, WhatComesBackChangedIsNamedAsSuch) {
    notify.txtMailSubj.setText("one+two");
    EXPECT_EQ(save(), Lines{"frmNotify.txtMailSubj"});
    EXPECT_TRUE(advises("Take \"+\" out of it."));
    EXPECT_EQ(nextStart(), 0);
}

TEST_F(ReadBackTest, EachCauseHasItsAdvice) {
    notify.txtMailServer.setText("mail\tserver");
    EXPECT_EQ(save(), Lines{"frmNotify.txtMailServer"});
    EXPECT_TRUE(advises("Take the tab out of it."));
    notify.txtMailServer.setText("");
    notify.txtUser.setText("user ");
    EXPECT_EQ(save(), Lines{"frmNotify.txtUser"});
    EXPECT_TRUE(advises("Take the blank from its end."));
    notify.txtUser.setText("");
    notify.txtCustMsg.setText("see path=C:\\");
    EXPECT_EQ(save(), Lines{"frmNotify.txtCustMsg"});
    EXPECT_TRUE(advises("Take \"path=\" out of it."));
    notify.txtCustMsg.setText("");
    form1.txtSpace.setText("50 000 KB");
    EXPECT_EQ(save(), Lines{"txtSpace"});
    EXPECT_TRUE(advises("Change it."));
}

TEST_F(ReadBackTest, SeveralRecipientsComeBackAsOneEntry) {
    notify.cboNotEmail.AddItem("a@x");
    notify.cboNotEmail.AddItem("b@x");
    EXPECT_EQ(save(), Lines{"frmNotify.cboNotEmail"});
    EXPECT_TRUE(advises("Keep one address."));
}

TEST_F(ReadBackTest, AnIntervalThatTheFileCantHoldIsNamed) {
    form1.DTPInterval.setHour(1);
    form1.DTPInterval.setMinute(30);
    form1.txtTime.setText("5400");
    EXPECT_EQ(save(), Lines{"DTPInterval"});
    EXPECT_TRUE(advises(keptIntervals));
}

TEST_F(ReadBackTest, AnIntervalThatIsNotTakenYetIsNamed) {
    form1.DTPInterval.setMinute(5);
    EXPECT_EQ(save(), Lines{"DTPInterval"}) << "the countdown has not taken it";
}

TEST_F(ReadBackTest, TheSecondSoundIsNamedOnlyWhereOneIsLost) {
    form1.txtAudio[1].setText("C:\\Windows\\media\\chimes.wav");
    EXPECT_EQ(save(), Lines{});
    form1.txtAudio[1].setText("C:\\ring.wav");
    EXPECT_EQ(save(), Lines{"txtAudio(1)"});
}

TEST_F(ReadBackTest, AMinimumThatTheStartAsksForIsNamed) {
    form1.txtSpace.setText("");
    EXPECT_EQ(save(), Lines{"txtSpace"});
    EXPECT_TRUE(advises("Without a number the start asks for one and takes 1."));
}

TEST_F(ReadBackTest, AMinimumThatIsNoNumberIsNamedToo) {
    form1.txtSpace.setText("much");
    EXPECT_EQ(save(), Lines{"txtSpace"});
}

TEST_F(ReadBackTest, AnEmptySoundIsNamed) {
    form1.txtAudio[0].setText("");
    EXPECT_EQ(save(), Lines{"txtAudio(0)"});
    EXPECT_TRUE(advises("Without a file it is the system's chimes after each start."));
    form1.txtAudio[0].setText("C:\\ring.wav");
    form1.txtAudio[1].setText("");
    EXPECT_EQ(save(), Lines{"txtAudio(1)"});
}

TEST_F(ReadBackTest, ASoundThatTheFileCutsIsNamed) {
    form1.txtAudio[0].setText("C:\\a+b.wav");
    EXPECT_EQ(save(), Lines{"txtAudio(0)"});
    EXPECT_TRUE(advises("Take \"+\" out of it."));
}

TEST_F(ReadBackTest, TimesThatAreNotSavedAreNamedWhenTheyDiffer) {
    form1.DTTime1[0].setHour(9);
    EXPECT_EQ(save(), Lines{"DTTime1(0)"});
    EXPECT_TRUE(advises("It is saved only while the custom watch time (chkCustTime) is ticked."));
    form1.DTTime1[1].setHour(18);
    form1.chkCustTime.setValue(1);
    EXPECT_EQ(save(), Lines{});
    form1.chkCustTime.setValue(0);
    EXPECT_EQ(save(), Lines{"DTTime1(1)"}) << "the first one was named before";
}

TEST_F(ReadBackTest, AnEncryptionThatHasNoLineIsNamed) {
    notify.cboEncryption.setText("no such thing!");
    EXPECT_EQ(save(), Lines{"frmNotify.cboEncryption"});
    EXPECT_TRUE(advises("Change it."));
}

TEST_F(ReadBackTest, AFieldThatAnotherOnesValueChangesIsNamed) {
    notify.txtMailSubj.setText("notEmail=b");
    EXPECT_EQ(save(), (Lines{"frmNotify.txtYourEmail", "frmNotify.txtMailSubj"}));
    EXPECT_TRUE(hints[0].text.ends_with("Change it."));
    EXPECT_TRUE(hints[1].text.ends_with("Take \"notEmail=\" out of it."));
}

TEST_F(ReadBackTest, EachFieldIsNamedOnceAStart) {
    notify.txtMailSubj.setText("one+two");
    EXPECT_EQ(save().size(), 1u);
    EXPECT_EQ(save(), Lines{});
    notify.txtMailSubj.setText("three+four");
    EXPECT_EQ(save(), Lines{});
    notify.txtMailSubj.setText("five+!six");
    EXPECT_EQ(save(), Lines{"frmNotify.txtMailSubj!"}) << "once more, since it has become worse";
}

TEST_F(ReadBackTest, TheSaveItselfIsWhatItAlwaysWas) {
    notify.txtMailSubj.setText("one+two");
    notify.lstNotTime.setSelected(1, true);
    notify.lstNotTime.setSelected(3, true);
    machine.log.clear();
    EXPECT_EQ(write(), 0);
    EXPECT_EQ(machine.log.calls(), Lines{"writeOver " + path}) << "the machine isn't asked";
    EXPECT_TRUE(host.boxes.empty());
    SettingsRig other;
    other.form1.txtTime.setText("60");
    other.form1.DTPInterval.setMinute(1);
    other.form1.txtSpace.setText("50000");
    for (std::size_t i = 0; i < 2; ++i) {
        other.form1.txtAudio[i].setText(form1.txtAudio[i].Text());
    }
    other.notify.txtMailSubj.setText("one+two");
    other.notify.lstNotTime.setSelected(1, true);
    other.notify.lstNotTime.setSelected(3, true);
    other.write();
    EXPECT_EQ(content(), other.content());
}

TEST_F(ReadBackTest, NothingOfTheProgramChanges) {
    form1.cboFile.AddItem("C:\\f");
    notify.cboNotEmail.AddItem("a@x");
    save();
    EXPECT_EQ(entries(form1.cboFile), Lines{"C:\\f"});
    EXPECT_EQ(entries(notify.cboNotEmail), Lines{"a@x"});
}

}  // namespace
}  // namespace velmora::tests
