#include "persist/recovery/key_words.h"

#include <gtest/gtest.h>

#include "persist/keys/settings_keys.h"

namespace velmora::tests {
namespace {

TEST(KeyWords, EachKeyThatIsWrittenHasWordsOfItsOwn) {
    for (const SettingsKey* key : settingsKeysToWrite()) {
        EXPECT_NE(wordsOf(key->key).words, key->key);
        EXPECT_NE(wordsOf(key->key).field, key->key);
    }
}

TEST(KeyWords, AnotherKeyIsItsOwnWords) {
    EXPECT_EQ(wordsOf("other=").words, "other=");
    EXPECT_EQ(wordsOf("other=").field, "other=");
}

}  // namespace
}  // namespace velmora::tests
