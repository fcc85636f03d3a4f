// Custom-painted widgets: they follow the desktop's colours and report what they show to a screen
// reader.
#include <QAccessible>
#include <QPainter>

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
    static QString accessible(QWidget* widget, QAccessible::Text text) {
        QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
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

TEST_F(AccessibilityTest, TabsReportWhichOfThemIsSelected) {
    click("lblTab(0)");
    click("lblSpectab(1)");
    for (int i = 0; i < 5; ++i) {
        QWidget* tab = find(QStringLiteral("lblTab(%1)").arg(i));
        EXPECT_EQ(accessible(tab, QAccessible::Description) == "selected", i == 0) << i;
        EXPECT_EQ(QAccessible::queryAccessibleInterface(tab)->role(), QAccessible::Button);
    }
    for (int i = 0; i < 3; ++i) {
        QWidget* tab = find(QStringLiteral("lblSpectab(%1)").arg(i));
        EXPECT_EQ(accessible(tab, QAccessible::Description) == "selected", i == 1) << i;
    }
    EXPECT_EQ(accessible(find("lblTab(1)"), QAccessible::Name), "Tab: program options");
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
