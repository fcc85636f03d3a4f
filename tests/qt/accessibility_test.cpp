// Custom-painted widgets: they follow the desktop's colours and report what they show to a screen
// reader.
#include <QAccessible>
#include <QPainter>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>

#include "qt/controls/activity_view.h"
#include "qt/controls/elided_label.h"
#include "qt/controls/label_button.h"
#include "qt/paint_counter.h"
#include "qt/window_test.h"

namespace velmora::tests {
namespace {

QPalette otherColours() {
    QPalette palette(QColor(20, 60, 20), QColor(30, 30, 30));
    palette.setColor(QPalette::WindowText, QColor(250, 250, 200));
    palette.setColor(QPalette::ButtonText, QColor(250, 250, 200));
    palette.setColor(QPalette::Highlight, QColor(250, 120, 0));
    return palette;
}

struct AccessibilityTest : WindowTest {
    AccessibilityTest() { start(); }

    /// The widget is painted again, and differently, when the colours change.
    static void expectFollowsColours(QWidget* widget) {
        SCOPED_TRACE(widget->objectName().toStdString());
        ASSERT_TRUE(widget->isVisible());
        settle();
        const QImage before = widget->grab().toImage();
        PaintCounter paints(widget);
        widget->window()->setPalette(otherColours());
        settle();
        EXPECT_GT(paints.count, 0);
        EXPECT_NE(widget->grab().toImage(), before);
        widget->window()->setPalette(QPalette());
        settle();
    }
    static QAccessibleInterface* interfaceOf(QWidget* widget) {
        return QAccessible::queryAccessibleInterface(widget);
    }
    static QString accessible(QWidget* widget, QAccessible::Text text) {
        QAccessibleInterface* interface = interfaceOf(widget);
        return interface == nullptr ? QString() : interface->text(text);
    }
};

TEST_F(AccessibilityTest, CustomPaintedWidgetsFollowTheDesktopsColours) {
    expectFollowsColours(find("lblTab(0)"));
    form1().StatusBar1.setPanelText(2, "Checking: C:\\");
    settle();
    expectFollowsColours(find("StatusBar1(2)"));
    form1().Animation1.Open("watch.avi");
    form1().Animation1.Play();
    settle();
    expectFollowsColours(find("Animation1"));
    form1().Animation1.Stop();
}

TEST_F(AccessibilityTest, TheSmallWindowsDrawingsFollowToo) {
    program->forms().frmAbout.Show();
    settle();
    expectFollowsColours(find("prcDraw", "frmAbout"));
    clickCell(1);
    click("lblDP(3)");
    expectFollowsColours(find("VMeter2", "frmIndDri"));
}

TEST_F(AccessibilityTest, ALabelsColoursStayLegibleOnAnyDesktop) {
    auto* tab = find<qt::LabelButton>("lblTab(0)");
    window()->setPalette(otherColours());
    settle();
    const QImage picture = tab->grab().toImage();
    int light = 0;
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height(); ++y)
            light += picture.pixelColor(x, y).lightness() > 150 ? 1 : 0;
    }
    EXPECT_GT(light, 10);  // the letters of the selected tab on its dark page
}

TEST_F(AccessibilityTest, AShortenedTextIsReportedWhole) {
    const std::string text =
        "Checking: C:\\a\\very\\long\\path\\that\\the\\panel\\has\\no\\room\\for\\at\\all";
    form1().StatusBar1.setPanelText(2, text);
    settle();
    QWidget* panel = find("StatusBar1(2)");
    EXPECT_EQ(accessible(panel, QAccessible::Name), "Detail");
    EXPECT_EQ(accessible(panel, QAccessible::Description).toStdString(), text);
    EXPECT_EQ(panel->toolTip().toStdString(), text);
}

