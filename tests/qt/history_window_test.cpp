// The window of the history: its line, its trigger and its words.
#include "qt/controls/chart_colours.h"
#include "qt/controls/line_chart_widget.h"
#include "qt/window_test.h"

namespace velmora::tests {
namespace {

struct HistoryWindowTest : WindowTest {
    HistoryWindowTest() {
        start();
        form().Show();
        settle();
    }
    FrmHistory& form() { return program->forms().frmHistory; }
    qt::LineChartWidget* chart() {
        return find<qt::LineChartWidget>(QStringLiteral("chtHistory"), "frmHistory");
    }
    static double distance(const QColor& a, const QColor& b) {
        return std::abs(a.redF() - b.redF()) + std::abs(a.greenF() - b.greenF()) +
               std::abs(a.blueF() - b.blueF());
    }
    QColor pixel(const QPointF& place) {
        const QImage picture = chart()->grab().toImage();
        return picture.pixelColor((place * picture.devicePixelRatio()).toPoint());
    }
};

TEST_F(HistoryWindowTest, TheLineGoesFromTheOldestPointToTheNewest) {
    form().chtHistory.show("C:\\", {{-100, 1000}, {-50, 500}, {0, 0}}, std::nullopt);
    settle();
    const QPointF first = chart()->placeOf({-100, 1000});
    const QPointF middle = chart()->placeOf({-50, 500});
    const QPointF last = chart()->placeOf({0, 0});
    EXPECT_LT(first.x(), middle.x());
    EXPECT_NEAR(middle.x(), (first.x() + last.x()) / 2, 0.01);
    EXPECT_LT(first.y(), middle.y());
    EXPECT_NEAR(middle.y(), (first.y() + last.y()) / 2, 0.01);
    const QColor line = qt::seriesColour(0, chart()->palette().color(QPalette::Base));
    EXPECT_EQ(pixel(last), line);
    // Its edge is smoothed.
    EXPECT_LT(distance(pixel(middle), line), 0.15);
    EXPECT_GT(distance(pixel(QPointF(middle.x(), first.y() + 20)), line), 0.3);
}

TEST_F(HistoryWindowTest, APointAloneIsShown) {
    form().chtHistory.show("C:\\", {{0, 700}}, std::nullopt);
    settle();
    const QColor line = qt::seriesColour(0, chart()->palette().color(QPalette::Base));
    EXPECT_EQ(pixel(chart()->placeOf({0, 700})), line);
}

TEST_F(HistoryWindowTest, AScreenReaderIsToldTheLastFigureAndTheTrigger) {
    form().chtHistory.show("C:\\", {{-7300, 1000}, {-150, 1500}}, 200);
    settle();
    EXPECT_EQ(chart()->accessibleDescription().toStdString(),
              "C:\\, 2 minutes ago: 1,500 KB, trigger 200 KB");
}

TEST_F(HistoryWindowTest, TenThousandPointsArePaintedAndNoneToo) {
    std::vector<LineChart::Point> points;
    for (int i = 0; i < 10'080; ++i) points.push_back({i - 10'080, 1e6 + i % 100});
    form().chtHistory.show("C:\\", points, 5e5);
    settle();
    EXPECT_FALSE(chart()->grab().isNull());
    form().chtHistory.show("", {}, std::nullopt);
    settle();
    EXPECT_FALSE(chart()->grab().isNull());
}

TEST_F(HistoryWindowTest, OpensFromTheDriveInformation) {
    form().Hide();
    program->forms().dlgDriveInfo.Show();
    settle();
    click("cmdHistory", "dlgDriveInfo");
    EXPECT_TRUE(form().Visible());
    EXPECT_EQ(find<QLabel>(QStringLiteral("lblEstimate"), "frmHistory")->text().toStdString(),
              "Nothing was checked yet.");
    click("cmdClose", "frmHistory");
    EXPECT_FALSE(form().Visible());
}

}  // namespace
}  // namespace velmora::tests
