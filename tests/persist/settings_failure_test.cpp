// Every way in which reading and writing fail. There is no handler: the error goes to the caller.
#include <gtest/gtest.h>

#include <random>

#include "reader_keys.h"

namespace velmora::tests {
namespace {

struct SettingsFailureTest : testing::Test, SettingsRig {
    static std::string with(const std::string& bytes) { return fileOf({"txtTime=60"}) + bytes; }
};

TEST_F(SettingsFailureTest, AMissingFileIsNotFound) {
    EXPECT_EQ(run(2), error::fileNotFound);
    EXPECT_EQ(machine.log.calls(), Lines{"readAll " + path}) << "its existence is not asked first";
    EXPECT_EQ(form1.txtTime.Text(), "") << "the check of the interval is not reached";
}

TEST_F(SettingsFailureTest, AMissingFolderIsNotFoundEither) {
    forms.globals.strSettings = "C:\\gone\\set.dat";
    EXPECT_EQ(run(2), error::pathNotFound);
    form1.txtTime.setText("60");
    EXPECT_EQ(run(1), error::pathNotFound);
}

TEST_F(SettingsFailureTest, ALockedFileIsRefusedBothWays) {
    machine.files[path] = fileOf({"txtTime=60"});
    machine.lockedFiles[path] = error::permissionDenied;
    EXPECT_EQ(run(2), error::permissionDenied);
    form1.txtTime.setText("0");
    EXPECT_EQ(run(1), error::permissionDenied);
    EXPECT_EQ(form1.txtTime.Text(), "0");
}

TEST_F(SettingsFailureTest, AFullDiskCutsTheFileOfAProgramThatWasStartedPlainly) {
    machine.files[path] = fileOf({"txtTime=60"});
    machine.diskFull = true;
    form1.txtTime.setText("60");
    EXPECT_EQ(run(1), error::diskFull);
    EXPECT_NE(content(), fileOf({"txtTime=60"}));
}

TEST_F(SettingsFailureTest, AFullDiskLeavesTheFileOfOneThatKeepsRunning) {
    machine.platform().app.Options.keepRunning = true;
    machine.files[path] = fileOf({"txtTime=60"});
    machine.diskFull = true;
    form1.txtTime.setText("60");
    try {
        settings.prcSettings(1);
        FAIL();
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.number(), error::diskFull);
        EXPECT_EQ(failure.tried(), "save the settings");
        EXPECT_EQ(failure.file(), path);
    }
    EXPECT_EQ(content(), fileOf({"txtTime=60"}));
}

TEST_F(SettingsFailureTest, TimesOfAnotherCountryDontEndTheStart) {
    for (const char* separator : {":", "."}) {
        SettingsRig rig;
        rig.machine.platform().regional.timeSeparator = separator;
        EXPECT_EQ(
            rig.read({"custtimebegin=12.30.00", "custtimeend=18:45:10", "notDTPicker1=7.05.09"}),
            0);
        EXPECT_EQ(rig.form1.DTTime1[0].Hour(), 12);
        EXPECT_EQ(rig.form1.DTTime1[1].Minute(), 45);
        EXPECT_EQ(rig.notify.DTPicker1.Second(), 9);
    }
}

// What follows the content until the file is cut.
TEST_F(SettingsFailureTest, BlankLinesBehindTheContentSayNothing) {
    for (std::size_t size = 0; size < 6; ++size) {
        EXPECT_EQ(blankLines(size).size(), size);
        SettingsRig rig;
        EXPECT_EQ(rig.readBytes(fileOf({"txtTime=60"}) + blankLines(size)), 0) << size;
        EXPECT_EQ(rig.form1.txtTime.Text(), "60");
    }
}

TEST_F(SettingsFailureTest, AnEmptyFileFailsByItsMissingInterval) {
    EXPECT_EQ(readBytes(""), error::typeMismatch);
    EXPECT_EQ(readBytes("\r\n\r\n"), error::typeMismatch);
    EXPECT_EQ(readBytes(fileOf({"chkLog=0", "nonsense"})), error::typeMismatch);
    EXPECT_EQ(form1.chkLog.Value(), 0) << "what was read stays";
}

TEST_F(SettingsFailureTest, AnEmptyFileReadsAsNothingWhenAnIntervalIsThere) {
    form1.txtTime.setText("7");
    EXPECT_EQ(readBytes(""), 0);
    EXPECT_EQ(form1.txtTime.Text(), "7");
}

TEST_F(SettingsFailureTest, AFileCutAnywhereEndsWellOrByAValueThatIsNone) {
    form1.txtTime.setText("60");
    form1.chkCustTime.setValue(1);
    form1.cboFile.AddItem("C:\\f");
    form1.lstAct.setSelected(act::progressDialog, true);
    notify.cboNotEmail.AddItem("a@x");
    notify.lstNotTime.setSelected(4, true);
    row("C:\\", true);
    write();
    const std::string whole = content();
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        SettingsRig other;
        other.form1.txtTime.setText("60");
        const int failure = other.readBytes(whole.substr(0, size));
        EXPECT_TRUE(failure == 0 || failure == error::typeMismatch) << size << ": " << failure;
    }
}

