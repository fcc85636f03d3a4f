// Every command of the window has its effect, in the wired program.
#include "qt/window_test.h"
#include "rows/alert_row.h"

namespace velmora::tests {
namespace {

struct CommandsTest : WindowTest {
    CommandsTest() { start(); }

    /// The last order to the system's shell: verb, file and parameters.
    std::string order() {
        if (machine.executed.empty()) return {};
        const fake::FakeExecution& last = machine.executed.back();
        std::string text = last.verb + " " + last.file;
        if (!last.parameters.empty()) text += " " + last.parameters;
        return text;
    }
    bool shows(const std::string& form) {
        QWidget* shown = program->window(form);
        return shown != nullptr && shown->isVisible();
    }
};

TEST_F(CommandsTest, TheToolBar) {
    click("Toolbar1(2)");
    EXPECT_TRUE(shows("frmWizard"));
    click("Toolbar1(3)");
    EXPECT_TRUE(shows("dlgDriveInfo"));
    click("Toolbar1(1)");
    EXPECT_EQ(form1().Caption(), "Velmora - Watching Activated");
    EXPECT_EQ(window()->windowTitle(), "Velmora - Watching Activated");
    click("Toolbar1(1)");
    EXPECT_EQ(window()->windowTitle(), "Velmora - Watching Paused.");
}

TEST_F(CommandsTest, HelpAsksForThePageOrOpensTheFile) {
    boxes.answers = {QMessageBox::Yes};
    click("Toolbar1(6)");
    EXPECT_TRUE(order().ends_with("/velmora/help")) << order();
    boxes.answers = {QMessageBox::No};
    click("Toolbar1(6)");
    EXPECT_TRUE(order().starts_with("open C:\\Program Files\\Velmora\\")) << order();
    EXPECT_EQ(boxes.seen.back().icon, QMessageBox::Question);
}

TEST_F(CommandsTest, FunctionsOfTheSystem) {
    machine.environment["windir"] = "C:\\Windows";
    chooseFunction("mnuRecyc");
    EXPECT_EQ(order(), "open Explorer ::{645FF040-5081-101B-9F08-00AA002F954E}");
    chooseFunction("mnuDefrag");
    EXPECT_EQ(order(), "open C:\\Windows\\system32\\dfrg.msc");
    chooseFunction("mnuCleaner");
    EXPECT_TRUE(order().starts_with("open cleanmgr")) << order();
    const std::size_t before = machine.executed.size();
    chooseFunction("mnuSorbane");
    EXPECT_EQ(machine.executed.size(), before);

    chooseFunction("mnuEmptyRecyc");
    EXPECT_EQ(machine.emptied.size(), 1u);
    ASSERT_EQ(form1().LVAlert.Count(), 1);
    EXPECT_EQ(form1().LVAlert.ListItems(1).Text(), "Medium");
    EXPECT_EQ(ConstAlertRow(form1().LVAlert.ListItems(1)).time(), "20260314 15:09:26");
}

TEST_F(CommandsTest, FunctionsOfTheProgramsWindows) {
    chooseFunction("mnuNotif");
    EXPECT_TRUE(shows("frmNotify"));
    chooseFunction("mnuShowAlert");
    EXPECT_TRUE(shows("dlgAlert"));
    program->window("dlgAlert")->close();
    settle();
    EXPECT_FALSE(shows("dlgAlert"));
    chooseFromIcon("mnuShowAl");
    EXPECT_TRUE(shows("dlgAlert"));
    chooseFunction("mnuToSystray");
    EXPECT_TRUE(!window()->isVisible() || window()->isMinimized());
}

TEST_F(CommandsTest, ToSystrayAddsTheIconThatIsMissing) {
    click("lblTab(3)");
    click("chkSystray");
    ASSERT_EQ(icon(), nullptr);
    chooseFunction("mnuToSystray");
    EXPECT_NE(icon(), nullptr);
}

TEST_F(CommandsTest, TheIconsMenu) {
    chooseFromIcon("mnuLock");
    EXPECT_TRUE(shows("frmLock"));
    chooseFromIcon("mnuPause");  // from "Start": starts, and the button offers "Pause"
    EXPECT_EQ(form1().cmdPause.Caption(), "Pause Watch");
    EXPECT_EQ(form1().Toolbar1.Buttons(1).Caption, "Pause");
    chooseFromIcon("mnuPause");
    EXPECT_EQ(form1().cmdPause.Caption(), "Start Watch");
}

TEST_F(CommandsTest, TheMenuOfHelp) {
    chooseFromIcon("mnuContent");
    EXPECT_TRUE(order().ends_with("/velmora/help")) << order();
    chooseFromIcon("mnuPWP");
    EXPECT_TRUE(order().ends_with("/velmora/")) << order();
    chooseFromIcon("mnuComments");
    EXPECT_TRUE(order().starts_with("open mailto:")) << order();
    chooseFromIcon("mnuAbout");
    EXPECT_TRUE(shows("frmAbout"));
}

TEST_F(CommandsTest, TheMenuOfTheWatchList) {
    const auto chooseForRow = [this](const QString& item) {
        QTest::mouseClick(list()->viewport(), Qt::RightButton, {}, cell(2));
        settle();
        choose(menu("mnuLstV"), item);
    };
    chooseForRow("mnuExplore");
    EXPECT_EQ(order(), "explore D:\\");
    chooseForRow("mnuInfo");
    EXPECT_EQ(order(), "properties D:\\");
    chooseForRow("mnuParam");
    EXPECT_TRUE(shows("frmIndDri"));
    chooseForRow("mnuRemove");
    EXPECT_EQ(form1().ListView1.Count(), 2);
    EXPECT_EQ(form1().ListView1.ListItems(2).Text(), "E:\\");
}

TEST_F(CommandsTest, TheButtonsOfTheOverview) {
    click("lblTab(4)");
    click("cmdAdv");
    EXPECT_TRUE(shows("dlgDriveInfo"));
    click("lblAbout");
    ASSERT_TRUE(shows("frmAbout"));
    const int turned = program->forms().frmAbout.prcDraw.Value();
    machine.advance(40);
    program->timers().fireDue();
    EXPECT_NE(program->forms().frmAbout.prcDraw.Value(), turned);
    click("cmdOK", "frmAbout");
    EXPECT_FALSE(shows("frmAbout"));
}

TEST_F(CommandsTest, SavingComesBeforeTheAboutBox) {
    const std::string path = "C:\\Program Files\\Velmora\\set.dat";
    const std::string before = machine.files[path];
    std::string whenShown;
    program->forms().frmAbout.Load.connect([&] { whenShown = machine.files[path]; });
    click("lblTab(3)");
    click("Command8");
    EXPECT_TRUE(shows("frmAbout"));
    EXPECT_NE(whenShown, before);
    EXPECT_EQ(whenShown, machine.files[path]);
}

TEST_F(CommandsTest, WhatCantBeSavedShowsNoAboutBox) {
    machine.lockedFiles["C:\\Program Files\\Velmora\\set.dat"] = 70;
    boxes.answers = {QMessageBox::Ok};
    click("lblTab(3)");
    runUntilEnded([this] {
        click("Command8");
        if (!ended) QApplication::exit(0);
    });
    EXPECT_EQ(boxes.seen.size(), 1u);
    EXPECT_EQ(shows("frmAbout"), !ended.has_value());
}

TEST_F(CommandsTest, AddingAPathAsksForAFolder) {
    machine.browsed = {"C:\\Users"};
    machine.folders.insert("c:\\users");
    click("lblDP(0)");
    ASSERT_EQ(form1().ListView1.Count(), 4);
    EXPECT_EQ(form1().ListView1.ListItems(4).Text(), "C:\\Users");
    ASSERT_EQ(machine.browsers.size(), 1u);
    EXPECT_EQ(list()->model()->rowCount(), 4);
}

TEST_F(CommandsTest, ClearingAsksFirst) {
    boxes.answers = {QMessageBox::No};
    click("lblDP(2)");
    EXPECT_EQ(form1().ListView1.Count(), 3);
    boxes.answers = {QMessageBox::Yes};
    click("lblDP(2)");
    EXPECT_EQ(list()->model()->rowCount(), 0);
    boxes.answers = {QMessageBox::Ok};
    click("lblDP(2)");
    EXPECT_EQ(boxes.lastText(), "No drives listed to clear.");
}

TEST_F(CommandsTest, AnAlertsWindowIsInTheLowerRightCorner) {
    form1().cmdPause.Click();
    program->forms().dlgAlert.moveTo(300 * 15, 200 * 15);
    program->forms().dlgAlert.Show();
    settle();
    QWidget* dialog = program->window("dlgAlert");
    // The form is 480 by 280 pixels; the window may be larger, but its corner is the form's.
    EXPECT_EQ(dialog->frameGeometry().right() + 1, 300 + 480);
    EXPECT_EQ(dialog->frameGeometry().bottom() + 1, 200 + 280);
}

}  // namespace
}  // namespace velmora::tests
