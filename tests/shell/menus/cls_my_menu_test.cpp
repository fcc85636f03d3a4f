// The records of menu items: their properties, and the menus that they are kept by.
#include "shell/menus/cls_my_menu.h"

#include <gtest/gtest.h>

#include <set>

#include "base/runtime_error.h"

namespace velmora {
namespace {

int errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const RuntimeError& failure) {
        return failure.number();
    }
    return 0;
}

TEST(MyMenu, AnItemWithoutARecordHasEmptyValues) {
    const clsMyMenu menu;
    EXPECT_EQ(menu.Icon(7), 0);
    EXPECT_EQ(menu.ItemHeight(7), 0);
    EXPECT_EQ(menu.ItemWidth(7), 0);
    EXPECT_EQ(menu.HelpTip(7), "");
    EXPECT_EQ(menu.HotKeyPos(7), 0);
    EXPECT_EQ(menu.Status(7), 0U);
    EXPECT_EQ(menu.Caption(7), "");
    EXPECT_EQ(menu.OriginalCaption(7), "");
    EXPECT_EQ(menu.ParsedCaption(7), MenuCaption{});
    EXPECT_EQ(menu.GetPanelID(7), 0);
    EXPECT_EQ(menu.GetIconData(7), nullptr);
    EXPECT_EQ(menu.MenuItemCount(), 0);
    EXPECT_EQ(menu.MenuIDcount(), 0);
    EXPECT_EQ(menu.PanelIDcount(), 0);
}

TEST(MyMenu, EachPropertyIsReadAsItWasWritten) {
    clsMyMenu menu;
    menu.setIcon(7, 3);
    menu.setItemHeight(7, 20);
    menu.setItemWidth(7, 130);
    menu.setHelpTip(7, "Opens it");
    menu.setStatus(7, 0xF0F0F0F0);
    menu.setCaption(7, "{IMG:3}");
    menu.setHotKeyPos(7, 9);
    menu.UpdatePanelID(7, 4);
    menu.setIcon(-8, 32767);
    EXPECT_EQ(menu.Icon(7), 3);
    EXPECT_EQ(menu.ItemHeight(7), 20);
    EXPECT_EQ(menu.ItemWidth(7), 130);
    EXPECT_EQ(menu.HelpTip(7), "Opens it");
    EXPECT_EQ(menu.Status(7), 0xF0F0F0F0);
    EXPECT_EQ(menu.Caption(7), "{IMG:3}");
    EXPECT_EQ(menu.HotKeyPos(7), 9);
    EXPECT_EQ(menu.GetPanelID(7), 4);
    EXPECT_EQ(menu.Icon(-8), 32767);
    EXPECT_EQ(menu.MenuItemCount(), 2);
}

TEST(MyMenu, NumbersOutOfRangeAreRefusedAndChangeNothing) {
    clsMyMenu menu;
    for (int number : {-1, 32768}) {
        EXPECT_EQ(errorOf([&] { menu.setIcon(7, number); }), 380);
        EXPECT_EQ(errorOf([&] { menu.setItemHeight(7, number); }), 380);
        EXPECT_EQ(errorOf([&] { menu.setItemWidth(7, number); }), 380);
        EXPECT_EQ(errorOf([&] { menu.setHotKeyPos(7, number); }), 380);
        EXPECT_EQ(errorOf([&] { menu.UpdatePanelID(7, number); }), 380);
    }
    EXPECT_EQ(menu.MenuItemCount(), 0);
}

TEST(MyMenu, AnOriginalCaptionSetsTheOthers) {
    clsMyMenu menu;
    const std::string caption = "{IMG:3|TIP:Opens it|Default|Y}{Raised}&Open|ID:5\tCtrl+O";
    menu.setItemHeight(7, 20);
    menu.setItemWidth(7, 130);
    menu.setOriginalCaption(7, caption);
    EXPECT_EQ(menu.OriginalCaption(7), caption);
    EXPECT_EQ(menu.Icon(7), 3);
    EXPECT_EQ(menu.HelpTip(7), "Opens it");
    EXPECT_EQ(menu.Caption(7), "&Open\tCtrl+O");
    EXPECT_EQ(menu.HotKeyPos(7), 7);
    EXPECT_EQ(menu.Status(7), menuState::isDefault | menuState::ticked);
    EXPECT_EQ(menu.GetPanelID(7), 5);
    EXPECT_TRUE(menu.ParsedCaption(7).raised);
    // To be measured again.
    EXPECT_EQ(menu.ItemHeight(7), 0);
    EXPECT_EQ(menu.ItemWidth(7), 0);

    menu.setOriginalCaption(7, "Close");
    EXPECT_EQ(menu.Icon(7), 0);
    EXPECT_EQ(menu.HelpTip(7), "");
    EXPECT_EQ(menu.Caption(7), "Close");
    EXPECT_EQ(menu.HotKeyPos(7), 0);
    EXPECT_EQ(menu.GetPanelID(7), 0);
    EXPECT_FALSE(menu.ParsedCaption(7).raised);
    // Without a mark it keeps its tick.
    EXPECT_EQ(menu.Status(7), menuState::ticked);
    menu.setStatus(7, menuState::ticked | menuState::grayed);
    menu.setOriginalCaption(7, "Close|N");
    EXPECT_EQ(menu.Status(7), menuState::grayed);
}

