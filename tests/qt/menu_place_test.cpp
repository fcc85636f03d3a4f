// Menus open at what the user has used, wherever the pointer is.
#include "qt/surface/menu_place.h"

#include <QContextMenuEvent>
#include <QScreen>

#include "qt/window_test.h"

namespace velmora::tests {
namespace {

const QRect smallScreen(100, 50, 800, 600);
const QSize aMenu(200, 300);

TEST(BesideAnchor, AMenuOpensBelowWithItsLeftEdge) {
    EXPECT_EQ(qt::besideAnchor(QRect(150, 80, 60, 20), aMenu, smallScreen), QPoint(150, 100));
}

TEST(BesideAnchor, WhereTheScreenEndsItOpensAbove) {
    // Below it would end at 770 of 650.
    EXPECT_EQ(qt::besideAnchor(QRect(150, 450, 60, 20), aMenu, smallScreen), QPoint(150, 150));
    // It fits to the pixel: 350 and 300 are 650. One more, and there is no room above either.
    EXPECT_EQ(qt::besideAnchor(QRect(150, 330, 60, 20), aMenu, smallScreen), QPoint(150, 350));
    EXPECT_EQ(qt::besideAnchor(QRect(150, 331, 60, 20), aMenu, smallScreen), QPoint(150, 50));
}

TEST(BesideAnchor, ItNeverLeavesTheScreen) {
    EXPECT_EQ(qt::besideAnchor(QRect(880, 80, 60, 20), aMenu, smallScreen).x(), 700);
    EXPECT_EQ(qt::besideAnchor(QRect(20, 80, 60, 20), aMenu, smallScreen).x(), 100);
    EXPECT_EQ(qt::besideAnchor(QRect(150, 300, 60, 20), QSize(200, 500), smallScreen).y(), 50);
}

struct MenuPlaceTest : WindowTest {
    MenuPlaceTest() {
        start();
        window()->move(20, 20);
        settle();
        QCursor::setPos(farAway);
    }
    ~MenuPlaceTest() override {
        for (const char* name : {"mnuFunc", "mnuPopUp", "mnuLstV"}) menu(name)->hide();
    }
    static QPoint below(const QWidget* widget) {
        return widget->mapToGlobal(QPoint(0, widget->height()));
    }
    void openByKey(QWidget* widget) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, farAway);
        QApplication::sendEvent(widget, &event);
        settle();
    }
    QPoint rowBelow(int row) {
        const QRect place = list()->visualRect(list()->model()->index(row - 1, 0));
        return list()->viewport()->mapToGlobal(QPoint(place.left(), place.bottom() + 1));
    }

    const QPoint farAway{780, 10};
};

TEST_F(MenuPlaceTest, OfTheToolBarBelowItsButton) {
    find<QToolButton>("Toolbar1(4)")->click();
    settle();
    ASSERT_TRUE(menu("mnuFunc")->isVisible());
    EXPECT_EQ(menu("mnuFunc")->pos(), below(find("Toolbar1(4)")));
}

TEST_F(MenuPlaceTest, OfTheMenuButtonBelowIt) {
    find<QToolButton>("mnuPopUp.Button")->click();
    settle();
    ASSERT_TRUE(menu("mnuPopUp")->isVisible());
    EXPECT_EQ(menu("mnuPopUp")->pos(), below(find("mnuPopUp.Button")));
}

TEST_F(MenuPlaceTest, OfARowByTheKeyBelowThatRow) {
    for (const int row : {2, 3}) {
        list()->setCurrentIndex(list()->model()->index(row - 1, 0));
        settle();
        openByKey(list());
        ASSERT_TRUE(menu("mnuLstV")->isVisible());
        EXPECT_EQ(menu("mnuLstV")->pos().y(), rowBelow(row).y()) << row;
        menu("mnuLstV")->hide();
    }
}

TEST_F(MenuPlaceTest, OfARowThatIsScrolledAwayAtTheListsEdge) {
    for (int i = 0; i < 50; ++i) form1().ListView1.Add("C:\\" + std::to_string(i));
    settle();
    list()->setCurrentIndex(list()->model()->index(0, 0));
    list()->scrollToBottom();
    settle();
    openByKey(list());
    ASSERT_TRUE(menu("mnuLstV")->isVisible());
    EXPECT_EQ(menu("mnuLstV")->pos(), list()->viewport()->mapToGlobal(QPoint(0, 1)));
}

