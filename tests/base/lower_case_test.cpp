#include <gtest/gtest.h>

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
