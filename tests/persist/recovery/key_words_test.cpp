#include "persist/recovery/key_words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

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
    std::vector<std::string> expected;
    for (const SettingsKey* key : settingsKeysToWrite()) {
        const KeyWords words = wordsOf(key->key);
        const std::string row = "| `" + std::string(words.key) + "` | `" +
                                std::string(words.field) + "` | " + std::string(words.words) + " |";
        expected.push_back(row);
    }
    std::vector<std::string> inManual;
    std::istringstream page(settingsFilePage);
    for (std::string line; std::getline(page, line);) {
        if (line.ends_with('\r')) line.pop_back();
        if (std::count(line.begin(), line.end(), '`') == 4 && line.ends_with(" |") &&
            line.find("=` | `") != std::string::npos)
            inManual.push_back(line);
    }
    std::sort(expected.begin(), expected.end());
    std::sort(inManual.begin(), inManual.end());
    EXPECT_EQ(inManual, expected);
}

TEST(KeyWords, LinesCountFromOne) {
    EXPECT_EQ(lineNumberAt("", 0), 1u);
    EXPECT_EQ(lineNumberAt("a\nb\n", 0), 1u);
    EXPECT_EQ(lineNumberAt("a\nb\n", 2), 2u);
    EXPECT_EQ(lineNumberAt("\nb\n", 1), 2u);
    EXPECT_EQ(lineNumberAt("a\nb\n", 100), 3u);
}

TEST(KeyWords, AnotherKeyIsItsOwnWords) {
    EXPECT_EQ(wordsOf("other=").words, "other=");
    EXPECT_EQ(wordsOf("other=").field, "other=");
}

}  // namespace
}  // namespace velmora::tests
