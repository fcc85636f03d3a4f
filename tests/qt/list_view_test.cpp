// A list of rows in columns, by mouse and keys.
#include <QContextMenuEvent>
#include <QCursor>
#include <QHeaderView>
#include <set>

#include "qt/controls/list_view_widget.h"
#include "qt/window_test.h"

namespace velmora::tests {
namespace {

using Rows = std::vector<int>;

struct ListViewTest : WindowTest {
    ListViewTest() {
        start();  // C:, D:, E:
        window()->resize(900, 700);
        settle();
    }
    ListView& field() { return form1().ListView1; }
    std::vector<std::string> shownPaths() {
        std::vector<std::string> texts;
        for (int i = 0; i < list()->model()->rowCount(); ++i) {
            texts.push_back(list()->model()->index(i, 0).data().toString().toStdString());
        }
        return texts;
    }
    Rows shownSelection() {
        Rows rows;
        for (const QModelIndex& index : list()->selectionModel()->selectedRows()) {
            rows.push_back(index.row() + 1);
        }
        std::sort(rows.begin(), rows.end());
        return rows;
    }
    Rows tickedRows() {
        Rows rows;
        for (int i = 1; i <= field().Count(); ++i) {
            if (field().ListItems(i).Checked()) rows.push_back(i);
        }
        return rows;
    }
    void expectSelected(const Rows& rows) {
        EXPECT_EQ(selectedRows(), rows);
        EXPECT_EQ(shownSelection(), rows);
    }
    QPoint tickBox(int row) {
        const QRect place = list()->visualRect(list()->model()->index(row - 1, 0));
        return {place.left() + 10, place.center().y()};
    }
    void doubleClick(const QPoint& place) {
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, place);
        settle();
    }
    QWidget* driveWindow() { return program->window("frmIndDri"); }
};

TEST_F(ListViewTest, ARowIsTickedByTheMouseOnItsBoxOnly) {
    int checks = 0;
    field().ItemCheck.connect([&](ListItem&) { ++checks; });
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, tickBox(2));
    settle();
    EXPECT_TRUE(field().ListItems(2).Checked());
    EXPECT_TRUE(field().ListItems(2).Bold());
    EXPECT_EQ(checks, 1);
    const QModelIndex index = list()->model()->index(1, 0);
    EXPECT_EQ(index.data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_TRUE(index.siblingAtColumn(1).data(Qt::FontRole).value<QFont>().bold());

    clickCell(2);
    EXPECT_TRUE(field().ListItems(2).Checked());
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, tickBox(2));
    settle();
    EXPECT_FALSE(field().ListItems(2).Checked());
    EXPECT_EQ(checks, 2);
}

TEST_F(ListViewTest, TheSpaceBarTicksTheCurrentRow) {
    clickCell(3);
    QTest::keyClick(list(), Qt::Key_Space);
    settle();
    EXPECT_TRUE(field().ListItems(3).Checked());
}

TEST_F(ListViewTest, RowsAreSelectedByClicksWithControlAndShift) {
    clickCell(1);
    expectSelected({1});
    clickCell(3, Qt::ControlModifier);
    expectSelected({1, 3});
    clickCell(1, Qt::ControlModifier);
    expectSelected({3});
    clickCell(1);
    clickCell(3, Qt::ShiftModifier);
    expectSelected({1, 2, 3});
    QTest::keyClick(list(), Qt::Key_Up);
    settle();
    expectSelected({2});
}

TEST_F(ListViewTest, TheProgramsSelectionShows) {
    field().userSelect({2});
    settle();
    expectSelected({2});
    field().ListItems(3).setSelected(true);
    settle();
    expectSelected({2, 3});
}

TEST_F(ListViewTest, AClickOnAHeaderSortsAndShowsTheMark) {
    QHeaderView* header = list()->header();
    EXPECT_FALSE(header->isSortIndicatorShown());
    clickCell(1);  // C:
    const auto clickHeader = [&](int column) {
        const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
        settle();
    };
    clickHeader(0);  // the order is ascending: the click reverses it
    EXPECT_EQ(shownPaths(), (std::vector<std::string>{"E:\\", "D:\\", "C:\\"}));
    EXPECT_TRUE(header->isSortIndicatorShown());
    EXPECT_EQ(header->sortIndicatorSection(), 0);
    EXPECT_EQ(header->sortIndicatorOrder(), Qt::DescendingOrder);
    expectSelected({3});

    clickHeader(0);
    EXPECT_EQ(shownPaths(), (std::vector<std::string>{"C:\\", "D:\\", "E:\\"}));
    EXPECT_EQ(header->sortIndicatorOrder(), Qt::AscendingOrder);
    expectSelected({1});
    clickHeader(2);
    EXPECT_EQ(header->sortIndicatorSection(), 2);
    EXPECT_EQ(field().SortKey(), 2);
}