TEST_F(MenuPlaceTest, OfARowByTheMouseAtThePointer) {
    const QPoint pointer = cell(2);
    QTest::mouseClick(list()->viewport(), Qt::RightButton, {}, pointer);
    settle();
    ASSERT_TRUE(menu("mnuLstV")->isVisible());
    EXPECT_EQ(menu("mnuLstV")->pos(), list()->viewport()->mapToGlobal(pointer) + QPoint(0, 1));
}

TEST_F(MenuPlaceTest, OverAnEmptyPartByTheMouseAtThePointer) {
    const QPoint pointer(10, 12);
    QContextMenuEvent event(QContextMenuEvent::Mouse, pointer, window()->mapToGlobal(pointer));
    QApplication::sendEvent(window(), &event);
    settle();
    ASSERT_TRUE(menu("mnuPopUp")->isVisible());
    EXPECT_EQ(menu("mnuPopUp")->pos(), window()->mapToGlobal(pointer) + QPoint(0, 1));
}

TEST_F(MenuPlaceTest, ByTheKeyBelowTheWidgetWithTheFocus) {
    window()->activateWindow();
    find("cmdPause")->setFocus();
    settle();
    openByKey(window());
    ASSERT_TRUE(menu("mnuPopUp")->isVisible());
    EXPECT_EQ(menu("mnuPopUp")->pos(), below(find("cmdPause")));
}

TEST_F(MenuPlaceTest, WithoutAnythingUsedInTheMiddleOfTheWindow) {
    if (QWidget* focused = QApplication::focusWidget()) focused->clearFocus();
    form1().mnuPopUp.PopUp();
    settle();
    EXPECT_EQ(menu("mnuPopUp")->pos(),
              window()->mapToGlobal(window()->rect().center()) + QPoint(0, 1));
}

TEST_F(MenuPlaceTest, WithTheWindowBeyondTheScreenItOpensOnTheScreen) {
    if (QWidget* focused = QApplication::focusWidget()) focused->clearFocus();
    window()->move(5000, 5000);
    settle();
    form1().mnuPopUp.PopUp();
    settle();
    ASSERT_TRUE(menu("mnuPopUp")->isVisible());
    EXPECT_TRUE(
        QGuiApplication::primaryScreen()->geometry().contains(menu("mnuPopUp")->geometry()));
}

// The offscreen platform doesn't tell where an icon is, as many desktops.
TEST_F(MenuPlaceTest, OfTheIconWhereItWasClicked) {
    onIcon(QSystemTrayIcon::Context);
    ASSERT_TRUE(menu("mnuPopUp")->isVisible());
    const QSize size = menu("mnuPopUp")->sizeHint();
    EXPECT_EQ(menu("mnuPopUp")->pos(), QPoint(800 - size.width(), farAway.y() + 1));
}

TEST_F(MenuPlaceTest, OfTheIconInTheCornerWhileThePointerIsOverTheWindow) {
    QCursor::setPos(window()->mapToGlobal(QPoint(200, 200)));
    onIcon(QSystemTrayIcon::Context);
    ASSERT_TRUE(menu("mnuPopUp")->isVisible());
    EXPECT_EQ(menu("mnuPopUp")->geometry().right(), 799);
    EXPECT_EQ(menu("mnuPopUp")->geometry().bottom(), 798);
}

TEST_F(MenuPlaceTest, OfTheIconWhereItWasClickedAlsoAfterAQuestion) {
    boxes.onBox = [this](QMessageBox& box) {
        QCursor::setPos(window()->mapToGlobal(QPoint(100, 300)));
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    };
    duringCheck([this] { onIcon(QSystemTrayIcon::Context); });
    EXPECT_EQ(boxes.seen.size(), 1u);
    ASSERT_TRUE(menu("mnuPopUp")->isVisible());
    EXPECT_EQ(menu("mnuPopUp")->pos().y(), farAway.y() + 1);
}

}  // namespace
}  // namespace velmora::tests
