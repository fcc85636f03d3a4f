#include "platform/linux/inventory/record_text.h"

#include <gtest/gtest.h>

namespace velmora::linuxhost {
namespace {

constexpr const char* replaced = "\xEF\xBF\xBD";  // U+FFFD

TEST(RecordText, ValidTextStaysAsItIs) {
    const std::string text = "Größe 日本 😀 {}";
    EXPECT_EQ(oneLine(text), text);
    EXPECT_EQ(severalLines(text), text);
    EXPECT_EQ(oneLine(""), "");
    EXPECT_EQ(severalLines(""), "");
}

TEST(RecordText, ANameHasNoLineOfItsOwn) {
    EXPECT_EQ(oneLine("a\nb\r\nc\rd\te\x7F"
                      "f"),
              "a?b??c?d?e?f");
    EXPECT_EQ(oneLine(std::string("a\0b", 3)), "a?b");
    EXPECT_EQ(oneLine("\x1B[2J"), "?[2J");
    // U+0085 is a line end, U+009B begins a terminal's command; U+00A0 is a blank.
    EXPECT_EQ(oneLine("a\xC2\x85"
                      "b\xC2\x9B"
                      "c\xC2\xA0"
                      "d"),
              "a?b?c\xC2\xA0"
              "d");
    EXPECT_EQ(oneLine("a\xE2\x80\xA8"
                      "b\xE2\x80\xA9"
                      "c\xE2\x80\xAA"),
              "a?b?c\xE2\x80\xAA");
}

TEST(RecordText, EachInvalidByteIsReplaced) {
    const std::string mark = replaced;
    EXPECT_EQ(oneLine("a\xFF"
                      "b\xC3"),
              "a" + mark + "b" + mark);
    EXPECT_EQ(oneLine("\xE2\x82"), mark + mark);
    EXPECT_EQ(oneLine("\xC0\xAF"), mark + mark);
    EXPECT_EQ(severalLines("\xED\xA0\x80"), mark + mark + mark);
    EXPECT_EQ(severalLines("\xE2\x82\n"), mark + mark + "\r\n");
}

TEST(RecordText, AMessageKeepsItsLinesAndTabs) {
    EXPECT_EQ(severalLines("a\nb\r\nc\n"), "a\r\nb\r\nc\r\n");
    EXPECT_EQ(severalLines("a\tb"), "a\tb");
    EXPECT_EQ(severalLines("50%\r100%\r\r\nend\r"), "50%?100%?\r\nend?");
    EXPECT_EQ(severalLines("a\x1B"
                           "b\xC2\x85"),
              "a?b?");
}

}  // namespace
}  // namespace velmora::linuxhost
