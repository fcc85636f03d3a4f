// Which field a line goes to.
#include <gtest/gtest.h>

#include "reader_keys.h"

namespace velmora::tests {
namespace {

struct KeyRig : SettingsRig {
    KeyRig() { machine.files["C:\\beep.wav"] = "RIFF"; }
};

bool refuses(const ReaderKey& key) {
    return key.takes == Takes::number || key.takes == Takes::date;
}

TEST(SettingsReaderKeys, AreKnownByTheirNumber) {
    EXPECT_EQ(readerKeys.size() + 1, 45u);
}

TEST(SettingsReaderKeys, EachSetItsOwnField) {
    for (const ReaderKey& key : readerKeys) {
        KeyRig rig;
        rig.row("row");
        rig.row("another");
        EXPECT_NE(key.field(rig), key.shown) << key.key;
        EXPECT_EQ(rig.read({key.key + std::string(key.value)}), 0) << key.key;
        EXPECT_EQ(key.field(rig), key.shown) << key.key;
    }
}

// Older keys share the field of a newer one.
bool sameField(const std::string& one, const std::string& other) {
    static const std::vector<std::pair<std::string, std::string>> shared{
        {"updateauto=", "chkUpdate="},        {"cboNotEmail=", "notcboEmail="},
        {"lstNotContent=", "NotlstContent="}, {"lstNotTime=", "notlstTime="},
        {"lstNotProxy=", "nottxtProxy="},     {"lstNotProxy=", "notchkProxy="},
        {"lstNotPort=", "nottxtPort="}};
    return one == other || std::any_of(shared.begin(), shared.end(), [&](const auto& pair) {
               return pair == std::pair(one, other) || pair == std::pair(other, one);
           });
}

TEST(SettingsReaderKeys, EachSetNoOtherField) {
    for (const ReaderKey& key : readerKeys) {
        KeyRig rig, untouched;
        for (KeyRig* each : {&rig, &untouched}) {
            each->row("row");
            each->read({});
        }
        rig.read({key.key + std::string(key.value)});
        for (const ReaderKey& other : readerKeys) {
            if (sameField(key.key, other.key)) continue;
            EXPECT_EQ(other.field(rig), other.field(untouched)) << key.key << ' ' << other.key;
        }
    }
}

TEST(SettingsReaderKeys, AreFoundAnywhereInALine) {
    for (const ReaderKey& key : readerKeys) {
        if (key.takes != Takes::text || key.key == std::string("minspace=")) continue;
        KeyRig rig;
        EXPECT_EQ(rig.read({"x " + std::string(key.key) + "y"}), 0) << key.key;
        EXPECT_EQ(key.field(rig), "x y") << key.key;
    }
}

TEST(SettingsReaderKeys, EveryOccurrenceIsRemovedFromTheValue) {
    for (const ReaderKey& key : readerKeys) {
        if (key.takes != Takes::text || key.key == std::string("minspace=")) continue;
        KeyRig rig;
        const std::string name = key.key;
        EXPECT_EQ(rig.read({name + "a" + name + name + "b" + name}), 0) << name;
        EXPECT_EQ(key.field(rig), "ab") << name;
    }
}

// A line that holds two keys. Whichever wins sees the other in its value: a number or a date
// refuses that, a text shows it.
TEST(SettingsReaderKeys, TheFirstOfTheOrderTakesALineThatHoldsTwo) {
    for (std::size_t i = 0; i < readerKeys.size(); ++i) {
        for (std::size_t j = i + 1; j < readerKeys.size(); ++j) {
            const ReaderKey &first = readerKeys[i], &second = readerKeys[j];
            KeyRig rig, before;
            before.read({});
            const int failure = rig.read({std::string(second.key) + first.key + "7"});
            const std::string place = std::string(first.key) + " and " + second.key;
            EXPECT_EQ(failure, refuses(first) ? error::typeMismatch : 0) << place;
            // Two keys of the same field differ in what stays in the value.
            if (first.takes == Takes::text && first.key != std::string("minspace=")) {
                EXPECT_EQ(lowerCase(first.field(rig)), lowerCase(second.key) + "7") << place;
            } else {
                EXPECT_EQ(second.field(rig), second.field(before)) << place;
            }
        }
    }
}

TEST(SettingsReaderKeys, AreSearchedWithRegardToCase) {
    KeyRig rig;
    EXPECT_EQ(rig.read({"CUSTTIME=1", "Filetype=x", "notemail=x", "CHKLOG=0", "chklog=0"}), 0);
    EXPECT_EQ(rig.form1.chkCustTime.Value(), 0);
    EXPECT_EQ(rig.form1.txtFileType.Text(), "");
    EXPECT_EQ(rig.notify.txtYourEmail.Text(), "");
    EXPECT_EQ(rig.form1.chkLog.Value(), 1);
}

TEST(SettingsReaderKeys, TheSendersKeyIsNotFoundInTheRecipientsKeys) {
    KeyRig rig;
    EXPECT_EQ(rig.read({"notcboEmail=a@x\r\n", "cboNotEmail=b@x"}), 0);
    EXPECT_EQ(rig.notify.txtYourEmail.Text(), "");
    EXPECT_EQ(SettingsRig::entries(rig.notify.cboNotEmail), (Lines{"a@x\r\n", "b@x"}));
}

TEST(SettingsReaderKeys, AMessageThatHoldsThePathKeyIsTakenForAPath) {
    KeyRig rig;
    ListItem& row = rig.row("notCustMsg=see C:\\");
    EXPECT_EQ(rig.read({"notCustMsg=see path=C:\\"}), 0);
    EXPECT_EQ(rig.notify.txtCustMsg.Text(), "");
    EXPECT_TRUE(row.Selected()) << "the value is the line without that key";
}

TEST(SettingsReaderKeys, AnyLineThatHoldsTheCustomTimeKeyIsTakenForIt) {
    KeyRig rig;
    EXPECT_EQ(rig.read({"notCustMsg=custtime=1"}), error::typeMismatch);
    EXPECT_EQ(rig.read({"custtime=1custtime="}), 0);
    EXPECT_EQ(rig.form1.chkCustTime.Value(), 1);
    EXPECT_EQ(rig.notify.txtCustMsg.Text(), "");
}

TEST(SettingsReaderKeys, SoundAndListKeysAreFoundWithoutTheirEqualsSign) {
    KeyRig rig;
    EXPECT_EQ(rig.read({"txtAudio0"}), 0);
    EXPECT_EQ(rig.form1.txtAudio[0].Text(), "C:\\Windows\\media\\chimes.wav");
    EXPECT_EQ(rig.read({"txtAudio1"}), 0);
    EXPECT_EQ(rig.form1.txtAudio[1].Text(), "C:\\Windows\\media\\chimes.wav");
    // The removed text has the sign, so that the key stays in the value.
    EXPECT_EQ(rig.read({"NotlstContent 3"}), error::typeMismatch);
    EXPECT_EQ(rig.read({"notlstTime 3"}), error::typeMismatch);
    EXPECT_EQ(rig.read({"chkLog 0", "custtime 1", "lstEvt 1", "txtTime 5"}), 0);
}

TEST(SettingsReaderKeys, ALineWithoutAKeyIsPassedOver) {
    KeyRig rig, untouched;
    EXPECT_EQ(rig.read({"nonsense", "key=value", "=", "custtimeDTPI=12:01:00 AM", " ",
                        "txtAudio2=C:\\beep.wav", "txtAudio=C:\\beep.wav"}),
              0);
    untouched.read({});
    EXPECT_EQ(rig.written(), untouched.written());
}

TEST(SettingsReaderKeys, TheSecondSoundsReaderRemovesTheFirstOnesKey) {
    KeyRig rig;
    rig.machine.files["C:\\txtAudio1.wav"] = "RIFF";
    EXPECT_EQ(rig.read({"txtAudio1=C:\\beep.wav"}), 0);
    EXPECT_EQ(rig.machine.log.countOf("FileExists txtAudio1=C:\\beep.wav"), 1);
    EXPECT_EQ(rig.form1.txtAudio[1].Text(), "C:\\Windows\\media\\chimes.wav");
    EXPECT_EQ(rig.form1.txtAudio[0].Text(), "");
    // A file whose name holds the key and nothing more is found.
    EXPECT_EQ(rig.read({"C:\\txtAudio1.wav"}), 0);
    EXPECT_EQ(rig.form1.txtAudio[1].Text(), "C:\\txtAudio1.wav");
}

}  // namespace
}  // namespace velmora::tests
