#include "base/input_fields.h"

#include <gtest/gtest.h>

#include <vector>

namespace velmora {
namespace {

using Fields = std::vector<std::string>;

Fields fieldsOf(std::string_view text) {
    Fields fields;
    for (InputFields input(text); !input.atEnd();) fields.push_back(input.next());
    return fields;
}

TEST(InputFields, EndAtCommasAndAtEveryKindOfLineEnd) {
    EXPECT_EQ(fieldsOf("a,b"), (Fields{"a", "b"}));
    EXPECT_EQ(fieldsOf("a\nb\rc\r\nd"), (Fields{"a", "b", "c", "d"}));
    EXPECT_EQ(fieldsOf("a\n\rb"), (Fields{"a", "", "b"}));  // LF CR is two line ends
    EXPECT_EQ(fieldsOf("txtTime=,60\r\nminspace=,50000\r\n"),
              (Fields{"txtTime=", "60", "minspace=", "50000"}));
}

TEST(InputFields, AreEmptyBetweenTwoSeparators) {
    EXPECT_EQ(fieldsOf(",a"), (Fields{"", "a"}));
    EXPECT_EQ(fieldsOf("a,,b"), (Fields{"a", "", "b"}));
    EXPECT_EQ(fieldsOf("a\r\n\r\nb"), (Fields{"a", "", "b"}));
    EXPECT_EQ(fieldsOf("a,\r\nb"), (Fields{"a", "", "b"}));
}

TEST(InputFields, DontBeginAfterASeparatorThatEndsTheText) {
    EXPECT_EQ(fieldsOf("a,"), (Fields{"a"}));
    EXPECT_EQ(fieldsOf("a\r\n"), (Fields{"a"}));
    EXPECT_EQ(fieldsOf("\"a\"\r\n"), (Fields{"a"}));
    EXPECT_EQ(fieldsOf(","), (Fields{""}));
}

TEST(InputFields, SkipLeadingBlanksAndTabsOnly) {
    EXPECT_EQ(fieldsOf("  a b , \tc"), (Fields{"a b ", "c"}));
    EXPECT_EQ(fieldsOf("a,   \r\nb"), (Fields{"a", "", "b"}));
    EXPECT_EQ(fieldsOf("   "), (Fields{""}));
    EXPECT_EQ(fieldsOf("\u00A0a"), (Fields{"\u00A0a"}));
}

TEST(InputFields, InQuotesKeepCommasLineEndsAndBlanks) {
    EXPECT_EQ(fieldsOf("\"a,b\",c"), (Fields{"a,b", "c"}));
    EXPECT_EQ(fieldsOf("\"a\r\nb\"\r\nc"), (Fields{"a\r\nb", "c"}));
    EXPECT_EQ(fieldsOf("  \" a \",b"), (Fields{" a ", "b"}));
    EXPECT_EQ(fieldsOf("\"\",\"\""), (Fields{"", ""}));
}

TEST(InputFields, PassOverBlanksAfterAClosingQuote) {
    EXPECT_EQ(fieldsOf("\"a\" \t ,b"), (Fields{"a", "b"}));
    EXPECT_EQ(fieldsOf("\"a\"  \r\nb"), (Fields{"a", "b"}));
    EXPECT_EQ(fieldsOf("\"a\"   "), (Fields{"a"}));
}

TEST(InputFields, BeginAgainWithWhatFollowsAClosingQuote) {
    EXPECT_EQ(fieldsOf("\"a\"b,c"), (Fields{"a", "b", "c"}));
    EXPECT_EQ(fieldsOf("\"a\"  b"), (Fields{"a", "b"}));
    EXPECT_EQ(fieldsOf("\"a\"\"b\""), (Fields{"a", "b"}));  // no quote in the field
}

TEST(InputFields, TakeAllTheRestWhenTheQuoteIsntClosed) {
    EXPECT_EQ(fieldsOf("a,\"b,c\r\nd"), (Fields{"a", "b,c\r\nd"}));
    EXPECT_EQ(fieldsOf("\""), (Fields{""}));
}

TEST(InputFields, KeepQuotesInTheMiddle) {
    EXPECT_EQ(fieldsOf("5\" disk,b"), (Fields{"5\" disk", "b"}));
    EXPECT_EQ(fieldsOf("a \"b,c\""), (Fields{"a \"b", "c\""}));
}

TEST(InputFields, AreEmptyAtTheEnd) {
    EXPECT_TRUE(InputFields("").atEnd());
    EXPECT_EQ(InputFields("").next(), "");
    InputFields input("a");
    EXPECT_FALSE(input.atEnd());
    EXPECT_EQ(input.next(), "a");
    EXPECT_TRUE(input.atEnd());
    EXPECT_EQ(input.next(), "");
    EXPECT_TRUE(input.atEnd());
}

TEST(InputFields, CarryZeroBytesAndForeignLettersThrough) {
    EXPECT_EQ(fieldsOf(std::string_view("a\0b,c", 5)), (Fields{std::string("a\0b", 3), "c"}));
    EXPECT_EQ(fieldsOf("Größe,漢字"), (Fields{"Größe", "漢字"}));
}

}  // namespace
}  // namespace velmora
