#include "console/words.h"

#include <gtest/gtest.h>

namespace velmora::console {
namespace {

using Texts = std::vector<std::string>;

Texts wordsOf(std::string_view line) {
    return Words(line).all();
}

TEST(Words, EndAtBlanksAndTabs) {
    EXPECT_EQ(wordsOf("get txtAmt.Text"), (Texts{"get", "txtAmt.Text"}));
    EXPECT_EQ(wordsOf("  a \t b  "), (Texts{"a", "b"}));
    EXPECT_EQ(wordsOf("größe 日本"), (Texts{"größe", "日本"}));
}

TEST(Words, AreNoneInALineOfBlanks) {
    EXPECT_TRUE(Words("").atEnd());
    EXPECT_TRUE(Words(" \t  ").atEnd());
    EXPECT_EQ(wordsOf(" \t  "), Texts{});
}

TEST(Words, InQuotesHoldBlanks) {
    EXPECT_EQ(wordsOf(R"("C:\Program Files" b)"), (Texts{R"(C:\Program Files)", "b"}));
    EXPECT_EQ(wordsOf(R"("" "")"), (Texts{"", ""}));
}

TEST(Words, InQuotesDoubleTheirQuotesAndKeepBackSlashes) {
    EXPECT_EQ(wordsOf(R"("a ""b"" c")"), (Texts{R"(a "b" c)"}));
    EXPECT_EQ(wordsOf(R"("""")"), (Texts{R"(")"}));
    EXPECT_EQ(wordsOf(R"("C:\new\")"), (Texts{R"(C:\new\)"}));
}

TEST(Words, KeepQuotesThatDontBeginThem) {
    EXPECT_EQ(wordsOf(R"(5"disk a$"b")"), (Texts{R"(5"disk)", R"(a$"b")"}));
}

TEST(Words, OfTheEscapedFormAreDecoded) {
    EXPECT_EQ(wordsOf(R"($"a\r\nb\t\"\\\u00e4" c)"), (Texts{"a\r\nb\t\"\\ä", "c"}));
    EXPECT_EQ(wordsOf(R"($"\ud83d\ude42")"), Texts{"🙂"});
    EXPECT_EQ(wordsOf(R"($"a\u0000b")"), (Texts{std::string("a\0b", 3)}));
    EXPECT_EQ(wordsOf(R"($"" $"größe")"), (Texts{"", "größe"}));
}

TEST(Words, AreRefusedWhenAQuoteIsntClosed) {
    for (const char* line : {R"("a)", R"("a"")", R"(")", R"($"a)", R"($"a\")", R"($")"}) {
        EXPECT_THROW(wordsOf(line), CommandError) << line;
    }
}

TEST(Words, AreRefusedWhenTextFollowsAClosingQuote) {
    EXPECT_THROW(wordsOf(R"("a"b)"), CommandError);
    EXPECT_THROW(wordsOf(R"($"a"b)"), CommandError);
}

TEST(Words, AreRefusedWithWrongEscapes) {
    for (const char* line : {R"($"\q")", R"($"\u12")", R"($"\ud83d")", "$\"a\tb\"", "$\"\xff\""}) {
        EXPECT_THROW(wordsOf(line), CommandError) << line;
    }
}

TEST(Words, OneMoreThanThereIsIsAnError) {
    Words words("a");
    EXPECT_EQ(words.next(), "a");
    EXPECT_THROW(words.next(), CommandError);
}

TEST(Words, LeftOverAreAnErrorAtTheEnd) {
    Words words("a b ");
    words.next();
    EXPECT_THROW(words.end(), CommandError);
    words.next();
    EXPECT_NO_THROW(words.end());
}

std::string valueOf(std::string_view line) {
    Words words(line);
    words.next();
    return words.value();
}

TEST(Words, AsValueAreTheUnchangedRestOfTheLine) {
    EXPECT_EQ(valueOf(R"(x a  "b" \n $"c" )"), R"(a  "b" \n $"c" )");
    EXPECT_EQ(valueOf(R"(x "quoted")"), R"("quoted")");
    EXPECT_EQ(valueOf(std::string("x a\0b", 5)), std::string("a\0b", 3));
    EXPECT_EQ(valueOf("x \xff"), "\xff");
}

TEST(Words, AsValueMayBeEmpty) {
    EXPECT_EQ(valueOf("x"), "");
    EXPECT_EQ(valueOf("x   "), "");
    EXPECT_EQ(valueOf(R"(x $"")"), "");
}

TEST(Words, AsValueOfTheEscapedFormAreDecoded) {
    EXPECT_EQ(valueOf(R"(x $" a\nb "  )"), " a\nb ");
    EXPECT_THROW(valueOf(R"(x $"a" b)"), CommandError);
    EXPECT_THROW(valueOf(R"(x $"a)"), CommandError);
}

TEST(AsOneLine, LeavesPlainTextAsItIs) {
    for (const char* text : {"", "a b", R"(C:\new "x")", "größe 日本 🙂", "a$\"b"}) {
        EXPECT_EQ(asOneLine(text), text);
    }
}

TEST(AsOneLine, EscapesWhatALineCantShow) {
    EXPECT_EQ(asOneLine("a\r\nb"), R"($"a\r\nb")");
    EXPECT_EQ(asOneLine("\t"), R"($"\t")");
    EXPECT_EQ(asOneLine(" a"), R"($" a")");
    EXPECT_EQ(readable(" a "), " a ");
    EXPECT_EQ(readable("a\nb"), R"($"a\nb")");
    EXPECT_EQ(asOneLine("a "), R"($"a ")");
    EXPECT_EQ(asOneLine("$\"a\""), R"($"$\"a\"")");
    EXPECT_EQ(asOneLine(std::string("a\0", 2)), R"($"a\u0000")");
}

TEST(AsOneLine, ShowsBytesThatAreNoTextAsAReplacement) {
    EXPECT_EQ(asOneLine("a\xffz"), "$\"a\uFFFDz\"");
}

TEST(AsOneLine, IsReadBackAsTheSameValue) {
    for (const std::string text :
         {"", "a", " a ", "a\r\nb", "\"", "$\"", "\\n", "ä\x7f", "\t", "$\"a\" b", "🙂\n"}) {
        EXPECT_EQ(valueOf("x " + asOneLine(text)), text);
    }
}

}  // namespace
}  // namespace velmora::console