TEST_F(AccessibilityTest, ATabThatWasTakenAwayIsNoTabAnyMore) {
    QTabBar bar;
    bar.addTab("one");
    bar.addTab("two");
    QAccessibleInterface* tabs = interfaceOf(&bar);
    QAccessibleInterface* first = tabs->child(0);
    QAccessibleInterface* second = tabs->child(1);
    EXPECT_TRUE(first->isValid() && second->isValid());
    EXPECT_EQ(tabs->child(2), nullptr);
    bar.removeTab(1);
    EXPECT_TRUE(first->isValid());
    EXPECT_FALSE(second->isValid());
    EXPECT_TRUE(second->state().invalid);
}

TEST_F(AccessibilityTest, TheActivityReportsWhetherItPlays) {
    QWidget* view = find("Animation1");
    form1().Animation1.Stop();
    settle();
    EXPECT_EQ(accessible(view, QAccessible::Name), "Activity");
    EXPECT_EQ(accessible(view, QAccessible::Description), "still");
    form1().Animation1.Play();
    settle();
    EXPECT_EQ(accessible(view, QAccessible::Description), "playing");
}

TEST_F(AccessibilityTest, TheActivityIsDrawnAllAround) {
    QWidget* view = find("Animation1");
    form1().Animation1.Stop();
    settle();
    const QImage still = view->grab().toImage();
    form1().Animation1.Play();
    settle();
    const QImage playing = view->grab().toImage();
    QRect changed;
    for (int x = 0; x < still.width(); ++x) {
        for (int y = 0; y < still.height(); ++y) {
            if (still.pixel(x, y) != playing.pixel(x, y)) changed |= QRect(x, y, 1, 1);
        }
    }
    // Dots at six and a half pixels from the middle.
    EXPECT_GE(changed.width(), 13);
    EXPECT_GE(changed.height(), 13);
}

TEST_F(AccessibilityTest, TabsAreTabsOfAListAndOneIsSelected) {
    click("lblTab(0)");
    click("lblSpectab(1)");
    for (int i = 0; i < 5; ++i) {
        QAccessibleInterface* tab = interfaceOf(find(QStringLiteral("lblTab(%1)").arg(i)));
        EXPECT_EQ(tab->role(), QAccessible::PageTab);
        EXPECT_TRUE(tab->state().selectable);
        EXPECT_EQ(tab->state().selected, i == 0) << i;
        EXPECT_EQ(tab->parent()->role(), QAccessible::PageTabList);
        EXPECT_EQ(tab->parent()->text(QAccessible::Name), "Pages");
        EXPECT_EQ(tab->parent()->childCount(), 5);
        EXPECT_EQ(tab->parent()->indexOfChild(tab), i);
    }
    for (int i = 0; i < 3; ++i) {
        QAccessibleInterface* tab = interfaceOf(find(QStringLiteral("lblSpectab(%1)").arg(i)));
        EXPECT_EQ(tab->role(), QAccessible::PageTab);
        EXPECT_EQ(tab->state().selected, i == 1) << i;
    }
    EXPECT_EQ(accessible(find("lblTab(1)"), QAccessible::Name), "Program options");
    EXPECT_EQ(interfaceOf(find("lblDP(1)"))->role(), QAccessible::Button);
}

TEST_F(AccessibilityTest, ATabIsPressedByAScreenReader) {
    QAccessibleInterface* tab = interfaceOf(find("lblTab(4)"));
    tab->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    settle();
    EXPECT_TRUE(find("frmSp(4)")->isVisible());
    EXPECT_TRUE(tab->state().selected);
    EXPECT_FALSE(interfaceOf(find("lblTab(0)"))->state().selected);
}

TEST_F(AccessibilityTest, ASmallWindowIsADialog) {
    program->forms().frmAbout.Show();
    settle();
    QAccessibleInterface* about = interfaceOf(find("prcDraw", "frmAbout")->window());
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(about->role(), QAccessible::Dialog);
    EXPECT_EQ(about->text(QAccessible::Name), "About Velmora");
}

