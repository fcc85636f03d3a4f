// The trees of the main window's menus, its tabs and the texts of its command buttons.
#include "forms/form1.h"

#include <gtest/gtest.h>

namespace velmora::tests {
namespace {

struct MenusOfForm1 : testing::Test {
    Form1 form;

    struct Item {
        const char* name;
        const char* caption;
    };
    static void expectItems(const MenuItem& menu, const std::vector<Item>& expected) {
        ASSERT_EQ(menu.items().size(), expected.size()) << menu.Name();
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(menu.items()[i]->Name(), expected[i].name);
            EXPECT_EQ(menu.items()[i]->Caption(), expected[i].caption);
            EXPECT_FALSE(menu.items()[i]->Checked());
        }
    }
};

TEST_F(MenusOfForm1, TheTrayMenuHasItsItemsInOrder) {
    expectItems(form.mnuPopUp, {{"mnuLock", "(Un) &Lock"},
                                {"mnuPause", "Pause"},
                                {"mnuHide", "Hide Velmora"},
                                {"mnuShowAl", "Show Alert Dialog"},
                                {"mnuSep", "-"},
                                {"mnuHelp", "Help"},
                                {"mnuExit", "Exit"}});
}

TEST_F(MenusOfForm1, TheHelpMenuHasItsItemsInOrder) {
    expectItems(form.mnuHelp, {{"mnuContent", "Contents"},
                               {"mnuSep2", "-"},
                               {"mnuSep1", "-"},
                               {"mnuPWP", "Program Webpage"},
                               {"mnuComments", "Send Comments"},
                               {"mnuAbout", "About Velmora"}});
}

TEST_F(MenusOfForm1, TheWatchListsMenuHasItsItemsInOrder) {
    expectItems(form.mnuLstV, {{"mnuExplore", "Explore"},
                               {"mnuParam", "Set Parameters"},
                               {"mnuRemove", "Remove"},
                               {"mnuInfo", "Show Info"}});
}

TEST_F(MenusOfForm1, TheFunctionsMenuHasItsItemsInOrder) {
    expectItems(form.mnuFunc, {{"mnuProgSet", "Set Program Settings"},
                               {"mnuRecyc", "Show Recycle Bin"},
                               {"mnuDefrag", "Defrag Utility"},
                               {"mnuEmptyRecyc", "Empty Recycle Bin"},
                               {"mnuNotif", "Notification"},
                               {"mnuShowAlert", "Show Alert Dialog"},
                               {"mnuCleaner", "Clean Manager"},
                               {"mnuSorbane", "Sorbane Program"},
                               {"mnuSSep", "-"},
                               {"mnuToSystray", "To Systray"},
                               {"mnuStayOnTop", "Stay On Top"},
                               {"mnuF", "Window Translucency"}});
}

TEST_F(MenusOfForm1, TheTranslucencyMenuHasItsItemsInOrder) {
    expectItems(form.mnuF, {{"mnuFadeH", "Level : High"},
                            {"mnuFadeP", "Level: Minimal"},
                            {"mnuFadeN", "Level: None"}});
}

TEST_F(MenusOfForm1, TheFileListsMenuHasItsItem) {
    expectItems(form.mnuLst, {{"mnuFileAttr", "File Attributes"}});
}

TEST_F(MenusOfForm1, ItemsWithoutASubmenuHaveNoItems) {
    for (const MenuItem* menu : {&form.mnuPopUp, &form.mnuFunc, &form.mnuLstV, &form.mnuLst}) {
        for (const MenuItem* item : menu->items()) {
            const bool head = item == &form.mnuHelp || item == &form.mnuF;
            EXPECT_EQ(item->items().empty(), !head) << item->Name();
        }
    }
}

TEST_F(MenusOfForm1, TheMainTabsHaveTheirCaptionsAndToolTips) {
    const Item tabs[] = {
        {"Spec.", "Specified Options (Files, Paths...)"},
        {"Options", "Program Options (Program pre-set actions/behaviors)"},
        {"Alerts/Log", "Program Alert Logs"},
        {"Config.", "Configurations (Program UI Settings)"},
        {"Overview", "Specified Options (Files, Paths...)"},
    };
    ASSERT_EQ(form.lblTab.size(), 5u);
    ASSERT_EQ(form.frmSp.size(), 5u);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(form.lblTab[i].Index(), i);
        EXPECT_EQ(form.lblTab[i].Caption(), tabs[i].name);
        EXPECT_EQ(form.lblTab[i].ToolTipText(), tabs[i].caption);
        EXPECT_EQ(form.frmSp[i].Index(), i);
    }
}

