// The panels of a menu whose items somebody else draws: sizes, hot keys and side bars.
#include <gtest/gtest.h>

#include <string>

#include "shell/menus/cls_my_menu.h"

namespace velmora {
namespace {

struct MenuPanels : testing::Test {
    void add(int id, const std::string& caption, int width, int height) {
        menu.setOriginalCaption(id, caption);
        menu.setItemWidth(id, width);
        menu.setItemHeight(id, height);
    }

    ImageList images{{{.Key = "strip", .Width = 40, .Height = 200},
                      {.Key = "icon", .kind = ListImage::Kind::icon, .Width = 32},
                      {.Key = "film", .kind = ListImage::Kind::other, .Width = 32},
                      {.Key = "vast", .Width = 5000},
                      {.Key = "odd", .Width = -5}}};
    clsMyMenu menu;
};

TEST_F(MenuPanels, APanelIsAsWideAsItsWidestItemAndAsHighAsAll) {
    add(1, "one", 100, 20);
    add(2, "two", 140, 22);
    add(3, "three", 120, 8);
    add(4, "four|ID:2", 300, 50);
    EXPECT_EQ(menu.PanelWidth(), 140);
    EXPECT_EQ(menu.PanelHeight(), 50);
    EXPECT_EQ(menu.PanelWidth(2), 300);
    EXPECT_EQ(menu.PanelHeight(2), 50);
    EXPECT_EQ(menu.PanelIDcount(), 2);
    EXPECT_EQ(menu.PanelWidth(1), 0);
    EXPECT_EQ(menu.GetPanelInformation(1).ID, 1);
    menu.UpdatePanelID(2, 2);
    EXPECT_EQ(menu.PanelWidth(), 120);
    EXPECT_EQ(menu.PanelHeight(), 28);
    EXPECT_EQ(menu.PanelHeight(2), 72);
    menu.SetMenuID({"other"});
    EXPECT_EQ(menu.PanelHeight(), 0);
}

TEST_F(MenuPanels, ASideBarMakesItsPanelWider) {
    add(5, "{SIDEBAR:TEXT|ID:1|CAPTION:Files|WIDTH:30}", 0, 0);
    add(6, "one|ID:1", 100, 20);
    add(7, "two", 90, 20);
    const PanelInformation panel = menu.GetPanelInformation(1);
    EXPECT_EQ(panel.ID, 1);
    EXPECT_EQ(panel.Width, 130);
    EXPECT_EQ(panel.Height, 20);
    EXPECT_EQ(panel.SideBarItem, 5);
    EXPECT_TRUE(panel.SideBarIsText);
    EXPECT_EQ(panel.SideBarWidth, 30);
    EXPECT_EQ(panel.sideBar.value().caption, "Files");
    EXPECT_EQ(panel.Message, "");
    EXPECT_EQ(menu.PanelWidth(1), 130);
    EXPECT_EQ(menu.SideBarItem(1), 5);
    EXPECT_TRUE(menu.SideBarIsText(1));
    EXPECT_EQ(menu.SideBarWidth(1), 30);
    EXPECT_EQ(menu.PanelWidth(), 90);
    EXPECT_EQ(menu.SideBarItem(), std::nullopt);
    EXPECT_FALSE(menu.SideBarIsText());
    EXPECT_EQ(menu.SideBarWidth(), 0);
    EXPECT_EQ(menu.GetPanelInformation().sideBar, std::nullopt);
}

TEST_F(MenuPanels, ABarAndItsItemShareTheirPanelUnlessBothNameOne) {
    menu.setOriginalCaption(1, "{SIDEBAR:TEXT|CAPTION:a}one|ID:3");
    EXPECT_EQ(menu.SideBarItem(3), 1);
    menu.UpdatePanelID(1, 4);
    EXPECT_EQ(menu.SideBarItem(3), std::nullopt);
    EXPECT_EQ(menu.SideBarItem(4), 1);
    EXPECT_EQ(menu.PanelIDcount(), 1);

    menu.setOriginalCaption(1, "{SIDEBAR:TEXT|ID:3|CAPTION:a}one");
    EXPECT_EQ(menu.GetPanelID(1), 3);
    EXPECT_EQ(menu.PanelIDcount(), 1);

    menu.setOriginalCaption(1, "{SIDEBAR:TEXT|ID:3|CAPTION:a}one|ID:5");
    EXPECT_EQ(menu.GetPanelID(1), 5);
    EXPECT_EQ(menu.SideBarItem(3), 1);
    EXPECT_EQ(menu.SideBarItem(5), std::nullopt);
    EXPECT_EQ(menu.PanelIDcount(), 2);
    menu.UpdatePanelID(1, 6);
    EXPECT_EQ(menu.SideBarItem(3), 1);
}

TEST_F(MenuPanels, ATextIsAsWideAsItsLettersAreHigh) {
    menu.setOriginalCaption(1, "{SIDEBAR:TEXT|CAPTION:a}");
    EXPECT_EQ(menu.SideBarWidth(), 16 + 8);  // 12 points are 16 pixels
    menu.setOriginalCaption(1, "{SIDEBAR:TEXT|CAPTION:a|FSIZE:10}");
    EXPECT_EQ(menu.SideBarWidth(), 14 + 8);  // 13.3
    menu.setOriginalCaption(1, "{SIDEBAR:TEXT|CAPTION:a|FSIZE:1}");
    EXPECT_EQ(menu.SideBarWidth(), 2 + 8);  // 1.3
}

TEST_F(MenuPanels, AnImageIsAsWideAsItIs) {
    menu.SetGetImageViewer(&images);
    const auto widthOf = [this](const std::string& caption) {
        menu.setOriginalCaption(1, caption);
        EXPECT_EQ(menu.GetPanelInformation().Message, "");
        EXPECT_FALSE(menu.SideBarIsText());
        EXPECT_EQ(menu.SideBarItem(), 1);
        return menu.SideBarWidth();
    };
    EXPECT_EQ(widthOf("{SIDEBAR:1}"), 40);
    EXPECT_EQ(widthOf("{SIDEBAR:2}"), 32);
    EXPECT_EQ(widthOf("{SIDEBAR:1|WIDTH:50}"), 50);
    EXPECT_EQ(widthOf("{SIDEBAR:4}"), 2000);
    EXPECT_EQ(widthOf("{SIDEBAR:5}"), 0);
}

TEST_F(MenuPanels, ASideBarThatCannotBeBuiltLeavesAMessageAndTheMenuUsable) {
    const auto messageOf = [this](const std::string& caption) {
        add(1, caption, 0, 0);
        add(2, "one", 100, 20);
        const PanelInformation panel = menu.GetPanelInformation();
        EXPECT_EQ(panel.Width, 100);
        EXPECT_EQ(panel.Height, 20);
        EXPECT_EQ(panel.SideBarItem, std::nullopt);
        EXPECT_FALSE(panel.SideBarIsText);
        EXPECT_EQ(panel.SideBarWidth, 0);
        EXPECT_EQ(panel.sideBar, std::nullopt);
        return panel.Message;
    };
    EXPECT_EQ(messageOf("{SIDEBAR:1|WIDTH:9}"), "Sidebar failed");  // no image list
    menu.SetGetImageViewer(&images);
    EXPECT_EQ(messageOf("{SIDEBAR:6}"), "Sidebar failed");
    EXPECT_EQ(messageOf("{SIDEBAR:0}"), "Sidebar failed");
    EXPECT_EQ(messageOf("{SIDEBAR:TEXT|ID:0|WIDTH:30}"), "Sidebar failed");
    EXPECT_EQ(messageOf("{SIDEBAR:3|WIDTH:30}"),
              "Sidebar failed image is not a bitmap or icon type");
    EXPECT_EQ(messageOf("{SIDEBAR:NONE}"), "");
}

TEST_F(MenuPanels, OfSeveralBarsTheFirstThatCanBeBuiltStands) {
    menu.SetGetImageViewer(&images);
    menu.setOriginalCaption(3, "{SIDEBAR:1}");
    menu.setOriginalCaption(4, "{SIDEBAR:2}");
    EXPECT_EQ(menu.SideBarItem(), 3);
    EXPECT_EQ(menu.GetPanelInformation().Message, "");
    menu.setOriginalCaption(2, "{SIDEBAR:TEXT}");
    menu.setOriginalCaption(1, "{SIDEBAR:3}");
    EXPECT_EQ(menu.SideBarItem(), 3);
    EXPECT_EQ(menu.SideBarWidth(), 40);
    EXPECT_EQ(menu.GetPanelInformation().Message,
              "Sidebar failed image is not a bitmap or icon type");
}

TEST_F(MenuPanels, HotKeysBeginBehindTheWidestTextInFrontOfOne) {
    EXPECT_EQ(menu.HotKeyEdge(), 0);
    menu.setOriginalCaption(1, "\u00D6ffnen \tCtrl+O");
    menu.setOriginalCaption(2, "New  F5");
    menu.setOriginalCaption(3, "A caption without a hot key");
    menu.setOriginalCaption(4, "Somewhere else|ID:2\tF5");
    EXPECT_EQ(menu.HotKeyEdge(), 6);
    EXPECT_EQ(menu.HotKeyEdge(2), 14);
    menu.setHotKeyPos(1, 0);
    EXPECT_EQ(menu.HotKeyEdge(), 3);
    menu.setHotKeyPos(2, 999);
    EXPECT_EQ(menu.HotKeyEdge(), 7);
}

TEST_F(MenuPanels, TextsAreMeasuredByTheirDrawing) {
    std::string measured;
    clsMyMenu drawn([&measured](std::string_view text) {
        measured = text;
        return 77;
    });
    drawn.setOriginalCaption(1, "Open\tCtrl+O");
    EXPECT_EQ(drawn.HotKeyEdge(), 77);
    EXPECT_EQ(measured, "Open");
}

TEST_F(MenuPanels, HugeMenusHaveTheHighestHeightThereIs) {
    for (int id = 0; id < 66000; ++id) menu.setItemHeight(id, 32767);
    EXPECT_EQ(menu.PanelHeight(), 2147483647);
}

}  // namespace
}  // namespace velmora