TEST_F(SettingsFailureTest, ALineCutInFrontOfItsNumberIsATypeMismatch) {
    EXPECT_EQ(readBytes(with("dilMph>")), error::typeMismatch);
    EXPECT_EQ(readBytes(with("dilMph>1")), 0);
}

TEST_F(SettingsFailureTest, ANumberIsWantedByEveryCheckBoxAndChoice) {
    for (const ReaderKey& key : readerKeys) {
        if (key.takes != Takes::number) continue;
        for (const char* value : {"", "\r\n", "x", "1 2", "1\r\n3\r\n", "&H1", "0x1"}) {
            SettingsRig rig;
            EXPECT_EQ(rig.read({key.key + std::string(value)}), error::typeMismatch)
                << key.key << value;
        }
    }
}

TEST_F(SettingsFailureTest, ADateIsWantedByEveryPicker) {
    for (const ReaderKey& key : readerKeys) {
        if (key.takes != Takes::date) continue;
        for (const char* value : {"", "\r\n", "x", "25:00:00", "2/30/2026", "0.5"}) {
            SettingsRig rig;
            EXPECT_EQ(rig.read({key.key + std::string(value)}), error::typeMismatch)
                << key.key << value;
        }
    }
}

TEST_F(SettingsFailureTest, ANumberBeyond16BitsOverflows) {
    for (const ReaderKey& key : readerKeys) {
        if (key.takes != Takes::number || key.key == std::string("txtTime=")) continue;
        for (const char* value : {"32768", "-32769", "1E9", "99999999999999999999"}) {
            SettingsRig rig;
            EXPECT_EQ(rig.read({key.key + std::string(value)}), error::overflow) << key.key;
        }
    }
}

TEST_F(SettingsFailureTest, AnIndexOutsideItsListIsATypeMismatch) {
    for (const char* line :
         {"lstAct=12", "lstAct=-1", "lstEvt=5", "NotlstContent=10", "notlstTime=5",
          "lstNotContent=10", "lstNotTime=5", "lstAct=32767", "lstAct=-32768"}) {
        SettingsRig rig;
        EXPECT_EQ(rig.read({line}), error::typeMismatch) << line;
    }
    EXPECT_EQ(read({"lstAct=11", "lstEvt=4", "NotlstContent=9", "notlstTime=4"}), 0);
}

TEST_F(SettingsFailureTest, ACheckBoxTakes0And1Only) {
    for (const char* line : {"custtime=2", "chkLog=-1", "chkUpdate=32767", "notchkHTML=3"}) {
        SettingsRig rig;
        EXPECT_EQ(rig.read({line}), error::invalidPropertyValue) << line;
    }
}

