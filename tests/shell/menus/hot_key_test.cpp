// Where the hot key of a menu item's text begins.
#include "shell/menus/hot_key.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(HotKey, EverythingAfterTheLastTabIsOne) {
    EXPECT_EQ(hotKeyPosition("Open\tCtrl+O"), 6U);
    EXPECT_EQ(hotKeyPosition("a\tb\tany words"), 5U);
    EXPECT_EQ(hotKeyPosition("\tDel"), 2U);
    EXPECT_EQ(hotKeyPosition("Open\t"), 0U);
    EXPECT_EQ(hotKeyPosition("Open F5\t"), 0U);
}

TEST(HotKey, PositionsCountCharacters) {
    EXPECT_EQ(hotKeyPosition("\u00D6ffnen\tF3"), 8U);
    EXPECT_EQ(hotKeyPosition("\u00D6ffnen F3"), 8U);
}

TEST(HotKey, KeysWithModifiersEndATextInAnyCase) {
    for (const char* text : {"Open CTRL+O", "Open Ctrl+O", "Open ctrl+o", "Open SHIFT+F3",
                             "Open Alt+DEL", "Open Ctrl+Shift+Alt+X", "Open CTRL++"}) {
        EXPECT_EQ(hotKeyPosition(text), 6U) << text;
    }
    for (const char* text : {"Open CTRL+", "Open ALT+ ", "Open CTRL+SHIFT+", "Open XCTRL+O",
                             "Open CTRL", "CTRL+O", "OpenCTRL+O", "Open CTRL-O", "Open CTRLO",
                             "Sing Alto", "Open SHIFTO", "Open +O", "Open CTRL+O now"}) {
        EXPECT_EQ(hotKeyPosition(text), 0U) << text;
    }
}

TEST(HotKey, FunctionKeysHaveTheNumbers1To24) {
    for (const char* text : {"Open F1", "Open F9", "Open F10", "Open F24"}) {
        EXPECT_EQ(hotKeyPosition(text), 6U) << text;
    }
    for (const char* text :
         {"Open F", "Open F0", "Open F25", "Open F99999999999", "Open F01", "Open f5", "Open F5a",
          "Open F-1", "Open F+1", "F5", "OpenF5", "Open G5", "Open F:"}) {
        EXPECT_EQ(hotKeyPosition(text), 0U) << text;
    }
}

TEST(HotKey, NamedKeysEndATextInUpperCase) {
    for (const char* text :
         {"Open DEL", "Open INS", "Open HOME", "Open END", "Open PGUP", "Open PGDN"}) {
        EXPECT_EQ(hotKeyPosition(text), 6U) << text;
    }
    EXPECT_EQ(hotKeyPosition(" DEL"), 2U);
    for (const char* text :
         {"Open Del", "Go to end", "DEL", "Open DELETE", "OpenDEL", "Open DEL ", "Open PG"}) {
        EXPECT_EQ(hotKeyPosition(text), 0U) << text;
    }
}

TEST(HotKey, ALineEndIsNoBlank) {
    EXPECT_EQ(hotKeyPosition("one\r\nF5"), 0U);
    EXPECT_EQ(hotKeyPosition("one CTRL+A\r\ntwo"), 0U);
    EXPECT_EQ(hotKeyPosition("one\r\ntwo F5"), 10U);
}

TEST(HotKey, ATextWithoutOneHasNone) {
    for (const char* text : {"", " ", "\t", "Open", "Open it"}) {
        EXPECT_EQ(hotKeyPosition(text), 0U) << text;
    }
}

}  // namespace
}  // namespace velmora