TEST_F(ListViewTest, TheRightButtonAndTheMenuKeyPopUpTheMenu) {
    clickCell(2);
    QTest::mouseClick(list()->viewport(), Qt::RightButton, {}, cell(2));
    settle();
    ASSERT_TRUE(menu("mnuLstV")->isVisible());
    QTest::keyClick(menu("mnuLstV"), Qt::Key_Escape);
    settle();
    ASSERT_FALSE(menu("mnuLstV")->isVisible());

    list()->setFocus();
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, cell(2), QCursor::pos());
    QApplication::sendEvent(list()->viewport(), &byKey);
    settle();
    ASSERT_TRUE(menu("mnuLstV")->isVisible());
    choose(menu("mnuLstV"), "mnuRemove");
    EXPECT_EQ(shownPaths(), (std::vector<std::string>{"C:\\", "E:\\"}));
}

TEST_F(ListViewTest, AnEmptyListHasNoMenu) {
    field().Clear();
    settle();
    QTest::mouseClick(list()->viewport(), Qt::RightButton, {}, QPoint(20, 20));
    settle();
    EXPECT_FALSE(menu("mnuLstV")->isVisible());
}

TEST_F(ListViewTest, ADoubleClickOrEnterOpensTheDrivesWindow) {
    doubleClick(cell(2, 3));
    ASSERT_NE(driveWindow(), nullptr);
    EXPECT_TRUE(driveWindow()->isVisible());
    EXPECT_EQ(find<QLabel>("lblP", "frmIndDri")->text().left(2), "D:");
    driveWindow()->close();
    settle();
    ASSERT_FALSE(driveWindow()->isVisible());

    clickCell(3);
    QTest::keyClick(list(), Qt::Key_Return);
    settle();
    EXPECT_TRUE(driveWindow()->isVisible());
    EXPECT_EQ(find<QLabel>("lblP", "frmIndDri")->text().left(2), "E:");
}

TEST_F(ListViewTest, ADoubleClickBelowTheRowsOpensNothing) {
    doubleClick(QPoint(50, list()->viewport()->height() - 2));
    EXPECT_FALSE(program->forms().frmIndDri.Visible());
}

TEST_F(ListViewTest, TheProgramsChangesOfRowsShow) {
    field().ListItems(1).setText("\\\\nas\\backup");
    field().ListItems(2).setSubItems(3, "4711");
    field().ListItems(3).setReportIcon(1, "alert");
    field().Add("F:\\");
    field().Add(1, "first");
    settle();
    EXPECT_EQ(shownPaths(),
              (std::vector<std::string>{"first", "\\\\nas\\backup", "D:\\", "E:\\", "F:\\"}));
    EXPECT_EQ(list()->model()->index(2, 3).data().toString(), "4711");
    EXPECT_FALSE(list()->model()->index(3, 1).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_TRUE(list()->model()->index(2, 1).data(Qt::DecorationRole).isNull());
    field().Remove(1);
    settle();
    EXPECT_EQ(shownPaths().front(), "\\\\nas\\backup");
}

TEST_F(ListViewTest, RowsKeepTheirSelectionWhenOthersComeAndGo) {
    clickCell(2);
    clickCell(3, Qt::ControlModifier);
    field().Add(1, "first");
    settle();
    expectSelected({3, 4});
    field().Remove(3);
    settle();
    expectSelected({3});
    EXPECT_EQ(shownPaths(), (std::vector<std::string>{"first", "C:\\", "E:\\"}));
    field().Clear();
    settle();
    expectSelected({});
}

TEST_F(ListViewTest, ASelectionMadeBeforeNewRowsArePublishedIsNotLost) {
    field().Add(1, "first");  // not published yet
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, cell(2));
    settle();
    expectSelected({3});  // the row that was the second: D:
    EXPECT_EQ(field().ListItems(3).Text(), "D:\\");
}

TEST_F(ListViewTest, RemovingByTheButtonTakesAllSelectedRows) {
    clickCell(1);
    clickCell(3, Qt::ControlModifier);
    click("lblDP(1)");
    EXPECT_EQ(shownPaths(), std::vector<std::string>{"D:\\"});
}

TEST_F(ListViewTest, TheSpaceBarTicksEverySelectedRow) {
    clickCell(1);
    clickCell(3, Qt::ControlModifier);
    QTest::keyClick(list(), Qt::Key_Space);
    settle();
    EXPECT_EQ(tickedRows(), (Rows{1, 3}));
    expectSelected({1, 3});
    // By the current row, so that all have the same tick afterwards.
    field().userTick(1, false);
    settle();
    QTest::keyClick(list(), Qt::Key_Space);
    settle();
    EXPECT_EQ(tickedRows(), Rows{});
}

TEST_F(ListViewTest, TheSpaceBarTicksACurrentRowThatIsNotSelectedAlone) {
    clickCell(1);
    QTest::keyClick(list(), Qt::Key_Down, Qt::ControlModifier);
    QTest::keyClick(list(), Qt::Key_Space);
    settle();
    EXPECT_EQ(tickedRows(), Rows{2});
    QTest::keyClick(list(), Qt::Key_Space, Qt::ControlModifier);
    settle();
    expectSelected({1, 2});
    EXPECT_EQ(tickedRows(), Rows{2});
}