TEST_F(SettingsFailureTest, LinesInFrontOfTheFailingOneAreInTheirFieldsAndLaterOnesArent) {
    EXPECT_EQ(read({"notEmail=a", "chkLog=x", "notEmailUser=b"}), error::typeMismatch);
    EXPECT_EQ(notify.txtYourEmail.Text(), "a");
    EXPECT_EQ(notify.txtUser.Text(), "");
}

TEST_F(SettingsFailureTest, AByte0CantBeReadAtAnyPlace) {
    EXPECT_EQ(readBytes(with(std::string("\0", 1))), error::invalidCall);
    EXPECT_EQ(readBytes(with(std::string("opuFnbjm>b\0c\r\n", 14))), error::invalidCall);
    EXPECT_EQ(notify.txtYourEmail.Text(), "");
}

TEST_F(SettingsFailureTest, ALineOf32767BytesIsReadAndALongerOneOverflows) {
    const std::string key = "notCustMsg=";
    const std::string longest(32767 - key.size(), 'm');
    EXPECT_EQ(read({key + longest}), 0);
    EXPECT_EQ(notify.txtCustMsg.Text(), longest);
    EXPECT_EQ(read({key + longest + "m"}), error::overflow);
    EXPECT_EQ(readBytes(with(std::string(40000, 'x'))), error::overflow);
}

TEST_F(SettingsFailureTest, RandomBytesNeverRaiseAnyOtherError) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        std::string bytes(random() % 2000, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random() % 255 + (round % 2));
        const int failure = readBytes(with(bytes));
        EXPECT_TRUE(failure == 0 || failure == error::invalidCall || failure == error::typeMismatch)
            << failure;
    }
}

TEST_F(SettingsFailureTest, AnyCallThatFailsWhileReadingReachesTheCaller) {
    const std::string file = fileOf({"txtAudio0=C:\\x.wav", "txtAudio1=C:\\x.wav", "txtTime=60"});
    SettingsRig whole;
    EXPECT_EQ(whole.readBytes(file), 0);
    const int calls = whole.machine.log.count();
    EXPECT_EQ(calls, 5);  // the file, and for each sound the file and the system's folder
    for (int n = 1; n <= calls; ++n) {
        SettingsRig rig;
        rig.machine.log.failCall(n, error::deviceIo);
        EXPECT_EQ(rig.readBytes(file), error::deviceIo) << n;
    }
}

TEST_F(SettingsFailureTest, AnyCallThatFailsWhileWritingReachesTheCaller) {
    form1.txtTime.setText("60");
    EXPECT_EQ(write(), 0);
    const int calls = machine.log.count();
    EXPECT_GE(calls, 1);
    for (int n = 1; n <= calls; ++n) {
        for (const int number : {error::deviceIo, error::diskFull, error::pathFileAccess}) {
            machine.log.failCall(n, number);
            EXPECT_EQ(write(), number) << n;
        }
    }
    EXPECT_EQ(write(), 0);
}

TEST_F(SettingsFailureTest, AFullDiskLeavesACutFile) {
    form1.txtTime.setText("60");
    machine.files[path] = "short";
    machine.diskFull = true;
    EXPECT_EQ(write(), error::diskFull);
    EXPECT_EQ(content(), "dilVq");
}

TEST_F(SettingsFailureTest, AFullDiskStillTakesAFileThatIsNotLonger) {
    form1.txtTime.setText("60");
    write();
    const std::string before = content();
    machine.diskFull = true;
    form1.txtTime.setText("61");
    EXPECT_EQ(write(), 0);
    EXPECT_EQ(content().size(), before.size());
}

TEST_F(SettingsFailureTest, AValueWithByte255CantBeWrittenAndLeavesTheLinesInFrontOfIt) {
    form1.txtTime.setText("60");
    machine.files[path] = std::string(5000, 'o');
    notify.txtYourEmail.setText("kept");
    notify.txtUser.setText("a\xFF");
    EXPECT_EQ(write(), error::invalidCall);
    const Lines lines = linesOf(content());
    ASSERT_EQ(lines.size(), 11u);
    EXPECT_EQ(lines.front(), "chkUpdate=0");
    EXPECT_EQ(lines.back(), "notEmail=kept");
}

