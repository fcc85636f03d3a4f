#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "base/text.h"

namespace velmora {
namespace {

TEST(LowerCase, LowersTheLettersOfEveryScriptThatHasCapitals) {
    const struct {
        const char *text, *expected;
    } cases[] = {
        {"", ""},
        {"C:\\TEMP\\Set.DAT", "c:\\temp\\set.dat"},
        {"@AZ[`az{09", "@az[`az{09"},  // the neighbours of the alphabet stay
        {"ÀÖØÞ", "àöøþ"},              // Latin-1
        {"ĀĶĹŇŊŶŸŹŽ", "āķĺňŋŷÿźž"},    // pairs that change their step
        {"ǄǅǇ", "ǆǆǉ"},                // digraphs in capitals and title case
        {"ȺẞẠỸ", "ⱥßạỹ"},              // results of another size in bytes
        {"ΆΈΑΡΣΫ", "άέαρσϋ"},          // Greek
        {"ἈὙῼ", "ἀὑῳ"},                // old Greek
        {"ЀЏАЯҀӀӁӐ", "ѐџаяҁӏӂӑ"},      // Cyrillic
        {"ԱՖ", "աֆ"},                  // Armenian
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(lowerCase(text), expected);
}

std::string utf8Of(char32_t letter) {
    const auto part = [letter](int shift) {
        return static_cast<char>(0x80 | (letter >> shift & 0x3F));
    };
    if (letter < 0x800) return {static_cast<char>(0xC0 | letter >> 6), part(0)};
    return {static_cast<char>(0xE0 | letter >> 12), part(6), part(0)};
}

// The sum is over the simple mappings in the file UnicodeData.txt of Unicode, as Python's
// unicodedata gives them.
TEST(LowerCase, FollowsUnicodeForLatinGreekCyrillicAndArmenian) {
    std::uint64_t sum = 1469598103934665603ULL;
    int changed = 0;
    const auto add = [&sum](const std::string& text) {
        for (const char byte : text)
            sum = (sum ^ static_cast<unsigned char>(byte)) * 1099511628211ULL;
    };
    for (char32_t letter = 0x80; letter < 0x2000; ++letter) {
        const std::string capital = utf8Of(letter);
        const std::string small = lowerCase(capital);
        if (small == capital) continue;
        ++changed;
        add(capital);
        add(small);
    }
    EXPECT_EQ(changed, 663);
    EXPECT_EQ(sum, 16193116534912966965ULL);
}

TEST(LowerCase, LeavesEverythingElseAsItIs) {
    for (const char* text : {"àöøþ", "×", "ß", "ÿ", "āĸŉſ", "ςσϐ", "яӏ", "աֆ", "漢字", "💾", "€ 5",
                             "\xFF\xC3", "\u0557", "\u0530"})
        EXPECT_EQ(lowerCase(text), text);
}

TEST(LowerCase, TakesInvalidBytesAlongBetweenLetters) {
    EXPECT_EQ(lowerCase("A\xC3Z\xFF\u00C9"), "a\xC3z\xFF\u00E9");
}

TEST(AsciiUpperCase, ChangesLettersFromAToZOnly) {
    EXPECT_EQ(asciiUpperCase("azAZ`{c:\\ fat32"), "AZAZ`{C:\\ FAT32");
    EXPECT_EQ(asciiUpperCase("\u00E4\u00FF"), "\u00E4\u00FF");
    EXPECT_EQ(asciiUpperCase(""), "");
}

}  // namespace
}  // namespace velmora
