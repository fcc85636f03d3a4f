// Everything can be reached and done by the keyboard, and says what it is.
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <map>
#include <set>
#include <tuple>

#include "qt/window_test.h"

namespace velmora::tests {
namespace {

struct Page {
    std::string form;
    std::function<void()> show;
};

struct KeyboardTest : WindowTest {
    KeyboardTest() {
        start();
        window()->resize(1000, 800);
        form1().ListView1.userSelect({1});
        settle();
    }

    std::vector<Page> pages() {
        std::vector<Page> all;
        for (int tab = 0; tab < 5; ++tab) {
            for (int inner = 0; inner < (tab == 0 ? 3 : 1); ++inner) {
                all.push_back({"Form1", [this, tab, inner] {
                                   click(QStringLiteral("lblTab(%1)").arg(tab));
                                   if (tab == 0) click(QStringLiteral("lblSpectab(%1)").arg(inner));
                               }});
            }
        }
        Forms& forms = program->forms();
        for (Form* form : std::initializer_list<Form*>{&forms.frmLock, &forms.frmAbout,
                                                       &forms.dlgAlert, &forms.icon0, &forms.icon1,
                                                       &forms.frmIndDri, &forms.dlgDriveInfo}) {
            all.push_back({form->Name(), [form] { form->Show(); }});
        }
        for (Label& step : forms.frmWizard.lblStep) {
            all.push_back({"frmWizard", [&step] {
                               step.form().Show();
                               step.userClick();
                           }});
        }
        for (int page = 0; page < 4; ++page) {
            all.push_back({"frmNotify", [this, page] {
                               program->forms().frmNotify.Show();
                               find<QTabWidget>("TabStrip1", "frmNotify")->setCurrentIndex(page);
                           }});
        }
        return all;
    }

    QWidget* show(const Page& page) {
        page.show();
        settle();
        QWidget* shown = program->window(page.form);
        shown->activateWindow();
        settle();
        return shown;
    }

    /// Windows of several pages stay: shown anew, a window isn't activated here.
    static void closeUnlessPaged(const Page& page, QWidget* shown) {
        if (page.form == "Form1" || page.form == "frmNotify" || page.form == "frmWizard") return;
        shown->close();
        settle();
    }

