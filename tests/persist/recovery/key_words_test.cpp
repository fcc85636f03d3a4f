#include "persist/recovery/key_words.h"

#include <gtest/gtest.h>

#include "persist/keys/settings_keys.h"
#include "settings_file_page.h"

namespace velmora::tests {
namespace {

TEST(KeyWords, EachKeyThatIsWrittenHasWordsOfItsOwn) {
    for (const SettingsKey* key : settingsKeysToWrite()) {
        EXPECT_NE(wordsOf(key->key).words, key->key);
        EXPECT_NE(wordsOf(key->key).field, key->key);
    }
}

// docs/settings-file.md: "| `key=` | `field` | words |".
TEST(KeyWords, AreThoseOfTheManual) {
    const std::string page = settingsFilePage;
    for (const SettingsKey* key : settingsKeysToWrite()) {
        const KeyWords words = wordsOf(key->key);
        const std::string row = "| `" + std::string(words.key) + "` | `" +
                                std::string(words.field) + "` | " + std::string(words.words) + " |";
        EXPECT_NE(page.find(row), std::string::npos) << row;
    }
}

TEST(KeyWords, AnotherKeyIsItsOwnWords) {
    EXPECT_EQ(wordsOf("other=").words, "other=");
    EXPECT_EQ(wordsOf("other=").field, "other=");
}

}  // namespace
}  // namespace velmora::tests
