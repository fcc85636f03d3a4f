// The line of the mail's encryption.
#include <gtest/gtest.h>

#include <algorithm>

#include "persist/keys/settings_keys.h"
#include "settings_rig.h"

namespace velmora::tests {
namespace {

struct SecurityTest : testing::Test, SettingsRig {
    SecurityTest() { form1.txtTime.setText("60"); }
    Lines written() {
        EXPECT_EQ(write(), 0);
        return linesOf(machine.files[path]);
    }
};

TEST_F(SecurityTest, WithoutEncryptionThereIsNoLine) {
    notify.txtMailPort.setText("587");
    for (const std::string& line : written()) EXPECT_EQ(line.find("smtpSecurity"), line.npos);
}

TEST_F(SecurityTest, TheLastLineHoldsEncryptionAndPort) {
    notify.cboEncryption.setListIndex(1);
    notify.txtMailPort.setText("587");
    EXPECT_EQ(written().back(), "smtpSecurity=STARTTLS 587");
    notify.cboEncryption.setListIndex(2);
    notify.txtMailPort.setText("465");
    EXPECT_EQ(written().back(), "smtpSecurity=TLS 465");
}

TEST_F(SecurityTest, APortThatIsNoneIsLeftOut) {
    notify.cboEncryption.setListIndex(2);
    for (const char* port : {"", "0", "65536", "4.5", "abc"}) {
        notify.txtMailPort.setText(port);
        EXPECT_EQ(written().back(), "smtpSecurity=TLS") << port;
    }
}

TEST_F(SecurityTest, ComesBackWithItsPort) {
    EXPECT_EQ(read({"smtpSecurity=TLS 465"}), 0);
    EXPECT_EQ(notify.cboEncryption.Text(), "TLS");
    EXPECT_EQ(notify.txtMailPort.Text(), "465");
}

TEST_F(SecurityTest, WithoutAPortTheDesignsStays) {
    for (const char* line : {"smtpSecurity=STARTTLS", "smtpSecurity=STARTTLS 0",
                             "smtpSecurity=STARTTLS x", "smtpSecurity=STARTTLS 1 2"}) {
        EXPECT_EQ(read({line}), 0) << line;
        EXPECT_EQ(notify.cboEncryption.Text(), "STARTTLS");
        EXPECT_EQ(notify.txtMailPort.Text(), "25") << line;
    }
}

TEST_F(SecurityTest, AnUnknownEncryptionIsKeptSoThatNothingGoesOutPlain) {
    EXPECT_EQ(read({"smtpSecurity=QUIC 4433"}), 0);
    EXPECT_EQ(notify.cboEncryption.Text(), "QUIC");
    EXPECT_EQ(written().back(), "smtpSecurity=QUIC 4433");
    notify.cboEncryption.setText("path=C:");
    for (const std::string& line : written()) EXPECT_EQ(line.find("path=C:"), line.npos);
}

TEST_F(SecurityTest, NoOtherKeyIsFoundInItsLines) {
    for (const SettingsKey* key : settingsKeysToRead()) {
        if (key->key == "smtpSecurity=") continue;
        const std::string_view searched = key->searched.empty() ? key->key : key->searched;
        for (const char* line : {"smtpSecurity=STARTTLS 25", "smtpSecurity=TLS 465"}) {
            EXPECT_EQ(std::string_view(line).find(searched), std::string_view::npos) << searched;
        }
    }
    EXPECT_EQ(settingsKeysToRead().back()->key, "smtpSecurity=");
}

}  // namespace
}  // namespace velmora::tests
