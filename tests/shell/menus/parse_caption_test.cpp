// What the mark-up in a menu item's caption asks for.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "shell/menus/menu_caption.h"

namespace velmora {
namespace {

TEST(ParseCaption, APlainCaptionIsDrawnAsItIs) {
    for (const std::string caption :
         {"", "&Open", "(Un) &Lock", " Level : High ", "a|b", "a < b", "C:\\", "{", "}", "|", "<",
          "{}", "50 %", "\u00C4rger \u20AC", "a-b", "a+b", "--", "- -"}) {
        EXPECT_EQ(parseCaption(caption), MenuCaption{.text = caption}) << caption;
    }
}

TEST(ParseCaption, AnImageIsTakenOutOfTheText) {
    EXPECT_EQ(parseCaption("{IMG:3}&Open"), (MenuCaption{.text = "&Open", .image = 3}));
    EXPECT_EQ(parseCaption("Op{IMG:12}en"), (MenuCaption{.text = "Open", .image = 12}));
    EXPECT_EQ(parseCaption("Open{IMG:32767}"), (MenuCaption{.text = "Open", .image = 32767}));
    EXPECT_EQ(parseCaption("{IMG:007}Open"), (MenuCaption{.text = "Open", .image = 7}));
}

TEST(ParseCaption, TheShortFormOfNoImageNeedsNoBrace) {
    for (const char* caption : {"{IMG:0Open", "Open{IMG:0", "{IMG:0}Open", "{IMG:3}{IMG:0Open"}) {
        EXPECT_EQ(parseCaption(caption), MenuCaption{.text = "Open"}) << caption;
    }
    EXPECT_EQ(parseCaption("{IMG:0 Open"), MenuCaption{.text = " Open"});
    EXPECT_EQ(parseCaption("{IMG:0|TIP:Help"), MenuCaption{.tip = "Help"});
    EXPECT_EQ(parseCaption("{IMG:0|TIP:Help}Open"), (MenuCaption{.text = "Open", .tip = "Help"}));
    EXPECT_EQ(parseCaption("{IMG:00"), MenuCaption{.text = "{IMG:00"});
    EXPECT_EQ(parseCaption("{IMG:1"), MenuCaption{.text = "{IMG:1"});
}

TEST(ParseCaption, ATipRunsToTheNextMark) {
    EXPECT_EQ(parseCaption("Open|TIP:Opens it"), (MenuCaption{.text = "Open", .tip = "Opens it"}));
    EXPECT_EQ(parseCaption("Open|TIP:Opens it{IMG:3} now"),
              (MenuCaption{.text = "Open now", .image = 3, .tip = "Opens it"}));
    EXPECT_EQ(parseCaption("Open|TIP:Opens it{Raised} now"),
              (MenuCaption{.text = "Open now", .tip = "Opens it", .raised = true}));
    EXPECT_EQ(parseCaption("|TIP:Help{SIDEBAR:NONE}Open"),
              (MenuCaption{.text = "Open", .tip = "Help"}));
    EXPECT_EQ(parseCaption("Open|TIP:a|Default"),
              (MenuCaption{.text = "Open", .tip = "a", .isDefault = true}));
    EXPECT_EQ(parseCaption("Open|TIP:a or {b} | c < d"),
              (MenuCaption{.text = "Open", .tip = "a or {b} | c < d"}));
}

// A form puts a shortcut after the whole caption.
TEST(ParseCaption, ATipEndsAtTheTabOfAHotKey) {
    EXPECT_EQ(parseCaption("Open|TIP:Opens it\tCtrl+O"),
              (MenuCaption{.text = "Open\tCtrl+O", .hotKeyPos = 6, .tip = "Opens it"}));
}

TEST(ParseCaption, AnImageMayHaveTheKeysOfItsItem) {
    EXPECT_EQ(parseCaption("{IMG:3|TIP:Opens a|b|ID:4|Default|Y}Open"),
              (MenuCaption{.text = "Open",
                           .image = 3,
                           .tip = "Opens a|b",
                           .isDefault = true,
                           .ticked = true,
                           .panel = 4}));
    EXPECT_EQ(parseCaption("{IMG:3|TIP:a\tb}Open"),
              (MenuCaption{.text = "Open", .image = 3, .tip = "a\tb"}));
}

TEST(ParseCaption, FlagsAreTakenWhereTheyEnd) {
    const std::vector<std::pair<std::string, MenuCaption>> flags = {
        {"|Default", {.isDefault = true}},
        {"|default", {.isDefault = true}},
        {"|Y", {.ticked = true}},
        {"|N", {.ticked = false}},
    };
    for (const auto& [flag, expected] : flags) {
        MenuCaption read = expected;
        EXPECT_EQ(parseCaption(flag), read) << flag;
        EXPECT_EQ(parseCaption("{IMG:0" + flag + "}"), read) << flag;
        read.text = "Open";
        EXPECT_EQ(parseCaption("Open" + flag), read) << flag;
        EXPECT_EQ(parseCaption(flag + "{IMG:0}Open"), read) << flag;
        read.text = "Open\tDel";
        read.hotKeyPos = 6;
        EXPECT_EQ(parseCaption("Open" + flag + "\tDel"), read) << flag;
        read = expected;
        read.tip = "a";
        EXPECT_EQ(parseCaption(flag + "|TIP:a"), read) << flag;
        for (const std::string after : {"es", " ", "}", "<BR!", "-"}) {
            const std::string caption = "Open" + flag + after;
            EXPECT_EQ(parseCaption(caption), MenuCaption{.text = caption}) << caption;
        }
    }
}

TEST(ParseCaption, AnIdentifierNamesThePanel) {
    EXPECT_EQ(parseCaption("Open|ID:0"), (MenuCaption{.text = "Open", .panel = 0}));
    EXPECT_EQ(parseCaption("|ID:32767{IMG:1}Open"),
              (MenuCaption{.text = "Open", .image = 1, .panel = 32767}));
    EXPECT_EQ(parseCaption("|ID:1|TIP:a"), (MenuCaption{.tip = "a", .panel = 1}));
    EXPECT_EQ(parseCaption("Open|ID:2\tDel"),
              (MenuCaption{.text = "Open\tDel", .hotKeyPos = 6, .panel = 2}));
}

TEST(ParseCaption, ARaisedLookIsTakenAnywhere) {
    EXPECT_EQ(parseCaption("{Raised}Open"), (MenuCaption{.text = "Open", .raised = true}));
    EXPECT_EQ(parseCaption("Open{Raised}"), (MenuCaption{.text = "Open", .raised = true}));
    EXPECT_EQ(parseCaption("{Raised"), MenuCaption{.text = "{Raised"});
}

TEST(ParseCaption, ADashAloneSeparates) {
    EXPECT_TRUE(parseCaption("-").separates());
    EXPECT_TRUE(parseCaption("{Raised}-").separates());
    EXPECT_TRUE(parseCaption("-|ID:3").separates());
    EXPECT_TRUE(parseCaption("+-").separates());
    for (const char* caption : {"", "--", " -", "-a", "{-}"}) {
        EXPECT_FALSE(parseCaption(caption).separates()) << caption;
    }
}

TEST(ParseCaption, APlusInFrontOfTheTextMarksASubItem) {
    EXPECT_EQ(parseCaption("+Level"), (MenuCaption{.text = "Level", .subItem = true}));
    EXPECT_EQ(parseCaption("{IMG:3}+Level"),
              (MenuCaption{.text = "Level", .image = 3, .subItem = true}));
    EXPECT_EQ(parseCaption("++Level"), (MenuCaption{.text = "+Level", .subItem = true}));
    EXPECT_EQ(parseCaption("+"), MenuCaption{.text = "+"});
    EXPECT_EQ(parseCaption("+|TIP:a"), (MenuCaption{.text = "+", .tip = "a"}));
}

TEST(ParseCaption, LinesBreakInCaptionAndTip) {
    EXPECT_EQ(parseCaption("one<BR!>two"), MenuCaption{.text = "one\r\ntwo"});
    EXPECT_EQ(parseCaption("<BR!><BR!>"), MenuCaption{.text = "\r\n\r\n"});
    EXPECT_EQ(parseCaption("a|TIP:one<BR!>two"), (MenuCaption{.text = "a", .tip = "one\r\ntwo"}));
    EXPECT_EQ(parseCaption("{IMG:1|TIP:one<BR!>two}a"),
              (MenuCaption{.text = "a", .image = 1, .tip = "one\r\ntwo"}));
    EXPECT_EQ(parseCaption("<BR>"), MenuCaption{.text = "<BR>"});
}

TEST(ParseCaption, TheLastOfSeveralHolds) {
    EXPECT_EQ(parseCaption("{IMG:1}{IMG:2}"), MenuCaption{.image = 2});
    EXPECT_EQ(parseCaption("|TIP:a|TIP:b"), MenuCaption{.tip = "b"});
    EXPECT_EQ(parseCaption("|Y|N"), MenuCaption{.ticked = false});
    EXPECT_EQ(parseCaption("|ID:1|ID:2"), MenuCaption{.panel = 2});
}

// Tokens are spelled as they are listed.
TEST(ParseCaption, OtherSpellingsStayText) {
    for (const std::string caption :
         {"{img:3}", "{Img:3}", "Open|tip:a", "Open|Tip:a", "a|y", "a|n", "a|DEFAULT", "a|id:1",
          "{raised}", "{RAISED}", "a<br!>b", "{sidebar:TEXT}", "{SideBar:TEXT}", "{ IMG:3}"}) {
        EXPECT_EQ(parseCaption(caption), MenuCaption{.text = caption}) << caption;
    }
}

TEST(ParseCaption, EverythingInOneCaption) {
    EXPECT_EQ(parseCaption("{Raised}{IMG:3|TIP:Opens it|Default}{SIDEBAR:TEXT|ID:2|CAPTION:Files}"
                           "+&Open|N|ID:5\tCTRL+O"),
              (MenuCaption{.text = "&Open\tCTRL+O",
                           .hotKeyPos = 7,
                           .image = 3,
                           .tip = "Opens it",
                           .isDefault = true,
                           .ticked = false,
                           .panel = 5,
                           .raised = true,
                           .subItem = true,
                           .sideBar = SideBar{.panel = 2, .caption = "Files"}}));
}

}  // namespace
}  // namespace velmora
