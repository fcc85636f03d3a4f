// Captions in their shortest form, and that they say the same.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

#include "shell/menus/menu_caption.h"

namespace velmora {
namespace {

std::string shortest(std::string_view caption) {
    return writeCaption(parseCaption(caption));
}

TEST(WriteCaption, APlainCaptionStaysAsItIs) {
    for (const std::string caption :
         {"", "&Open\tCtrl+O", "-", "+Level", "+", "a|b {c} < d", "{IMG", "|Z", "<BR"}) {
        EXPECT_EQ(shortest(caption), caption);
    }
}

TEST(WriteCaption, MarksStandInOneOrder) {
    EXPECT_EQ(shortest("Open{IMG:3}"), "{IMG:3}Open");
    EXPECT_EQ(shortest("Open|TIP:Opens it{IMG:3}"), "{IMG:3|TIP:Opens it}Open");
    EXPECT_EQ(shortest("|N|TIP:a<BR!>b|default{Raised}+Open<BR!>it\tF5|ID:7"),
              "{IMG:0|TIP:a<BR!>b}{Raised}+Open<BR!>it\tF5|Default|N|ID:7");
    EXPECT_EQ(shortest("Open|Y{SIDEBAR:5|ID:0}"), "{SIDEBAR:5|ID:0}Open|Y");
    EXPECT_EQ(shortest("{IMG:0Open{SIDEBAR:NONE}"), "Open");
}

TEST(WriteCaption, ASideBarHasOnlyTheKeysThatItNeeds) {
    EXPECT_EQ(shortest("{SIDEBAR:TEXT|FSIZE:12|MINFONTSIZE:8|FCOLOR:&H80000007&|BCOLOR:BACK"
                       "|ALIGN:Bottom|CAPTION:|FONT:}"),
              "{SIDEBAR:TEXT}");
    const std::string all =
        "{SIDEBAR:TEXT|ID:2|CAPTION:Vel<BR!>mora|FONT:Serif|FSIZE:14|MINFONTSIZE:9|FCOLOR:&HFFABC0&"
        "|WIDTH:30|BCOLOR:&H0&|Bold|Underline|Italic|Gradient:Reverse|ALIGN:Top}";
    EXPECT_EQ(shortest(all), all);
    EXPECT_EQ(shortest("{SIDEBAR:TEXT|BColor:None|GRADIENT|Width:9}"),
              "{SIDEBAR:TEXT|WIDTH:9|BCOLOR:NONE|Gradient}");
}

TEST(WriteCaption, ATipWithABraceStandsLast) {
    EXPECT_EQ(shortest("{IMG:3}Open|TIP:a}b|Default"), "{IMG:3}Open|Default|TIP:a}b");
}

// A mark that means nothing parts what would be one.
TEST(WriteCaption, TextThatLooksLikeMarksIsParted) {
    EXPECT_EQ(shortest("{IMG:x}"), "{{IMG:0}IMG:x}");
    EXPECT_EQ(shortest("{IMG:3}{IM{Raised}G:4}"), "{IMG:3}{Raised}{{IMG:3}IMG:4}");
    EXPECT_EQ(shortest("|Yes"), "|{IMG:0}Yes");
    EXPECT_EQ(shortest("{SIDEBAR:"), "{{IMG:0}SIDEBAR:");
    EXPECT_EQ(shortest("{Rai{IMG:0}sed}<B{IMG:0}R!>"), "{{IMG:0}Raised}<{IMG:0}BR!>");
    EXPECT_EQ(shortest("|ID:x"), "|{IMG:0}ID:x");
}

TEST(WriteCaption, ColoursAreHexadecimal) {
    EXPECT_EQ(writeColour(0), "&H0&");
    EXPECT_EQ(writeColour(0xFF8000), "&HFF8000&");
    EXPECT_EQ(writeColour(0x8000000F), "&H8000000F&");
    EXPECT_EQ(writeColour(0x1234AB9C), "&H1234AB9C&");
}

TEST(WriteCaption, WhatIsWrittenIsReadBackAsTheSame) {
    const std::string_view pieces[] = {"{IMG:",
                                       "0",
                                       "7",
                                       "}",
                                       "{IMG:0",
                                       "{IMG:3|",
                                       "|TIP:",
                                       "|Default",
                                       "|default",
                                       "|Y",
                                       "|N",
                                       "|ID:",
                                       "{Raised}",
                                       "-",
                                       "+",
                                       "<BR!>",
                                       "{SIDEBAR:",
                                       "{SIDEBAR:TEXT|ID:",
                                       "TEXT",
                                       "NONE",
                                       "BACK",
                                       "|CAPTION:",
                                       "|FSIZE:",
                                       "|MINFONTSIZE:",
                                       "|FCOLOR:",
                                       "|WIDTH:",
                                       "|BCOLOR:",
                                       "|FONT:",
                                       "|Bold",
                                       "|Underline",
                                       "|Italic",
                                       "|Gradient",
                                       "|Gradient:Reverse",
                                       "|ALIGN:Top",
                                       "|ALIGN:Bottom",
                                       "|BColor:",
                                       "CTRL+",
                                       " F5",
                                       " DEL",
                                       "\t",
                                       "{",
                                       "|",
                                       "<",
                                       "a",
                                       " ",
                                       "\r",
                                       "\n",
                                       "\u00E4",
                                       "{IM",
                                       "G:",
                                       "&H8",
                                       "{SIDEBAR:TEXT|CAPTION:",
                                       "{IMG:1|TIP:"};
    std::mt19937 random(20261122);
    for (int round = 0; round < 20000; ++round) {
        std::string caption;
        for (auto count = random() % 14; count > 0; --count) {
            caption += pieces[random() % std::size(pieces)];
        }
        const MenuCaption read = parseCaption(caption);
        const std::string written = writeCaption(read);
        ASSERT_EQ(parseCaption(written), read) << caption << "\n" << written;
        ASSERT_EQ(writeCaption(parseCaption(written)), written);
    }
}

}  // namespace
}  // namespace velmora
