// The window of one drive: its picture, its gauges, and the setting in its lower part.
#include <QComboBox>
#include <QSlider>

#include "qt/colours/colours.h"
#include "qt/controls/gauge_widget.h"
#include "qt/controls/lamps_widget.h"
#include "qt/controls/list_view_widget.h"
#include "qt/controls/picture_widget.h"
#include "qt/paint_counter.h"
#include "qt/window_test.h"

namespace velmora::tests {
namespace {

struct DriveWindowTest : WindowTest {
    DriveWindowTest() {
        start();
        clickCell(1);
        click("lblDP(3)");
    }
    FrmIndDri& form() { return program->forms().frmIndDri; }
    template <typename Widget = QWidget>
    Widget* part(const char* name) {
        return find<Widget>(QString::fromLatin1(name), "frmIndDri");
    }
    static std::string nameOf(const QColor& colour) { return colour.name().toStdString(); }
    static std::string pixel(QWidget* widget, const QPointF& place) {
        const QImage picture = widget->grab().toImage();
        return nameOf(picture.pixelColor((place * picture.devicePixelRatio()).toPoint()));
    }
};

TEST_F(DriveWindowTest, TheWedgesLieWhereTheyWereDrawn) {
    auto* picture = part<qt::PictureWidget>("picPie");
    form().picPie.Cls();
    form().picPie.selectBrush(0x0000FF);  // red
    form().picPie.Pie(0, 20, 100, 120, 50, 20);
    form().picPie.selectBrush(0x00FF00);  // green, from the top to the right
    form().picPie.Pie(0, 20, 100, 120, 100, 70);
    form().picPie.describe("25.0% Used", "Total(4)", {});
    settle();
    const double scale = picture->scale();
    const QColor ground = picture->palette().color(QPalette::Window);
    const QColor red = qt::visibleOn(ground, Qt::red);
    const QColor green = qt::visibleOn(ground, Qt::green);
    EXPECT_EQ(pixel(picture, QPointF(70, 50) * scale), nameOf(green));
    EXPECT_EQ(pixel(picture, QPointF(70, 90) * scale), nameOf(red));
    EXPECT_EQ(pixel(picture, QPointF(30, 50) * scale), nameOf(red));
    EXPECT_EQ(pixel(picture, QPointF(3, 23) * scale), nameOf(ground));  // beside the ellipse
    EXPECT_EQ(picture->accessibleDescription(), "25.0% Used, Total(4)");
}

TEST_F(DriveWindowTest, AWideTextHasItsRoomAndAPixelOnEachSide) {
    auto* picture = part<qt::PictureWidget>("picPie");
    form().picPie.TextOut(200, 10, "a text that ends right of the pie");
    settle();
    const double ends =
        200 * picture->scale() +
        QFontMetricsF(picture->font()).horizontalAdvance("a text that ends right of the pie");
    EXPECT_EQ(picture->sizeHint().width(), std::ceil(ends + 2));
}

TEST_F(DriveWindowTest, TheSegmentsHaveTheColoursOfTheField) {
    auto* gauge = part<qt::GaugeWidget>("VMeter2");
    form().VMeter2.setValue(30);  // a level of 20
    settle();
    EXPECT_EQ(pixel(gauge, gauge->segment(0).center()), "#00ff00");
    EXPECT_EQ(pixel(gauge, gauge->segment(19).center()), "#00ff00");
    EXPECT_EQ(pixel(gauge, gauge->segment(20).center()), "#008000");
    EXPECT_EQ(pixel(gauge, gauge->segment(49).center()), "#008000");
    EXPECT_EQ(gauge->text(), "40%");
    EXPECT_EQ(gauge->value(), 20);
}

TEST_F(DriveWindowTest, UnchangedFiguresPaintNothing) {
    settle();
    PaintCounter gauge(part("VMeter2"));
    PaintCounter picture(part("picPie"));
    PaintCounter trigger(part("VMeter1"));
    PaintCounter figures(part<qt::ListViewWidget>("ListView1")->viewport());
    PaintCounter share(part("ProgressBar1"));
    PaintCounter path(part("lblP"));
    form().VMeter2.setValue(form().VMeter2.Value());
    form().VMeter2.ShowLevel();
    form().Timer1.Tick();
    settle();
    EXPECT_EQ(gauge.count, 0);
    EXPECT_EQ(picture.count, 0);
    EXPECT_EQ(trigger.count, 0);
    EXPECT_EQ(figures.count, 0);
    EXPECT_EQ(share.count, 0);
    EXPECT_EQ(path.count, 0);
    form().VMeter2.setValue(form().VMeter2.Value() == 7 ? 8 : 7);
    settle();
    EXPECT_GT(gauge.count, 0);
    EXPECT_EQ(picture.count, 0);
}

TEST_F(DriveWindowTest, TheSliderHasAHundredAtItsTop) {
    auto* slider = part<QSlider>("VScroll1");
    form().VScroll1.setValue(0);
    settle();
    EXPECT_EQ(slider->orientation(), Qt::Vertical);
    EXPECT_FALSE(slider->invertedAppearance());
    EXPECT_EQ(slider->value(), 100);
    QTest::keyClick(slider, Qt::Key_Down);
    settle();
    EXPECT_EQ(form().VScroll1.Value(), 1);
    EXPECT_EQ(part<QLineEdit>("Text1")->text(), "99");
    form().VScroll1.setValue(100);
    settle();
    EXPECT_EQ(slider->value(), 0);
}

TEST_F(DriveWindowTest, AnotherPathCanBeChosenAndTheSameAgain) {
    auto* choice = part<QComboBox>("Combo1");
    ASSERT_EQ(choice->count(), 3);
    EXPECT_EQ(choice->currentText(), "C:\\");
    int clicks = 0;
    form().Combo1.Click.connect([&] { ++clicks; });
    emit choice->activated(1);
    emit choice->activated(1);
    settle();
    EXPECT_EQ(clicks, 2);
    EXPECT_TRUE(part<QLabel>("lblP")->text().startsWith("D:\\"));
}

TEST_F(DriveWindowTest, ToggleHidesAndShowsTheLowerPart) {
    QWidget* window = program->window("frmIndDri");
    const int high = window->height();
    ASSERT_TRUE(part("Text1")->isVisible());
    click("cmdToggle", "frmIndDri");
    EXPECT_FALSE(part("Text1")->isVisible());
    EXPECT_FALSE(part("ListView1")->isVisible());
    EXPECT_TRUE(part("picPie")->isVisible());
    EXPECT_LT(window->height(), high);
    click("cmdToggle", "frmIndDri");
    EXPECT_TRUE(part("Text1")->isVisible());
    EXPECT_EQ(window->height(), high);
    EXPECT_EQ(form().Height(), FrmIndDri::fullHeight);
}

struct SpeedForm : Form {
    SpeedForm() : Form("frmSpeed") {}
    CtlDigital speed{*this, "CtlDigital1"};
};

TEST(LampsWidget, ALampIsLitForEachTenth) {
    SpeedForm form;
    form.speed.setMaxVal(100);
    form.speed.setTxtSpeed("42");
    form.speed.setCurrentValue(30);
    qt::LampsWidget lamps(form.speed);
    lamps.resize(lamps.sizeHint());
    const auto colourOf = [&lamps](int lamp) {
        const QImage picture = lamps.grab().toImage();
        return picture.pixelColor(lamps.lamp(lamp).center().toPoint());
    };
    EXPECT_EQ(colourOf(3), QColor(0, 255, 0));
    EXPECT_EQ(colourOf(4), QColor(Qt::black));
    EXPECT_EQ(lamps.accessibleDescription(), "42 Kb/s, 3 of 10 lamps");
    form.speed.setCurrentValue(100);
    QApplication::processEvents();
    EXPECT_EQ(colourOf(10), QColor(0, 255, 0));
}

}  // namespace
}  // namespace velmora::tests
