// The side bar that a caption asks for.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "shell/menus/menu_caption.h"

namespace velmora {
namespace {

/// That of a caption in which nothing else stands.
std::optional<SideBar> barOf(const std::string& caption) {
    MenuCaption read = parseCaption(caption);
    EXPECT_EQ(read.text, "") << caption;
    return std::move(read.sideBar);
}

TEST(SideBarKeys, ABarWithoutKeysIsAsDescribed) {
    const SideBar plain = barOf("{SIDEBAR:TEXT}").value();
    EXPECT_TRUE(plain.isText);
    EXPECT_EQ(plain.panel, std::nullopt);
    EXPECT_EQ(plain.caption, "");
    EXPECT_EQ(plain.font, "");
    EXPECT_EQ(plain.fontSize, 12);
    EXPECT_EQ(plain.leastFontSize, 8);
    EXPECT_EQ(plain.foreColour, 0x80000007);
    EXPECT_EQ(plain.back, SideBar::Back::menu);
    EXPECT_EQ(plain.width, std::nullopt);
    EXPECT_FALSE(plain.bold || plain.underline || plain.italic);
    EXPECT_EQ(plain.gradient, SideBar::Gradient::none);
    EXPECT_EQ(plain.align, SideBar::Align::bottom);
}

TEST(SideBarKeys, ABarShowsATextOrAnImageOrIsNone) {
    EXPECT_EQ(barOf("{SIDEBAR:TEXT|ID:3}"), (SideBar{.panel = 3}));
    EXPECT_EQ(barOf("{SIDEBAR:7}"), (SideBar{.isText = false, .image = 7}));
    EXPECT_EQ(barOf("{SIDEBAR:7|ID:3}"), (SideBar{.isText = false, .image = 7, .panel = 3}));
    EXPECT_EQ(barOf("{SIDEBAR:0}"), (SideBar{.isText = false}));
    EXPECT_EQ(barOf("{SIDEBAR:NONE}"), std::nullopt);
    EXPECT_EQ(barOf("{SIDEBAR:TEXT}{SIDEBAR:NONE|ID:3}"), std::nullopt);
    EXPECT_EQ(barOf("{SIDEBAR:NONE}{SIDEBAR:TEXT|ID:3}{SIDEBAR:5}"),
              (SideBar{.isText = false, .image = 5}));
}

TEST(SideBarKeys, EachKeyInEachSpellingSetsItsField) {
    const std::vector<std::pair<std::string, SideBar>> keys = {
        {"|ID:0", {.panel = 0}},
        {"|ID:32767", {.panel = 32767}},
        {"|CAPTION:Files & more", {.caption = "Files & more"}},
        {"|CAPTION:one<BR!>two", {.caption = "one\r\ntwo"}},
        {"|CAPTION:a|b|TIP:c", {.caption = "a|b|TIP:c"}},
        {"|CAPTION:Boldly|Boldly", {.caption = "Boldly|Boldly"}},
        {"|FSIZE:1", {.fontSize = 1}},
        {"|FSIZE:400", {.fontSize = 400}},
        {"|MINFONTSIZE:1", {.leastFontSize = 1}},
        {"|MINFONTSIZE:400", {.leastFontSize = 400}},
        {"|FCOLOR:255", {.foreColour = 0x0000FF}},
        {"|FCOLOR:0", {.foreColour = 0}},
        {"|FCOLOR:16777215", {.foreColour = 0xFFFFFF}},
        {"|FCOLOR:&HFF8000&", {.foreColour = 0xFF8000}},
        {"|FCOLOR:&Hff8000", {.foreColour = 0xFF8000}},
        {"|FCOLOR:-2147483633", {.foreColour = 0x8000000F}},
        {"|FCOLOR:-2147483648", {.foreColour = 0x80000000}},
        {"|FCOLOR:2147483663", {.foreColour = 0x8000000F}},
        {"|FCOLOR:&H8000000F&", {.foreColour = 0x8000000F}},
        {"|WIDTH:1", {.width = 1}},
        {"|WIDTH:2000", {.width = 2000}},
        {"|Width:24", {.width = 24}},
        {"|BCOLOR:NONE", {.back = SideBar::Back::nothing}},
        {"|BCOLOR:None", {.back = SideBar::Back::nothing}},
        {"|BColor:None", {.back = SideBar::Back::nothing}},
        {"|BColor:NONE", {.back = SideBar::Back::nothing}},
        {"|BCOLOR:8388608", {.back = SideBar::Back::colour, .backColour = 0x800000}},
        {"|BColor:&HFF&", {.back = SideBar::Back::colour, .backColour = 0xFF}},
        {"|FONT:DejaVu Sans", {.font = "DejaVu Sans"}},
        {"|FONT:a<BR!>b", {.font = "a<BR!>b"}},
        {"|Bold", {.bold = true}},
        {"|Underline", {.underline = true}},
        {"|Italic", {.italic = true}},
        {"|Gradient", {.gradient = SideBar::Gradient::plain}},
        {"|GRADIENT", {.gradient = SideBar::Gradient::plain}},
        {"|Gradient:Reverse", {.gradient = SideBar::Gradient::reverse}},
        {"|GRADIENT:REVERSE", {.gradient = SideBar::Gradient::reverse}},
        {"|ALIGN:Top", {.align = SideBar::Align::top}},
        {"|Align:Top", {.align = SideBar::Align::top}},
    };
    for (const auto& [key, expected] : keys) {
        EXPECT_EQ(barOf("{SIDEBAR:TEXT" + key + "}"), expected) << key;
        // Between others.
        SideBar more = expected;
        more.italic = true;
        more.underline = true;
        EXPECT_EQ(barOf("{SIDEBAR:TEXT|Italic" + key + "|Underline}"), more) << key;
    }
}

TEST(SideBarKeys, ALaterKeyTakesBackAnEarlierOne) {
    for (const char* back :
         {"|BCOLOR:BACK", "|BCOLOR:Background", "|BColor:Background", "|BColor:BACK"}) {
        EXPECT_EQ(barOf("{SIDEBAR:TEXT|BCOLOR:255" + std::string(back) + "}"), SideBar{}) << back;
    }
    for (const char* bottom : {"|ALIGN:Bottom", "|Align:Bottom"}) {
        EXPECT_EQ(barOf("{SIDEBAR:TEXT|ALIGN:Top" + std::string(bottom) + "}"), SideBar{});
    }
    EXPECT_EQ(barOf("{SIDEBAR:TEXT|Gradient:Reverse|Gradient}"),
              SideBar{.gradient = SideBar::Gradient::plain});
    EXPECT_EQ(barOf("{SIDEBAR:TEXT|BCOLOR:255|BCOLOR:NONE}"),
              SideBar{.back = SideBar::Back::nothing});
    EXPECT_EQ(barOf("{SIDEBAR:TEXT|CAPTION:a|CAPTION:}"), SideBar{});
}

TEST(SideBarKeys, AllTogether) {
    EXPECT_EQ(barOf("{SIDEBAR:TEXT|ID:2|CAPTION:Velmora|FONT:Serif|FSIZE:14|MINFONTSIZE:9"
                    "|FCOLOR:&HFFFFFF&|WIDTH:30|BCOLOR:&H800000&|Bold|Underline|Italic"
                    "|GRADIENT:REVERSE|ALIGN:Top}"),
              (SideBar{.panel = 2,
                       .caption = "Velmora",
                       .font = "Serif",
                       .fontSize = 14,
                       .leastFontSize = 9,
                       .foreColour = 0xFFFFFF,
                       .back = SideBar::Back::colour,
                       .backColour = 0x800000,
                       .width = 30,
                       .bold = true,
                       .underline = true,
                       .italic = true,
                       .gradient = SideBar::Gradient::reverse,
                       .align = SideBar::Align::top}));
}

TEST(SideBarKeys, WhatIsNotUnderstoodIsShownAndChangesNothing) {
    for (const std::string key : {"|ID:",
                                  "|ID:x",
                                  "|ID:-1",
                                  "|ID:32768",
                                  "|FSIZE:0",
                                  "|FSIZE:401",
                                  "|FSIZE:",
                                  "|FSIZE:1.5",
                                  "|FSIZE:-1",
                                  "|FSIZE:+9",
                                  "|MINFONTSIZE:0",
                                  "|MINFONTSIZE:401",
                                  "|WIDTH:0",
                                  "|WIDTH:2001",
                                  "|Width:99999999999",
                                  "|FCOLOR:",
                                  "|FCOLOR:red",
                                  "|FCOLOR:16777216",
                                  "|FCOLOR:-1",
                                  "|FCOLOR:-2147483649",
                                  "|FCOLOR:4294967296",
                                  "|FCOLOR:&H",
                                  "|FCOLOR:&H&",
                                  "|FCOLOR:&H-1",
                                  "|FCOLOR:&HFFFFFFFFF",
                                  "|FCOLOR:&H80000100&",
                                  "|FCOLOR:255&",
                                  "|FCOLOR:&h1",
                                  "|FCOLOR:NONE",
                                  "|FCOLOR:99999999999999999999",
                                  "|BCOLOR:",
                                  "|BCOLOR:none",
                                  "|BCOLOR:BACKGROUND",
                                  "|BCOLOR:-1",
                                  "|bold",
                                  "|BOLD",
                                  "|Gradient:Up",
                                  "|ALIGN:Left",
                                  "|ALIGN:",
                                  "|ALIGN:TOP",
                                  "|width:3",
                                  "|Y",
                                  "|Default",
                                  "|FOO",
                                  "|"}) {
        const MenuCaption read = parseCaption("{SIDEBAR:TEXT" + key + "}");
        EXPECT_EQ(read, (MenuCaption{.text = key, .sideBar = SideBar{}})) << key;
    }
}

}  // namespace
}  // namespace velmora
