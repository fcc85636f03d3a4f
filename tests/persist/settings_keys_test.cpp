// The table of keys: its two orders, and what its entries leave to the key itself.
#include "persist/keys/settings_keys.h"

#include <gtest/gtest.h>

#include <set>

#include "reader_keys.h"

namespace velmora::tests {
namespace {

/// The places of the keys in one of the orders.
std::vector<int> places(const SettingsKeys& keys, int SettingsKey::*place) {
    std::vector<int> found;
    for (const SettingsKey* key : keys) found.push_back(key->*place);
    return found;
}

std::vector<int> from1To(int last) {
    std::vector<int> numbers;
    for (int i = 1; i <= last; ++i) numbers.push_back(i);
    return numbers;
}

TEST(SettingsKeys, EachPlaceInTheOrderOfWritingIsTakenOnce) {
    EXPECT_EQ(places(settingsKeysToWrite(), &SettingsKey::written), from1To(41));
}

TEST(SettingsKeys, EachPlaceInTheOrderOfReadingIsTakenOnce) {
    EXPECT_EQ(places(settingsKeysToRead(), &SettingsKey::read), from1To(46));
}

TEST(SettingsKeys, WhatIsWrittenCanBeGotAndWhatIsReadCanBeSet) {
    for (const SettingsKey* key : settingsKeysToWrite()) EXPECT_NE(key->field.get, nullptr);
    for (const SettingsKey* key : settingsKeysToRead()) EXPECT_NE(key->field.set, nullptr);
}

TEST(SettingsKeys, TheEncryptionOfTheMailIsLastInBothOrders) {
    EXPECT_EQ(settingsKeysToWrite().back()->key, "smtpSecurity=");
    EXPECT_EQ(settingsKeysToRead().back()->key, "smtpSecurity=");
}

TEST(SettingsKeys, TwelveLinesAreClosedAndThreeAreRuns) {
    std::multiset<SettingsLine> lines;
    for (const SettingsKey* key : settingsKeysToWrite()) lines.insert(key->line);
    EXPECT_EQ(lines.count(SettingsLine::closed), 12u);
    EXPECT_EQ(lines.count(SettingsLine::run), 3u);
}

TEST(SettingsKeys, ARunIsWrittenUnderTheTagOfItsControl) {
    const FrmNotify notify;
    const std::set<std::string> tags{notify.cboNotEmail.Tag() + "=",
                                     notify.lstNotContent.Tag() + "=",
                                     notify.lstNotTime.Tag() + "="};
    std::set<std::string> runs;
    for (const SettingsKey* key : settingsKeysToWrite()) {
        if (key->line == SettingsLine::run) runs.emplace(key->key);
    }
    EXPECT_EQ(runs, tags);
}

TEST(SettingsKeys, OnlyFourAreSearchedOrRemovedByAnotherText) {
    std::set<std::string> others;
    for (const SettingsKey* key : settingsKeysToRead()) {
        if (!key->searched.empty() || !key->removed.empty()) others.emplace(key->key);
    }
    EXPECT_EQ(others,
              (std::set<std::string>{"NotlstContent=", "notlstTime=", "txtAudio0=", "txtAudio1="}));
}

TEST(SettingsKeys, OneKeyIsWrittenAndNeverRead) {
    std::vector<std::string> unread;
    for (const SettingsKey* key : settingsKeysToWrite()) {
        if (key->read == 0) unread.emplace_back(key->key);
    }
    EXPECT_EQ(unread, std::vector<std::string>{"custtimeDTPI="});
}

TEST(SettingsKeys, AreReadInTheOrderOfTheReader) {
    Lines keys;
    for (const SettingsKey* key : settingsKeysToRead()) {
        if (key->read != 9) keys.emplace_back(key->key);
    }
    Lines expected;
    for (const ReaderKey& key : readerKeys) expected.emplace_back(key.key);
    expected.emplace_back("smtpSecurity=");
    EXPECT_EQ(keys, expected);
}

}  // namespace
}  // namespace velmora::tests