    static bool takesTab(const QWidget* widget) {
        return widget->isVisible() && widget->isEnabled() &&
               (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->focusProxy() == nullptr;
    }
    static std::vector<QWidget*> focusable(QWidget* window) {
        std::vector<QWidget*> all;
        for (QWidget* widget : window->findChildren<QWidget*>()) {
            if (widget->window() == window && takesTab(widget)) all.push_back(widget);
        }
        return all;
    }
    /// Parts of widgets, which have no field of their own.
    static bool isPart(const QWidget* widget) {
        return qobject_cast<const QTabBar*>(widget) != nullptr ||
               qobject_cast<const QComboBox*>(widget->parentWidget()) != nullptr ||
               qobject_cast<const QAbstractSpinBox*>(widget->parentWidget()) != nullptr;
    }
    static std::string nameOf(const QWidget* widget) { return widget->objectName().toStdString(); }

    /// The field of a widget's name, without the name or the number of a part.
    bool isField(Form& form, QString name) {
        name = name.section('.', 0, 0);
        int index = -1;
        const QString base = name.section('(', 0, 0);
        if (name.endsWith(')')) index = name.section('(', 1).chopped(1).toInt();
        if (Control* control = form.find(base.toStdString(), index)) return control != nullptr;
        return form.find(base.toStdString()) != nullptr;  // a button of the tool bar
    }
};

std::string describe(const QWidget* widget) {
    return std::string(widget->metaObject()->className()) + " " +
           widget->objectName().toStdString();
}

TEST_F(KeyboardTest, EveryWidgetThatTakesTheKeyboardIsAFieldAndSaysItsName) {
    for (const Page& page : pages()) {
        QWidget* shown = show(page);
        for (QWidget* widget : focusable(shown)) {
            if (isPart(widget) || widget->objectName() == "TabStrip1") continue;
            const bool isPage = qobject_cast<QAbstractScrollArea*>(widget) != nullptr &&
                                widget->objectName().isEmpty();
            EXPECT_TRUE(isPage || isField(*program->forms().find(page.form), widget->objectName()))
                << page.form << ": " << describe(widget);
            QAccessibleInterface* found = QAccessible::queryAccessibleInterface(widget);
            ASSERT_NE(found, nullptr);
            const QString name = found->text(QAccessible::Name);
            EXPECT_FALSE(name.trimmed().isEmpty()) << page.form << ": " << describe(widget);
            EXPECT_NE(name, widget->objectName());
        }
        closeUnlessPaged(page, shown);
    }
}

TEST_F(KeyboardTest, TabReachesEveryWidgetOfAPageAndLeavesItAgain) {
    for (const Page& page : pages()) {
        QWidget* shown = show(page);
        const std::vector<QWidget*> all = focusable(shown);
        if (all.empty()) continue;
        ASSERT_EQ(QApplication::activeWindow(), shown) << page.form;
        all.front()->setFocus();
        std::set<QWidget*> reached;
        for (std::size_t i = 0; i < 2 * all.size() + 2; ++i) {
            QWidget* at = QApplication::focusWidget();
            ASSERT_NE(at, nullptr) << page.form;
            reached.insert(at);
            QTest::keyClick(at, Qt::Key_Tab);
        }
        for (QWidget* widget : all) {
            if (qobject_cast<QLineEdit*>(widget) != nullptr && isPart(widget)) continue;
            EXPECT_TRUE(reached.contains(widget)) << page.form << ": " << describe(widget);
        }
        closeUnlessPaged(page, shown);
    }
}

TEST_F(KeyboardTest, EscapeClosesTheSmallWindowsFromWhereverTheKeyboardIs) {
    for (const Page& page : pages()) {
        QWidget* shown = show(page);
        if (page.form == "Form1") {
            QTest::keyClick(shown, Qt::Key_Escape);
            settle();
            EXPECT_TRUE(shown->isVisible());
            continue;
        }
        const std::vector<QWidget*> all = focusable(shown);
        for (std::size_t i = 0; i <= all.size(); ++i) {
            show(page);
            ASSERT_TRUE(shown->isVisible()) << page.form;
            QWidget* at = i < all.size() ? all[i] : shown;
            at->setFocus();
            QTest::keyClick(at, Qt::Key_Escape);
            settle();
            EXPECT_FALSE(shown->isVisible()) << page.form << ": " << describe(at);
            EXPECT_FALSE(program->forms().find(page.form)->Visible()) << page.form;
            shown->close();
            settle();
        }
    }
    EXPECT_TRUE(boxes.seen.empty());
}

// So few that a page is left in a moment; what belongs together is one stop.
TEST_F(KeyboardTest, NoPageHasManyStops) {
    constexpr std::size_t most = 24;
    for (int i = 1; i <= form1().ListView1.Count(); ++i) form1().ListView1.userTick(i, true);
    form1().chkCustTime.setValue(1);
    form1().cboFile.AddItem("C:\\a");
    for (const Page& page : pages()) {
        const std::vector<QWidget*> stops = focusable(show(page));
        std::string names;
        for (const QWidget* stop : stops) names += nameOf(stop) + " ";
        EXPECT_LE(stops.size(), most) << names;
        EXPECT_GE(stops.size(), page.form == "Form1" ? 6u : 1u) << names;
    }
}

TEST_F(KeyboardTest, TheArrowKeysReachWhatTheTabKeyPassesOver) {
    for (const Page& page : pages()) {
        if (page.form != "Form1") continue;
        QWidget* shown = show(page);
        std::set<QWidget*> reached;
        for (QWidget* stop : focusable(shown)) {
            if (qobject_cast<QAbstractButton*>(stop) == nullptr) continue;
            if (stop->objectName().contains("Tab(") || stop->objectName().contains("tab("))
                continue;
            stop->setFocus();
            QTest::keyClick(stop, Qt::Key_Home);
            for (int i = 0; i < 12; ++i) {
                reached.insert(QApplication::focusWidget());
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
            }
        }
        for (QAbstractButton* button : shown->findChildren<QAbstractButton*>()) {
            const bool isTab = button->objectName().contains("tab(", Qt::CaseInsensitive);
            if (!button->isVisible() || !button->isEnabled() || isTab) continue;
            if (button->focusPolicy() == Qt::NoFocus || isPart(button)) continue;
            EXPECT_TRUE(reached.contains(button)) << describe(button);
        }
    }
}

TEST_F(KeyboardTest, ArrowsGoAlongTheToolBarAndStayAtItsEnds) {
    window()->activateWindow();
    find("Toolbar1(1)")->setFocus();
    const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    const auto at = [] { return nameOf(QApplication::focusWidget()); };
    press(Qt::Key_Right);
    EXPECT_EQ(at(), "Toolbar1(2)");
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_EQ(at(), "Toolbar1(1)");
    press(Qt::Key_End);
    EXPECT_EQ(at(), "Command6");
    press(Qt::Key_Right);
    EXPECT_EQ(at(), "Command6");
    press(Qt::Key_Home);
    EXPECT_EQ(at(), "Toolbar1(1)");
    // The last one is the stop.
    press(Qt::Key_Right);
    press(Qt::Key_Tab);
    EXPECT_FALSE(at().starts_with("Toolbar1"));
    press(Qt::Key_Backtab);
    EXPECT_EQ(at(), "Toolbar1(2)");
}

TEST_F(KeyboardTest, AMemberThatIsDisabledOrHiddenIsPassedOver) {
    window()->activateWindow();
    find("lblDP(1)")->setFocus();
    form1().lblDP[2].setEnabled(false);
    form1().lblDP[3].setVisible(false);
    settle();
    QTest::keyClick(find("lblDP(1)"), Qt::Key_Right);
    EXPECT_EQ(nameOf(QApplication::focusWidget()), "lblDP(4)");
    form1().lblDP[4].setVisible(false);
    settle();
    int stops = 0;
    for (QWidget* widget : focusable(window()))
        stops += nameOf(widget).starts_with("lblDP") ? 1 : 0;
    EXPECT_EQ(stops, 1);
}

TEST_F(KeyboardTest, TheArrowKeysChangeThePageOfATabStrip) {
    window()->activateWindow();
    click("lblTab(0)");
    find("lblTab(0)")->setFocus();
    const auto press = [this](Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
        settle();
    };
    press(Qt::Key_Down);
    EXPECT_EQ(nameOf(QApplication::focusWidget()), "lblTab(1)");
    EXPECT_TRUE(find("frmSp(1)")->isVisible());
    press(Qt::Key_Right);
    EXPECT_TRUE(find("frmSp(3)")->isVisible());
    press(Qt::Key_Up);
    EXPECT_TRUE(find("frmSp(1)")->isVisible());
    press(Qt::Key_End);
    EXPECT_TRUE(find("frmSp(4)")->isVisible());
    press(Qt::Key_Down);
    EXPECT_TRUE(find("frmSp(4)")->isVisible());
    press(Qt::Key_Home);
    EXPECT_TRUE(find("frmSp(0)")->isVisible());

    click("lblSpectab(0)");
    find("lblSpectab(0)")->setFocus();
    press(Qt::Key_Right);
    EXPECT_TRUE(find("fr(1)")->isVisible());
    press(Qt::Key_End);
    EXPECT_TRUE(find("fr(2)")->isVisible());
    press(Qt::Key_Left);
    EXPECT_TRUE(find("fr(1)")->isVisible());
}

TEST_F(KeyboardTest, TheTabKeyReachesTheSelectedTabOnly) {
    const auto stops = [this] {
        std::string names;
        for (QWidget* widget : focusable(window())) {
            if (nameOf(widget).starts_with("lblTab")) names += nameOf(widget);
        }
        return names;
    };
    click("lblTab(3)");
    EXPECT_EQ(stops(), "lblTab(3)");
    // Also when the program selects another.
    form1().lblTab[1].Click();
    settle();
    EXPECT_EQ(stops(), "lblTab(1)");
}

TEST_F(KeyboardTest, TheMailSettingsTabsChangeByKey) {
    QWidget* shown = show({"frmNotify", [this] { program->forms().frmNotify.Show(); }});
    auto* tabs = find<QTabWidget>("TabStrip1", "frmNotify");
    TabStrip& strip = program->forms().frmNotify.TabStrip1;
    shown->activateWindow();
    tabs->tabBar()->setFocus();
    QTest::keyClick(tabs->tabBar(), Qt::Key_Right);
    EXPECT_EQ(strip.SelectedItem(), 2);
    QTest::keyClick(tabs->tabBar(), Qt::Key_End);
    EXPECT_EQ(strip.SelectedItem(), 4);
    QTest::keyClick(tabs->tabBar(), Qt::Key_Home);
    EXPECT_EQ(strip.SelectedItem(), 1);
}

TEST_F(KeyboardTest, UpAndDownTurnASpinner) {
    click("lblTab(1)");
    form1().txtTime.setText("60");
    QWidget* arrows = find("UpDown1");
    arrows->setFocus();
    QTest::keyClick(arrows, Qt::Key_Up);
    EXPECT_EQ(form1().txtTime.Text(), "61");
    QTest::keyClick(arrows, Qt::Key_Down);
    QTest::keyClick(arrows, Qt::Key_Down);
    EXPECT_EQ(form1().txtTime.Text(), "59");
}

TEST_F(KeyboardTest, F1AsksForHelpInEveryWindow) {
    for (const Page& page : pages()) {
        QWidget* shown = show(page);
        const std::size_t before = boxes.seen.size();
        boxes.answers = {QMessageBox::No};
        QWidget* at = QApplication::focusWidget();
        QTest::keyClick(at == nullptr ? shown : at, Qt::Key_F1);
        settle();
        EXPECT_EQ(boxes.seen.size(), before + 1) << page.form;
        EXPECT_TRUE(boxes.lastText().starts_with("We recommend viewing an updated help section"));
        if (page.form != "Form1") shown->close();
        settle();
    }
}

// An item that only opens a menu has no key.
void expectKeys(QMenu* menu, std::map<QString, QStringList>& items) {
    for (QAction* action : menu->actions()) {
        if (action->isSeparator()) continue;
        if (action->menu() != nullptr) {
            expectKeys(action->menu(), items);
        } else {
            const QString keys = action->shortcut().toString();
            EXPECT_FALSE(keys.isEmpty()) << action->objectName().toStdString();
            items[keys] << action->objectName();
        }
    }
}

TEST_F(KeyboardTest, EveryCommandOfAMenuShowsItsKeys) {
    std::map<QString, QStringList> items;
    for (const char* name : {"mnuPopUp", "mnuLstV", "mnuFunc", "mnuLst"}) {
        expectKeys(menu(name), items);
    }
    for (const auto& [keys, names] : items) {
        // The same command twice, and the same keys for two lists.
        const bool isShared = keys == "F8" || keys == "Alt+Return";
        EXPECT_EQ(names.size(), isShared ? 2 : 1) << names.join(" ").toStdString();
    }
}

TEST_F(KeyboardTest, TheKeysOfTheMenusRunTheirItems) {
    const auto press = [this](Qt::Key key, Qt::KeyboardModifiers with) {
        window()->activateWindow();
        list()->setFocus();
        settle();
        QTest::keyClick(list(), key, with);
        settle();
    };
    const std::vector<std::tuple<MenuItem*, Qt::Key, Qt::KeyboardModifiers>> keys{
        {&form1().mnuContent, Qt::Key_F1, Qt::ControlModifier},
        {&form1().mnuAbout, Qt::Key_F1, Qt::ShiftModifier},
        {&form1().mnuPWP, Qt::Key_U, Qt::ControlModifier},
        {&form1().mnuExplore, Qt::Key_E, Qt::ControlModifier},
        {&form1().mnuParam, Qt::Key_P, Qt::ControlModifier},
        {&form1().mnuInfo, Qt::Key_Return, Qt::AltModifier},
        {&form1().mnuShowAlert, Qt::Key_F8, Qt::NoModifier},
        {&form1().mnuNotif, Qt::Key_N, Qt::ControlModifier},
        {&form1().mnuSorbane, Qt::Key_K, Qt::ControlModifier | Qt::ShiftModifier},
        {&form1().mnuStayOnTop, Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier},
        {&form1().mnuFadeN, Qt::Key_F9, Qt::ControlModifier},
    };
    for (const auto& [item, key, with] : keys) {
        int runs = 0;
        const ScopedConnection counted = item->Click.connect([&runs] { ++runs; });
        press(key, with);
        EXPECT_EQ(runs, 1) << item->Name();
    }
}

TEST_F(KeyboardTest, F6PausesAndStartsOnce) {
    window()->activateWindow();
    list()->setFocus();
    settle();
    QTest::keyClick(list(), Qt::Key_F6);
    EXPECT_EQ(form1().cmdPause.Caption(), "Pause Watch");
    QTest::keyClick(list(), Qt::Key_F6);
    EXPECT_EQ(form1().cmdPause.Caption(), "Start Watch");
}

TEST_F(KeyboardTest, DeleteRemovesTheRowsOfTheListThatHasTheFocusOnly) {
    window()->activateWindow();
    clickCell(1);
    clickCell(3, Qt::ControlModifier);
    click("lblTab(3)");
    find("txtAudio(0)")->setFocus();
    QTest::keyClick(find("txtAudio(0)"), Qt::Key_Delete);
    settle();
    EXPECT_EQ(form1().ListView1.Count(), 3);
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Delete);
    settle();
    ASSERT_EQ(form1().ListView1.Count(), 1);
    EXPECT_EQ(form1().ListView1.ListItems(1).Text(), "D:\\");
}

TEST_F(KeyboardTest, DeleteTakesAFileOffItsListAndLeavesItWhereItIs) {
    machine.files["C:\\a.txt"] = "x";
    form1().LVFile.userDrop({"C:\\a.txt"});
    click("lblTab(0)");
    click("lblSpectab(2)");
    auto* files = find<qt::ListViewWidget>("LVFile");
    window()->activateWindow();
    files->setFocus();
    form1().LVFile.userSelect({1});
    settle();
    QTest::keyClick(files, Qt::Key_Delete);
    settle();
    EXPECT_EQ(form1().LVFile.Count(), 0);
    EXPECT_TRUE(machine.files.contains("C:\\a.txt"));
}

TEST_F(KeyboardTest, InsertAddsAPathToTheWatchList) {
    machine.browsed = {"C:\\Users"};
    machine.folders.insert("c:\\users");
    window()->activateWindow();
    list()->setFocus();
    settle();
    QTest::keyClick(list(), Qt::Key_Insert);
    settle();
    ASSERT_EQ(form1().ListView1.Count(), 4);
    EXPECT_EQ(form1().ListView1.ListItems(4).Text(), "C:\\Users");
}

TEST_F(KeyboardTest, ControlAndADigitChangeThePage) {
    window()->activateWindow();
    list()->setFocus();
    settle();
    QTest::keyClick(list(), Qt::Key_5, Qt::ControlModifier);
    settle();
    EXPECT_TRUE(find("frmSp(4)")->isVisible());
    QTest::keyClick(list(), Qt::Key_3, Qt::ControlModifier);
    settle();
    EXPECT_TRUE(find("frmSp(3)")->isVisible());
}

TEST_F(KeyboardTest, TheWatchListHasTheKeyboardWhenTheWindowComes) {
    ASSERT_NE(window()->focusWidget(), nullptr);
    EXPECT_EQ(nameOf(window()->focusWidget()), "ListView1");
}

TEST_F(KeyboardTest, TheLocksEntryHasTheKeyboardWhenTheWindowComes) {
    show({"frmLock", [this] { program->forms().frmLock.Show(); }});
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(nameOf(QApplication::focusWidget()), "Text1");
}

TEST_F(KeyboardTest, DefaultButtonsAnswerTheEnterKey) {
    QWidget* about = show({"frmAbout", [this] { program->forms().frmAbout.Show(); }});
    QTest::keyClick(QApplication::focusWidget() == nullptr ? about : QApplication::focusWidget(),
                    Qt::Key_Return);
    settle();
    EXPECT_FALSE(about->isVisible());
}

}  // namespace
}  // namespace velmora::tests