TEST(MyMenu, ACaptionThatIsSetHasItsHotKey) {
    clsMyMenu menu;
    menu.setCaption(7, "Refresh F5");
    EXPECT_EQ(menu.HotKeyPos(7), 9);
    menu.setCaption(7, "Refresh");
    EXPECT_EQ(menu.HotKeyPos(7), 0);
    EXPECT_EQ(menu.OriginalCaption(7), "");
}

TEST(MyMenu, AnIdentityIsBuiltOfItsPartsAndItemsBelongToIt) {
    clsMyMenu menu;
    EXPECT_EQ(menu.SetMenuID({"Form1"}), "Form1");
    menu.setCaption(1, "one");
    EXPECT_EQ(menu.SetMenuID({"Form1", "mnuFunc", "mnuF"}), "Form1.mnuFunc.mnuF");
    EXPECT_EQ(menu.Caption(1), "");
    EXPECT_EQ(menu.MenuItemCount(), 0);
    menu.setCaption(1, "two");
    menu.setCaption(2, "three");
    EXPECT_EQ(menu.MenuItemCount(), 2);
    EXPECT_EQ(menu.MenuIDcount(), 2);
    menu.SetMenuID({"Form1"});
    EXPECT_EQ(menu.Caption(1), "one");
    EXPECT_EQ(menu.MenuItemCount(), 1);
    EXPECT_EQ(menu.MenuIDcount(), 2);
}

TEST(MyMenu, AnIdentityThatCouldBeAnotherIsRefused) {
    clsMyMenu menu;
    menu.SetMenuID({"Form1"});
    menu.setCaption(1, "one");
    const std::vector<std::vector<std::string>> bad = {
        {}, {""}, {"Form1", ""}, {"", "a"}, {"Form1.mnuFunc"}, {"Form1", "."}};
    for (const auto& names : bad) {
        EXPECT_EQ(errorOf([&] { menu.SetMenuID(names); }), error::invalidCall);
    }
    EXPECT_EQ(menu.Caption(1), "one");
    EXPECT_EQ(menu.MenuIDcount(), 1);
}

TEST(MyMenu, ItemsBeforeTheFirstIdentityAreOfAMenuWithoutOne) {
    clsMyMenu menu;
    menu.setCaption(1, "one");
    EXPECT_EQ(menu.MenuIDcount(), 1);
    menu.SetMenuID({"a"});
    EXPECT_EQ(menu.Caption(1), "");
    EXPECT_EQ(menu.MenuIDcount(), 2);
}

TEST(MyMenu, ObsoleteMenusAreForgotten) {
    clsMyMenu menu;
    for (const char* name : {"a", "b", "child", "c"}) {
        menu.SetMenuID({name});
        menu.setCaption(1, name);
    }
    menu.GetSetMDIchildSysMenu("child");
    EXPECT_EQ(menu.GetSetMDIchildSysMenu(), "child");
    std::set<std::string> asked;
    EXPECT_EQ(menu.PurgeObsoleteMenus([&](const std::string& identity) {
        asked.insert(identity);
        return identity == "b";
    }),
              2);
    EXPECT_EQ(asked, (std::set<std::string>{"a", "b", "c"}));
    EXPECT_EQ(menu.MenuIDcount(), 2);
    // The one that was chosen is gone too; what is written begins it anew.
    EXPECT_EQ(menu.Caption(1), "");
    menu.setIcon(2, 1);
    EXPECT_EQ(menu.MenuIDcount(), 3);
    menu.SetMenuID({"b"});
    EXPECT_EQ(menu.Caption(1), "b");
    menu.SetMenuID({"child"});
    EXPECT_EQ(menu.Caption(1), "child");
    menu.GetSetMDIchildSysMenu("");
    EXPECT_EQ(menu.PurgeObsoleteMenus([](const std::string&) { return false; }), 3);
    EXPECT_EQ(menu.MenuIDcount(), 0);
}

TEST(MyMenu, IconsAreThoseOfTheImageList) {
    clsMyMenu menu;
    menu.setIcon(1, 1);
    menu.setIcon(2, 2);
    menu.setIcon(3, 3);
    EXPECT_EQ(menu.SetGetImageViewer(), nullptr);
    EXPECT_EQ(menu.TotalIcons(), 0);
    EXPECT_EQ(menu.GetIconData(1), nullptr);
    const ImageList images{{{.Key = "open", .Width = 16}, {.Key = "close"}}};
    menu.SetGetImageViewer(&images);
    EXPECT_EQ(menu.SetGetImageViewer(), &images);
    EXPECT_EQ(menu.TotalIcons(), 2);
    ASSERT_NE(menu.GetIconData(1), nullptr);
    EXPECT_EQ(menu.GetIconData(1)->Key, "open");
    EXPECT_EQ(menu.GetIconData(2), &images.ListImages[1]);
    EXPECT_EQ(menu.GetIconData(3), nullptr);
    EXPECT_EQ(menu.GetIconData(4), nullptr);
    menu.SetGetImageViewer(nullptr);
    EXPECT_EQ(menu.GetIconData(1), nullptr);
}

}  // namespace
}  // namespace velmora