TEST_F(AccessibilityTest, TheMailSettingsPagesAreTabs) {
    program->forms().frmNotify.Show();
    settle();
    auto* tabs = find<QTabWidget>("TabStrip1", "frmNotify");
    QAccessibleInterface* strip = interfaceOf(tabs->tabBar());
    EXPECT_EQ(strip->role(), QAccessible::PageTabList);
    EXPECT_EQ(strip->text(QAccessible::Name), "Pages of the mail settings");
    ASSERT_GE(strip->childCount(), 4);
    EXPECT_EQ(strip->child(2)->role(), QAccessible::PageTab);
    EXPECT_EQ(strip->child(2)->text(QAccessible::Name), "Email Acct. Info.");
    EXPECT_TRUE(strip->child(0)->state().selected);
}

TEST_F(AccessibilityTest, ACheckBoxToggledByAScreenReaderIsClicked) {
    click("lblTab(3)");
    CheckBox& field = form1().chkLogTimeMon;
    int clicks = 0;
    field.Click.connect([&] { ++clicks; });
    QAccessibleInterface* box = interfaceOf(find("chkLogTimeMon"));
    box->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    settle();
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(field.ticked());
    EXPECT_TRUE(box->state().checked);
    find<QCheckBox>("chkLogTimeMon")->setChecked(false);
    settle();
    EXPECT_EQ(clicks, 2);
    EXPECT_FALSE(field.ticked());
}

TEST_F(AccessibilityTest, AToggleThatAHandlerUndoesShowsTheField) {
    click("lblTab(1)");
    CheckBox& field = form1().chkSeq;
    bool isUndoing = false;
    field.Click.connect([&] {
        if (!std::exchange(isUndoing, true)) field.setValue(0);
    });
    find<QCheckBox>("chkSeq")->toggle();
    settle();
    EXPECT_TRUE(isUndoing);
    EXPECT_FALSE(find<QCheckBox>("chkSeq")->isChecked());
    EXPECT_FALSE(field.ticked());
}

TEST_F(AccessibilityTest, AnOptionToggledByAScreenReaderIsChosenAndStays) {
    click("lblSpectab(1)");
    form1().txtSpace.setText("40");
    settle();
    int clicks = 0;
    form1().OpDriv[1].Click.connect([&] { ++clicks; });
    auto* option = find<QRadioButton>("OpDriv(1)");
    for (int i = 1; i <= 2; ++i) {
        interfaceOf(option)->actionInterface()->doAction(
            QAccessibleActionInterface::toggleAction());
        settle();
        EXPECT_EQ(clicks, i);
        EXPECT_TRUE(form1().OpDriv[1].Value());
        EXPECT_TRUE(option->isChecked());
        EXPECT_FALSE(find<QRadioButton>("OpDriv(0)")->isChecked());
    }
}

TEST_F(AccessibilityTest, ATextSetByAScreenReaderReachesItsField) {
    click("lblTab(1)");
    QAccessibleInterface* entry = interfaceOf(find("txtTime"));
    ASSERT_NE(entry->editableTextInterface(), nullptr);
    entry->setText(QAccessible::Value, "75");
    settle();
    EXPECT_EQ(form1().txtTime.Text(), "75");
}

TEST_F(AccessibilityTest, AnEntryOfACheckListIsTickedByAScreenReader) {
    click("lblTab(1)");
    std::vector<int> checks;
    int clicks = 0;
    form1().lstEvt.ItemCheck.connect([&](int index) { checks.push_back(index); });
    form1().lstEvt.Click.connect([&] { ++clicks; });
    QAccessibleInterface* entries = interfaceOf(find("lstEvt"));
    EXPECT_EQ(entries->role(), QAccessible::List);
    ASSERT_EQ(entries->childCount(), 5);
    QAccessibleInterface* entry = entries->child(2);
    EXPECT_EQ(entry->role(), QAccessible::ListItem);
    EXPECT_EQ(entry->text(QAccessible::Name), "Change in Amount of File/Folder(s)");
    EXPECT_TRUE(entry->state().checkable);
    EXPECT_FALSE(entry->state().checked);
    entry->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    settle();
    EXPECT_EQ(checks, std::vector<int>{2});
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(entry->state().checked);
    EXPECT_TRUE(form1().lstEvt.Selected(2));
}