TEST_F(ListViewTest, ControlAAndTheSpaceBarTickAllRows) {
    clickCell(2);
    QTest::keyClick(list(), Qt::Key_A, Qt::ControlModifier);
    settle();
    expectSelected({1, 2, 3});
    QTest::keyClick(list(), Qt::Key_Space);
    settle();
    EXPECT_EQ(tickedRows(), (Rows{1, 2, 3}));
}

// A check disables the field between two rows.
TEST_F(ListViewTest, TakesNoHandWhileItsFieldIsDisabled) {
    field().userSelect({1});
    int opened = 0;
    field().DblClick.connect([&] { ++opened; });
    settle();
    field().setEnabled(false);
    settle();
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, cell(2));
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, tickBox(3));
    QTest::mouseClick(list()->viewport(), Qt::RightButton, {}, cell(2));
    QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, cell(2));
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_D, Qt::Key_Down}) {
        QTest::keyClick(list(), key);
    }
    QTest::keyClick(list(), Qt::Key_A, Qt::ControlModifier);
    list()->selectAll();
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, cell(2), QCursor::pos());
    QApplication::sendEvent(list()->viewport(), &byKey);
    settle();
    expectSelected({1});
    EXPECT_EQ(tickedRows(), Rows{});
    EXPECT_EQ(opened, 0);
    EXPECT_FALSE(menu("mnuLstV")->isVisible());
    field().setEnabled(true);
    settle();
    clickCell(2);
    expectSelected({2});
}

TEST_F(ListViewTest, IsShownDisabledDuringAPassAndKeepsTheFocus) {
    window()->activateWindow();
    clickCell(2);
    settle();
    ASSERT_EQ(QApplication::focusWidget(), list());
    const QImage before = list()->grab().toImage();
    std::vector<QWidget*> focused;
    QObject context;
    QObject::connect(qApp, &QApplication::focusChanged, &context,
                     [&](QWidget*, QWidget* now) { focused.push_back(now); });
    bool isEnabled = true;
    QImage during;
    duringCheck([&] {
        isEnabled = field().Enabled();
        during = list()->grab().toImage();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    });
    EXPECT_FALSE(isEnabled);
    EXPECT_NE(during, before);
    EXPECT_EQ(focused, std::vector<QWidget*>{});
    EXPECT_EQ(QApplication::focusWidget(), list());
    EXPECT_EQ(tickedRows(), (Rows{1, 2, 3}));  // as the check found them
    EXPECT_TRUE(field().Enabled());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    settle();
    EXPECT_EQ(tickedRows(), (Rows{1, 3}));
    EXPECT_TRUE(machine.browsers.empty());
}

TEST_F(ListViewTest, AHeadersTextFollowsTheField) {
    field().setColumnText(4, "Trigger ( %)");
    settle();
    EXPECT_EQ(list()->model()->headerData(3, Qt::Horizontal).toString(), "Trigger ( %)");
}

TEST_F(ListViewTest, ALongTextIsCutInTheMiddleAndShownWholeBesideThePointer) {
    for (const auto* each : window()->findChildren<qt::ListViewWidget*>()) {
        const bool isText = each->objectName() == "LVAlert";
        EXPECT_EQ(each->textElideMode(), isText ? Qt::ElideRight : Qt::ElideMiddle)
            << each->objectName().toStdString();
    }
}

TEST_F(ListViewTest, AColumnIsWideEnoughForTheRowsThatComeIntoView) {
    field().Clear();
    for (int i = 0; i < 200; ++i) field().Add("C:\\" + std::to_string(i));
    for (int i = 1; i <= 200; ++i)
        field().ListItems(i).setSubItems(1, i < 150 ? "1 KB" : "123,456,789,012 KB");
    settle();
    const int before = list()->columnWidth(1);
    list()->scrollToBottom();
    settle();
    EXPECT_GT(list()->columnWidth(1), before);
    EXPECT_GE(list()->columnWidth(1),
              list()->fontMetrics().horizontalAdvance("123,456,789,012 KB"));
}

TEST_F(ListViewTest, AnEmptyListSaysWhatItIsFor) {
    click("lblSpectab(0)");
    auto* programs = find<qt::ListViewWidget>("LVProg");
    const auto colours = [programs] {
        settle();
        const QImage picture = programs->viewport()->grab().toImage();
        std::set<QRgb> all;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) all.insert(picture.pixel(x, y));
        }
        return all.size();
    };
    programs->clearFocus();
    EXPECT_GT(colours(), 2U);
    form1().LVProg.Add();
    EXPECT_LE(colours(), 2U);
}

TEST_F(ListViewTest, RowsHaveRoomAboveAndBelowTheirText) {
    click("lblSpectab(0)");
    form1().LVProg.Add("notepad.exe");
    settle();
    auto* programs = find<qt::ListViewWidget>("LVProg");
    EXPECT_GE(programs->visualRect(programs->model()->index(0, 0)).height(),
              programs->fontMetrics().height() + 6);
}

}  // namespace
}  // namespace velmora::tests
