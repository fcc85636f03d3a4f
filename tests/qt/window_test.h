// The wired program with its window, whose widgets, menus and boxes are clicked.
#pragma once

#include <QAction>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

#include "qt/box_hand.h"
#include "qt/window_rig.h"

namespace velmora::tests {

struct WindowTest : testing::Test, WindowRig {
    BoxHand boxes;

    QMenu* menu(const QString& name) { return window()->findChild<QMenu*>(name); }
    QAction* action(const QString& name) { return window()->findChild<QAction*>(name); }

    static void clickIn(QMenu* menu, QAction* item) {
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(item).center());
        settle();
    }

    /// Clicks an item of a menu that is open, also one of a menu below it.
    void choose(QMenu* menu, const QString& item) {
        ASSERT_NE(menu, nullptr);
        ASSERT_TRUE(menu->isVisible()) << menu->objectName().toStdString();
        QAction* chosen = action(item);
        ASSERT_NE(chosen, nullptr) << item.toStdString();
        auto* owner = qobject_cast<QMenu*>(chosen->parent());
        if (owner != menu) {
            // By the key: the mouse would have to rest on the item for a while.
            menu->setActiveAction(owner->menuAction());
            QTest::keyClick(menu, Qt::Key_Right);
            settle();
        }
        ASSERT_TRUE(owner->isVisible()) << item.toStdString();
        clickIn(owner, chosen);
    }

    /// Opens the tool bar's menu and clicks an item.
    void chooseFunction(const QString& item) {
        click("Toolbar1(4)");
        choose(menu("mnuFunc"), item);
    }

    /// Opens the menu of the icon in the notification area and clicks an item.
    void chooseFromIcon(const QString& item) {
        onIcon(QSystemTrayIcon::Context);
        choose(menu("mnuPopUp"), item);
    }

    QSystemTrayIcon* icon() { return program->notifyArea().iconOf("sysWorkSystray"); }
    void onIcon(QSystemTrayIcon::ActivationReason reason) {
        ASSERT_NE(icon(), nullptr);
        emit icon()->activated(reason);
        settle();
    }

    qt::ListViewWidget* list() { return find<qt::ListViewWidget>("ListView1"); }
    /// The middle of a cell; both count from 1.
    QPoint cell(int row, int column = 1, qt::ListViewWidget* of = nullptr) {
        qt::ListViewWidget* view = of == nullptr ? list() : of;
        return view->visualRect(view->model()->index(row - 1, column - 1)).center();
    }
    void clickCell(int row, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, keys, cell(row));
        settle();
    }
    std::vector<int> selectedRows() {
        std::vector<int> rows;
        for (int i = 1; i <= form1().ListView1.Count(); ++i) {
            if (form1().ListView1.ListItems(i).Selected()) rows.push_back(i);
        }
        return rows;
    }

    /// Makes every tick of the timer a check.
    void checkAtEachTick() {
        DateTime none = form1().DTPInterval.Value();
        none.hour = none.minute = none.second = 0;
        form1().DTPInterval.setValue(none);
        settle();
    }
    /// Lets the timer of the check fire.
    void tick() {
        machine.advance(10'000);
        program->timers().fireDue();
        settle();
    }
    /// Runs a check in the middle of which `what` happens, as an event.
    void duringCheck(std::function<void()> what) {
        for (int i = 1; i <= form1().ListView1.Count(); ++i) form1().ListView1.userTick(i, true);
        checkAtEachTick();
        bool queued = false;
        machine.onCall = [&](const std::string& call) {
            if (!call.starts_with("IsReady")) return;
            if (!std::exchange(queued, true)) {
                QMetaObject::invokeMethod(qApp, std::move(what), Qt::QueuedConnection);
            }
            burn(20);
        };
        tick();
        machine.onCall = {};
        EXPECT_TRUE(queued);
    }

    /// Keeps the processor busy, as a slow drive does.
    static void burn(int milliseconds) {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < milliseconds) {
        }
    }

    /// Runs `what` within the application's own loop, as in the running program, until the program
    /// ends. Gives the loop's result.
    int runUntilEnded(std::function<void()> what) {
        QObject context;
        QTimer::singleShot(0, &context, std::move(what));
        QTimer::singleShot(20'000, &context, [] {
            ADD_FAILURE() << "the program goes on";
            QApplication::exit(-1);
        });
        return QApplication::exec();
    }
};

}  // namespace velmora::tests