TEST_F(AccessibilityTest, ARowOfTheWatchListIsTickedByAScreenReader) {
    int checks = 0;
    form1().ListView1.ItemCheck.connect([&](ListItem&) { ++checks; });
    QAccessibleInterface* cell = interfaceOf(list())->tableInterface()->cellAt(1, 0);
    ASSERT_NE(cell->actionInterface(), nullptr);
    cell->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    settle();
    EXPECT_EQ(checks, 1);
    EXPECT_TRUE(form1().ListView1.ListItems(2).Checked());
    EXPECT_TRUE(form1().ListView1.ListItems(2).Bold());
    EXPECT_TRUE(cell->state().checked);
    // A figure has no tick.
    QAccessibleInterface* figure = interfaceOf(list())->tableInterface()->cellAt(1, 1);
    EXPECT_FALSE(figure->state().checkable);
    EXPECT_FALSE(figure->actionInterface()->actionNames().contains(
        QAccessibleActionInterface::toggleAction()));
}

TEST_F(AccessibilityTest, FiguresAreReadWithTheirWords) {
    click("lblTab(4)");
    form1().lblTimesMonitor.setCaption("12");
    settle();
    QAccessibleInterface* figure = interfaceOf(find("lblTimesMonitor"));
    EXPECT_EQ(figure->role(), QAccessible::StaticText);
    EXPECT_EQ(figure->text(QAccessible::Name), "Number of finished checks");
    EXPECT_EQ(figure->text(QAccessible::Value), "12");
    ASSERT_NE(figure->textInterface(), nullptr);
    EXPECT_EQ(figure->textInterface()->text(0, figure->textInterface()->characterCount()), "12");
}

TEST_F(AccessibilityTest, ACaptionWithoutWordsIsItsOwnName) {
    EXPECT_EQ(accessible(find("lblE"), QAccessible::Name),
              QString::fromStdString(form1().lblE.Caption()));
}

TEST_F(AccessibilityTest, AnAttributeOfADriveIsReadWithItsCaption) {
    form1().cmdAdv.userClick();
    settle();
    DlgDriveInfo& dialog = program->forms().dlgDriveInfo;
    dialog.lblInfo[0].setCaption("Fixed");
    settle();
    QAccessibleInterface* value = interfaceOf(find("lblInfo(0)", "dlgDriveInfo"));
    EXPECT_EQ(value->text(QAccessible::Name),
              QString::fromStdString(dialog.lblCaption[1].Caption()));
    EXPECT_EQ(value->text(QAccessible::Value), "Fixed");
}

TEST_F(AccessibilityTest, TheButtonOfThePauseTellsItsState) {
    form1().cmdPause.setCaption("Start Watch");
    settle();
    QWidget* pause = find("cmdPause");
    EXPECT_EQ(accessible(pause, QAccessible::Name), "Start Watch");
    EXPECT_EQ(accessible(pause, QAccessible::Description), "The watch is paused");
    form1().cmdPause.userClick();
    settle();
    EXPECT_EQ(accessible(pause, QAccessible::Name), "Pause Watch");
    EXPECT_EQ(accessible(pause, QAccessible::Description), "The watch is running");
}

TEST_F(AccessibilityTest, RowsTellTheirState) {
    ListView& rows = form1().ListView1;
    const auto state = [this](int row) {
        return interfaceOf(list())
            ->tableInterface()
            ->cellAt(row - 1, 0)
            ->text(QAccessible::Description);
    };
    EXPECT_EQ(state(1), "not watched");
    for (int i = 1; i <= 3; ++i) rows.userTick(i, true);
    EXPECT_EQ(state(1), "not checked yet");
    for (int i = 1; i <= 3; ++i) {
        rows.ListItems(i).setReportIcon(1, i == 1 ? "alert" : "ok");
        rows.ListItems(i).setSubItems(4, "03/14 15:10:26");
    }
    // Far above the minimum.
    form1().txtSpace.setText("1000");
    rows.ListItems(3).setSubItems(1, "N/A, drive not ready");
    settle();
    EXPECT_EQ(state(1), "short of space");
    EXPECT_EQ(state(2), "ok");
    EXPECT_EQ(state(3), "not available");
    rows.userTick(1, false);
    EXPECT_EQ(state(1), "not watched");
}