TEST_F(MenusOfForm1, TheInnerTabsHaveTheirCaptionsAndOneToolTip) {
    const char* const captions[] = {"Programs", "Path/Space/Types", "Files"};
    ASSERT_EQ(form.lblSpectab.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(form.lblSpectab[i].Caption(), captions[i]);
        EXPECT_EQ(form.lblSpectab[i].ToolTipText(), "Specified Options (Files, Paths...)");
        EXPECT_EQ(form.fr[i].Index(), i);
    }
}

TEST_F(MenusOfForm1, TheButtonsHaveTheirTexts) {
    EXPECT_EQ(form.Caption(), "Velmora");
    EXPECT_EQ(form.cmdAdv.Caption(), "Adv. Data");
    EXPECT_EQ(form.Command1.Caption(), "Show/Refresh Drive(s)");
    EXPECT_EQ(form.Command6.Caption(), " (X)");
    EXPECT_EQ(form.Command6.ToolTipText(), "End Program");
    EXPECT_EQ(form.Command8.Caption(), "Save Set");
}

TEST_F(MenusOfForm1, LabelButtonsBeginOrange) {
    for (const Label& label : form.Label5) EXPECT_EQ(label.ForeColor(), 33023u);
    for (const Label& label : form.lblDP) EXPECT_EQ(label.ForeColor(), 33023u);
    for (const Label& label : form.lblSF) EXPECT_EQ(label.ForeColor(), 33023u);
    for (const Label& label : form.lblAl) EXPECT_EQ(label.ForeColor(), 33023u);
}

TEST_F(MenusOfForm1, TheToolBarHoldsThreeEntriesOfAButtonMenu) {
    std::vector<std::string> entries;
    for (int i = 1; i <= form.Toolbar1.ButtonCount(); ++i) {
        for (const auto& entry : form.Toolbar1.Buttons(i).ButtonMenus) {
            entries.push_back(entry.Key + "=" + entry.Text);
        }
    }
    EXPECT_EQ(entries, (std::vector<std::string>{"Defrag=Defrag Utility", "Recycle=Recycle Bin",
                                                 "Work=Work"}));
}

TEST_F(MenusOfForm1, MenusAreNotInAMenuBarAndTheirItemsAreVisible) {
    for (const MenuItem* menu : {&form.mnuPopUp, &form.mnuLstV, &form.mnuFunc, &form.mnuLst}) {
        EXPECT_FALSE(menu->Visible()) << menu->Name();
        for (const MenuItem* item : menu->items()) EXPECT_TRUE(item->Visible()) << item->Name();
    }
}

TEST_F(MenusOfForm1, TheStripsBeginInTheirNormalColours) {
    for (const Label& tab : form.lblTab) {
        EXPECT_EQ(tab.BackColor(), 0x400000u);
        EXPECT_EQ(tab.ForeColor(), 0xC0C0C0u);
    }
    for (const Label& tab : form.lblSpectab) {
        EXPECT_EQ(tab.BackColor(), 0xE0E0E0u);
        EXPECT_EQ(tab.ForeColor(), 0x400000u);
    }
}

}  // namespace
}  // namespace velmora::tests
