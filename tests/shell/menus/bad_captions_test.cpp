// Captions that are no good mark-up: what isn't understood is drawn, and nothing takes long.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "shell/menus/menu_caption.h"

namespace velmora {
namespace {

TEST(BadCaptions, AGroupThatIsNotUnderstoodIsShownWhole) {
    for (const std::string caption :
         {"{IMG:}Open", "{IMG:x}Open", "{IMG:-1}Open", "{IMG:+1}Open", "{IMG:1.5}Open",
          "{IMG: 1}Open", "{IMG:1 }Open", "{IMG:32768}Open", "{IMG:99999999999999999999}Open",
          "{IMG:x|TIP:a}Open", "{SIDEBAR:}Open", "{SIDEBAR:text}Open", "{SIDEBAR:TEXTS}Open",
          "{SIDEBAR:BACK}Open", "{SIDEBAR:-1}Open", "{SIDEBAR:32768}Open",
          "{SIDEBAR:NONESUCH|ID:1}Open", "{SIDEBAR:x|CAPTION:a}Open", "{IMG:1TIP:a}"}) {
        EXPECT_EQ(parseCaption(caption), MenuCaption{.text = caption}) << caption;
    }
}

TEST(BadCaptions, LinesBreakInAGroupThatIsShown) {
    EXPECT_EQ(parseCaption("{IMG:x<BR!>}"), MenuCaption{.text = "{IMG:x\r\n}"});
}

TEST(BadCaptions, AGroupThatIsNotClosedIsText) {
    EXPECT_EQ(parseCaption("{IMG:3 Open"), MenuCaption{.text = "{IMG:3 Open"});
    EXPECT_EQ(parseCaption("{IMG:3|TIP:a"), (MenuCaption{.text = "{IMG:3", .tip = "a"}));
    EXPECT_EQ(parseCaption("{SIDEBAR:TEXT|CAPTION:a"),
              MenuCaption{.text = "{SIDEBAR:TEXT|CAPTION:a"});
    EXPECT_EQ(parseCaption("{SIDEBAR:TEXT"), MenuCaption{.text = "{SIDEBAR:TEXT"});
    EXPECT_EQ(parseCaption("{IMG:"), MenuCaption{.text = "{IMG:"});
    EXPECT_EQ(parseCaption("}{IMG:3"), MenuCaption{.text = "}{IMG:3"});
}

TEST(BadCaptions, AGroupThatIsNotClosedGivesWayToTheNext) {
    EXPECT_EQ(parseCaption("{IMG:x{IMG:4}Open"), (MenuCaption{.text = "{IMG:xOpen", .image = 4}));
    EXPECT_EQ(parseCaption("{SIDEBAR:{Raised}Open"),
              (MenuCaption{.text = "{SIDEBAR:Open", .raised = true}));
}

TEST(BadCaptions, BracesDoNotNest) {
    EXPECT_EQ(parseCaption("{IMG:3|TIP:a{b}c}"),
              (MenuCaption{.text = "c}", .image = 3, .tip = "a{b"}));
    EXPECT_EQ(parseCaption("{IMG:3|TIP:a{IMG:4}"), (MenuCaption{.image = 3, .tip = "a{IMG:4"}));
    EXPECT_EQ(parseCaption("{{IMG:3}}"), (MenuCaption{.text = "{}", .image = 3}));
    EXPECT_EQ(parseCaption("{SIDEBAR:TEXT|CAPTION:{x}}"),
              (MenuCaption{.text = "}", .sideBar = SideBar{.caption = "{x"}}));
}

TEST(BadCaptions, AKeyWithABadValueIsShown) {
    for (const std::string caption :
         {"Open|ID:", "Open|ID:x", "Open|ID:-1", "Open|ID:1x", "Open|ID:32768",
          "Open|ID:99999999999999999999", "Open|ID: 1"}) {
        EXPECT_EQ(parseCaption(caption), MenuCaption{.text = caption}) << caption;
        // Also after a tip, which it ends.
        EXPECT_EQ(parseCaption("|TIP:a" + caption.substr(4)),
                  (MenuCaption{.text = caption.substr(4), .tip = "a"}))
            << caption;
    }
    EXPECT_EQ(parseCaption("{IMG:3|ID:x|TIP:a}Open"),
              (MenuCaption{.text = "|ID:xOpen", .image = 3, .tip = "a"}));
}

TEST(BadCaptions, UnknownKeysInAGroupAreShown) {
    EXPECT_EQ(parseCaption("{IMG:3|FOO:1|TIP:a}Open"),
              (MenuCaption{.text = "|FOO:1Open", .image = 3, .tip = "a"}));
    EXPECT_EQ(parseCaption("{IMG:3|Default|FOO}Open"),
              (MenuCaption{.text = "|FOOOpen", .image = 3, .isDefault = true}));
    EXPECT_EQ(parseCaption("{SIDEBAR:TEXT|TIP:a|Bold|x<BR!>y}"),
              (MenuCaption{.text = "|TIP:a|x\r\ny", .sideBar = SideBar{.bold = true}}));
}

TEST(BadCaptions, AGroupInATipIsShownInTheCaptionWhenItIsBad) {
    EXPECT_EQ(parseCaption("Open|TIP:a{IMG:x}b"),
              (MenuCaption{.text = "Open{IMG:x}b", .tip = "a"}));
}

TEST(BadCaptions, NullAndInvalidBytesStay) {
    const std::string odd("a\0\xFF\x80{IMG:\0}\0", 12);
    EXPECT_EQ(parseCaption(odd), MenuCaption{.text = odd});
    const std::string tip("{IMG:1|TIP:\0\xC3}\0", 15);
    EXPECT_EQ(
        parseCaption(tip),
        (MenuCaption{.text = std::string(1, '\0'), .image = 1, .tip = std::string("\0\xC3", 2)}));
}

/// So often the piece that the caption is at least as long.
std::string filledWith(std::string_view piece, std::size_t size) {
    std::string caption;
    while (caption.size() < size) caption += piece;
    return caption;
}

TEST(BadCaptions, MarksInAnyNumberAreRead) {
    for (const std::string_view piece : {"{IMG:",
                                         "{IMG:1",
                                         "{IMG:0",
                                         "{IMG:1|",
                                         "{IMG:0|",
                                         "{SIDEBAR:",
                                         "{SIDEBAR:TEXT|",
                                         "|TIP:",
                                         "|ID:",
                                         "|ID:1",
                                         "|Default",
                                         "|Y",
                                         "{Raised}",
                                         "{Raised",
                                         "<BR!>",
                                         "<BR",
                                         "{",
                                         "}",
                                         "|",
                                         "\t",
                                         "1",
                                         "{IMG:1}",
                                         "{IMG:x}",
                                         "{SIDEBAR:TEXT|CAPTION:",
                                         " CTRL+",
                                         "+",
                                         "-"}) {
        const std::string filled = filledWith(piece, 10'000);
        for (const std::string begin : {"", "{IMG:", "{IMG:1|TIP:", "{SIDEBAR:TEXT"}) {
            const std::string caption = begin + filled + (begin.empty() ? "" : "}");
            const MenuCaption read = parseCaption(caption);
            EXPECT_LE(read.text.size() + read.tip.size(), caption.size()) << begin << piece;
            EXPECT_EQ(parseCaption(writeCaption(read)), read) << begin << piece;
        }
    }
}

// Each takes a moment when the caption is read once, and minutes when it is searched to its end for
// each of its marks.
TEST(BadCaptions, HugeCaptionsAreReadOnce) {
    constexpr std::size_t megabyte = 1'000'000;
    for (const std::string_view piece : {"{IMG:1|", "{SIDEBAR:", "{SIDEBAR:TEXT|", "{"}) {
        const std::string filled = filledWith(piece, megabyte);
        EXPECT_TRUE(parseCaption(filled).text == filled) << piece;
        const MenuCaption closed = parseCaption("{SIDEBAR:TEXT|" + filled + "}");
        EXPECT_TRUE(closed.text == "|" + filled) << piece;
        EXPECT_TRUE(closed.sideBar == SideBar{}) << piece;
        const MenuCaption inTip = parseCaption("{IMG:1|TIP:" + filled + "}");
        EXPECT_TRUE(inTip.tip == filled) << piece;
        EXPECT_EQ(inTip.text, "") << piece;
    }
    EXPECT_EQ(parseCaption(filledWith("|TIP:", megabyte)), MenuCaption{});
    EXPECT_EQ(parseCaption(filledWith("|ID:1", megabyte)), MenuCaption{.panel = 1});
    EXPECT_EQ(parseCaption("{SIDEBAR:TEXT" + filledWith("|ID:1", megabyte) + "}"),
              MenuCaption{.sideBar = SideBar{.panel = 1}});
    const std::string digits = filledWith("{SIDEBAR:1", 1000) + filledWith("1", megabyte);
    EXPECT_TRUE(parseCaption(digits).text == digits);
}

}  // namespace
}  // namespace velmora
