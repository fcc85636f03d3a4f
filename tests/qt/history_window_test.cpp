// The window of the history: its line, its trigger and its words.
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "qt/controls/chart_colours.h"
#include "qt/controls/line_chart_widget.h"
#include "qt/text_recorder.h"
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
    std::string hintAt(const QPointF& place) {
        QHelpEvent event(QEvent::ToolTip, place.toPoint(), chart()->mapToGlobal(place.toPoint()));
        QApplication::sendEvent(chart(), &event);
        return QToolTip::text().toStdString();
    }
    static QColor pixelIn(const QImage& picture, const QPointF& place) {
        return picture.pixelColor((place * picture.devicePixelRatio()).toPoint());
    }
    QColor pixel(const QPointF& place) { return pixelIn(chart()->grab().toImage(), place); }
};

TEST_F(HistoryWindowTest, TheLineGoesFromTheOldestPointToTheNewest) {
    form().chtHistory.show({{"C:\\", {{-100, 1000}, {-50, 500}, {0, 0}}, {}}});
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
    form().chtHistory.show({{"C:\\", {{0, 700}}, {}}});
    settle();
    const QColor line = qt::seriesColour(0, chart()->palette().color(QPalette::Base));
    const QPointF place = chart()->placeOf({0, 700});
    EXPECT_EQ(pixel(place), line);
    // A dot of three pixels' radius and half a line around it. Its edge is smoothed.
    const QImage picture = chart()->grab().toImage();
    const double bare = distance(chart()->palette().color(QPalette::Base), line);
    double wide = 0;
    double high = 0;
    for (int from = -8; from <= 8; ++from) {
        wide += 1 - distance(pixelIn(picture, place + QPointF(from, 0)), line) / bare;
        high += 1 - distance(pixelIn(picture, place + QPointF(0, from)), line) / bare;
    }
    EXPECT_NEAR(wide, 8, 0.7);
    EXPECT_NEAR(high, 8, 0.7);
}

TEST_F(HistoryWindowTest, AScreenReaderIsToldTheLastFigureAndTheTrigger) {
    form().chtHistory.show({{"C:\\", {{-7300, 1000}, {-150, 1500}}, 200}});
    settle();
    EXPECT_EQ(chart()->accessibleDescription().toStdString(),
              "C:\\, 2 minutes ago: 1,500 KB, trigger 200 KB");
}

TEST_F(HistoryWindowTest, TenThousandPointsArePaintedAndNoneToo) {
    std::vector<LineChart::Point> points;
    for (int i = 0; i < 10'080; ++i) points.push_back({i - 10'080, 1e6 + i % 100});
    form().chtHistory.show({{"C:\\", points, 5e5}});
    settle();
    EXPECT_FALSE(chart()->grab().isNull());
    form().chtHistory.show({});
    settle();
    EXPECT_FALSE(chart()->grab().isNull());
}

TEST_F(HistoryWindowTest, EachPathHasALineATriggerAndAName) {
    form().chtHistory.show(
        {{"C:\\", {{-100, 1000}, {0, 1000}}, 800}, {"D:\\", {{-50, 300}, {0, 300}}, 100}});
    settle();
    const QColor base = chart()->palette().color(QPalette::Base);
    EXPECT_EQ(pixel(chart()->placeOf({0, 1000})).rgb(), qt::lineColour(0, base).rgb());
    EXPECT_EQ(pixel(chart()->placeOf({0, 300})).rgb(), qt::lineColour(1, base).rgb());
    // Both share one axis: the younger line begins in the middle.
    EXPECT_LT(distance(pixel(chart()->placeOf({-45, 300})), qt::lineColour(1, base)), 0.3);
    EXPECT_GT(distance(pixel(chart()->placeOf({-55, 300})), qt::lineColour(1, base)), 0.5);
    EXPECT_NE(qt::lineColour(0, base), qt::lineColour(1, base));
    EXPECT_EQ(chart()->legend(), (QStringList{QStringLiteral("C:\\"), QStringLiteral("D:\\")}));
    EXPECT_EQ(chart()->accessibleDescription().toStdString(),
              "C:\\, now: 1,000 KB, trigger 800 KB; D:\\, now: 300 KB, trigger 100 KB");
    // Names that have room are whole.
    TextRecorder page;
    QPainter painter(&page);
    chart()->paint(painter);
    painter.end();
    EXPECT_TRUE(page.has("C:\\") && page.has("D:\\")) << page.texts().join(' ').toStdString();
    const QPointF level = chart()->placeOf({-100, 100});
    int dashes = 0;
    for (int x = 0; x < 40; ++x) {
        dashes += distance(pixel(level + QPointF(x, 0)), qt::lineColour(1, base)) < 0.3 ? 1 : 0;
    }
    EXPECT_GT(dashes, 5);
    EXPECT_LT(dashes, 36);
}

TEST_F(HistoryWindowTest, TheNearestLineSaysItsNameAndItsFigure) {
    form().chtHistory.show(
        {{"C:\\", {{-100, 1000}, {0, 1000}}, {}}, {"D:\\", {{-100, 500}, {0, 300}}, {}}});
    settle();
    EXPECT_EQ(hintAt(chart()->placeOf({0, 320})), "D:\\\nnow: 300 KB");
    EXPECT_EQ(hintAt(chart()->placeOf({-100, 900})), "C:\\\n1 minute ago: 1,000 KB");
    form().chtHistory.show({{"C:\\", {{-100, 1000}, {0, 900}}, {}}});
    settle();
    EXPECT_EQ(hintAt(chart()->placeOf({0, 0})), "now: 900 KB");
    const std::pair<std::int64_t, const char*> ages[] = {
        {59, "now"},           {60, "1 minute ago"},      {7199, "119 minutes ago"},
        {7200, "2 hours ago"}, {172'799, "47 hours ago"}, {172'800, "2 days ago"}};
    for (const auto& [age, words] : ages) {
        form().chtHistory.show({{"C:\\", {{-age, 900}}, {}}});
        settle();
        EXPECT_EQ(hintAt(chart()->placeOf({-age, 900})), std::string(words) + ": 900 KB");
    }
}

TEST_F(HistoryWindowTest, ALegendWithoutRoomSaysHowManyAreLeftOut) {
    std::vector<LineChart::Line> lines;
    for (int i = 0; i < 200; ++i) {
        lines.push_back({"\\\\host\\" + std::to_string(i), {{-100, 10.0 * i}, {0, 5.0 * i}}, {}});
    }
    form().chtHistory.show(lines);
    settle();
    const QStringList legend = chart()->legend();
    ASSERT_GT(legend.size(), 3);
    ASSERT_LT(legend.size(), 200);
    EXPECT_EQ(legend[2].toStdString(), "\\\\host\\2");
    EXPECT_EQ(legend.back(), QStringLiteral("and %1 more").arg(201 - legend.size()));
    EXPECT_LE(legend.size() * chart()->fontMetrics().height(), chart()->height());
    // Only the line about the rest is no name.
    TextRecorder page;
    QPainter painter(&page);
    chart()->paint(painter);
    painter.end();
    const QColor ink = chart()->palette().color(QPalette::Text);
    ASSERT_GT(page.words.size(), 2u);
    EXPECT_EQ(page.words.back().text, legend.back()) << "it has room";
    EXPECT_NE(page.words.back().colour, ink);
    EXPECT_EQ(page.words[page.words.size() - 2].text, legend[legend.size() - 2]);
    EXPECT_EQ(page.words[page.words.size() - 2].colour, ink);
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