TEST_F(AccessibilityTest, TheWatchListIsATableWithHeadings) {
    QAccessibleInterface* table = interfaceOf(list());
    EXPECT_EQ(table->role(), QAccessible::Table);
    const int columns = form1().ListView1.ColumnCount();
    EXPECT_EQ(table->childCount(), 4 * columns);
    EXPECT_EQ(table->child(0)->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(table->child(0)->text(QAccessible::Name), "Drive Path");
    QAccessibleInterface* cell = table->child(2 * columns + 1);
    EXPECT_EQ(cell->role(), QAccessible::Cell);
    EXPECT_EQ(cell->tableCellInterface()->rowIndex(), 1);
    EXPECT_EQ(cell->tableCellInterface()->columnIndex(), 1);
    EXPECT_EQ(table->indexOfChild(cell), 2 * columns + 1);
    EXPECT_EQ(cell->tableCellInterface()->columnHeaderCells().front()->text(QAccessible::Name),
              "Free Space");
    EXPECT_EQ(cell->parent(), table);
    EXPECT_EQ(table->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
    EXPECT_EQ(table->child(4 * columns), nullptr);
}

TEST_F(AccessibilityTest, RowsAreSelectedByAScreenReader) {
    QAccessibleTableInterface* table = interfaceOf(list())->tableInterface();
    EXPECT_TRUE(table->selectRow(1));
    EXPECT_TRUE(table->selectRow(2));
    settle();
    EXPECT_EQ(selectedRows(), (std::vector<int>{2, 3}));
    EXPECT_TRUE(table->isRowSelected(2));
    EXPECT_TRUE(table->unselectRow(1));
    settle();
    EXPECT_EQ(selectedRows(), std::vector<int>{3});
    EXPECT_EQ(table->selectedRows(), QList<int>{2});
}

// A screen reader holds on to what it has been given.
TEST_F(AccessibilityTest, ACellStaysWithItsRowWhenOthersComeAndGo) {
    QAccessibleInterface* alerts = interfaceOf(find("LVAlert"));
    form1().LVAlert.Add(1, "first");
    settle();
    QAccessibleInterface* cell = alerts->tableInterface()->cellAt(0, 0);
    form1().LVAlert.Add(1, "second");
    settle();
    EXPECT_EQ(cell->text(QAccessible::Name), "first");
    EXPECT_EQ(cell->tableCellInterface()->rowIndex(), 1);
    EXPECT_EQ(alerts->tableInterface()->cellAt(1, 0), cell);
    EXPECT_EQ(alerts->tableInterface()->cellAt(0, 0)->text(QAccessible::Name), "second");
    form1().LVAlert.Clear();
    settle();
    EXPECT_EQ(alerts->tableInterface()->cellAt(0, 0), nullptr);
}

TEST_F(AccessibilityTest, GaugesReportTheirValue) {
    clickCell(1);
    click("lblDP(3)");
    QWidget* gauge = find("VMeter2", "frmIndDri");
    program->forms().frmIndDri.VMeter2.setValue(20);  // of 50, which means nothing free
    settle();
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(gauge);
    EXPECT_EQ(interface->text(QAccessible::Name), "Free space");
    ASSERT_NE(interface->valueInterface(), nullptr);
    EXPECT_EQ(interface->valueInterface()->currentValue().toInt(), 30);
}

TEST_F(AccessibilityTest, RowsOfTheListReportTheirTextsAndTicks) {
    form1().ListView1.userTick(2, true);
    settle();
    QAccessibleInterface* found = QAccessible::queryAccessibleInterface(list());
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->text(QAccessible::Name), "Watched drives and paths");
    ASSERT_NE(found->tableInterface(), nullptr);
    EXPECT_EQ(found->tableInterface()->rowCount(), 3);
    QAccessibleInterface* cell = found->tableInterface()->cellAt(1, 0);
    EXPECT_EQ(cell->text(QAccessible::Name), "D:\\");
    EXPECT_TRUE(cell->state().checked);
}

}  // namespace
}  // namespace velmora::tests
