// Everything can be reached and done by the keyboard, and says what it is.
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <set>

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
        for (Form* form : std::initializer_list<Form*>{
                 &forms.frmLock, &forms.frmAbout, &forms.dlgAlert, &forms.icon0, &forms.icon1,
                 &forms.frmIndDri, &forms.dlgDriveInfo, &forms.frmWizard}) {
            all.push_back({form->Name(), [form] { form->Show(); }});
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
        if (page.form != "Form1" && page.form != "frmNotify") {
            shown->close();
            settle();
        }
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
        if (page.form != "Form1" && page.form != "frmNotify") {
            shown->close();
            settle();
        }
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