TEST_F(SettingsFailureTest, AFileThatCantBeWrittenIsReportedInFrontOfAValueThatCant) {
    form1.txtTime.setText("60");
    notify.txtUser.setText("a\xFF");
    machine.lockedFiles[path] = error::permissionDenied;
    EXPECT_EQ(write(), error::permissionDenied);
}

TEST_F(SettingsFailureTest, AProgramThatKeepsRunningLeavesTheFileWholeAndNamesTheKey) {
    form1.txtTime.setText("60");
    machine.files[path] = "old";
    machine.platform().app.Options.keepRunning = true;
    const auto failure = [this] {
        try {
            settings.prcSettings(settings_order::write);
        } catch (const RuntimeError& error) {
            return std::to_string(error.number()) + " " + error.tried() + " | " + error.file();
        }
        return std::string("none");
    };
    form1.cboFile.AddItem("C:\\a\xFF");
    EXPECT_EQ(
        failure(),
        "5 save the settings; cboFile= holds a byte 255, which the file can't hold | " + path);
    form1.cboFile.Clear();
    notify.txtCustMsg.setText(std::string(32767 - 10, 'm'));
    EXPECT_EQ(
        failure(),
        "6 save the settings; notCustMsg= is too long: a line can have 32767 bytes | " + path);
    EXPECT_EQ(content(), "old");
    EXPECT_EQ(machine.log.countOf("writeOver"), 0);
    notify.txtCustMsg.setText("");
    EXPECT_EQ(failure(), "none");
    EXPECT_NE(content(), "old");
}

TEST_F(SettingsFailureTest, WhatCantBeWrittenIsHintedAtOnceAStart) {
    form1.txtTime.setText("60");
    std::vector<Hint> hints;
    forms.hints.Said.connect([&](const Hint& hint) { hints.push_back(hint); });
    notify.txtUser.setText("a\xFF");
    write();
    write();
    EXPECT_EQ(
        hints,
        (std::vector<Hint>{{.field = "frmNotify.txtUser",
                            .text = "The settings were only saved up to here: the account of the "
                                    "mail (frmNotify.txtUser) holds a byte 255, which the file "
                                    "can't hold. Change it.",
                            .about = HintAbout::saving}}));
    hints.clear();
    machine.platform().app.Options.keepRunning = true;
    notify.txtUser.setText("");
    notify.txtPass.setText("a\xFF");
    write();
    ASSERT_EQ(hints.size(), 1u);
    EXPECT_TRUE(hints[0].text.starts_with("The settings were not saved: the password of the mail"))
        << hints[0].text;
}

TEST_F(SettingsFailureTest, AHintOfAValueThatCantBeWrittenDoesNotSilenceTheOthersOfItsField) {
    form1.txtTime.setText("60");
    Lines hinted;
    forms.hints.Said.connect([&](const Hint& hint) {
        if (hint.field == "frmNotify.txtUser") hinted.push_back(hint.field);
    });
    notify.txtUser.setText("a\xFF");
    write();
    notify.txtUser.setText("a+b");
    write();
    EXPECT_EQ(hinted, (Lines{"frmNotify.txtUser", "frmNotify.txtUser"}));
}

TEST_F(SettingsFailureTest, AValueWithByte254IsWritten) {
    form1.txtTime.setText("60");
    notify.txtUser.setText("a\xFE");
    EXPECT_EQ(write(), 0);
    EXPECT_TRUE(contains(content(), "opuFnbjmVtfs>b\xFF\r\n"));
}

TEST_F(SettingsFailureTest, AValueTooLongForALineOverflowsWhenItIsWritten) {
    form1.txtTime.setText("60");
    notify.txtCustMsg.setText(std::string(32767 - 11, 'm'));
    EXPECT_EQ(write(), 0);
    notify.txtCustMsg.setText(std::string(32767 - 10, 'm'));
    EXPECT_EQ(write(), error::overflow);
    EXPECT_EQ(linesOf(content()).size(), 19u);
}

}  // namespace
}  // namespace velmora::tests
