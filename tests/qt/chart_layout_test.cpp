// Where bars and wedges lie, and in which colours.
#include "qt/controls/chart_layout.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <cmath>
#include <memory>
#include <set>
#include <tuple>
#include <vector>

#include "qt/colours/colours.h"
#include "qt/controls/chart_colours.h"
#include "qt/controls/chart_data.h"
#include "qt/controls/chart_face.h"
#include "qt/controls/chart_paint.h"
#include "qt/text_recorder.h"

namespace velmora::tests {
namespace {

using qt::BarRoom;
using qt::BarRow;

std::vector<QRectF> rectsOf(const std::vector<BarRow>& rows) {
    std::vector<QRectF> all;
    for (const BarRow& row : rows) {
        all.push_back(row.label);
        all.insert(all.end(), row.bars.begin(), row.bars.end());
    }
    return all;
}

class BarLayout : public testing::TestWithParam<int> {};

TEST_P(BarLayout, NothingOverlapsAndEachRowHasItsLabelsHeight) {
    const BarRoom room{.size = {600, 300}, .labelWidth = 120, .lineHeight = 16};
    const std::vector<BarRow> rows = qt::layBarRows(GetParam(), 2, room);
    ASSERT_EQ(rows.size(), static_cast<std::size_t>(GetParam()));
    const std::vector<QRectF> all = rectsOf(rows);
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (std::size_t j = i + 1; j < all.size(); ++j) {
            ASSERT_FALSE(all[i].intersects(all[j])) << i << " and " << j;
        }
    }
    for (const BarRow& row : rows) {
        EXPECT_GE(row.label.height(), room.lineHeight);
        for (const QRectF& bar : row.bars) {
            EXPECT_GE(bar.height(), 6);
            EXPECT_GT(bar.width(), 400);
            EXPECT_TRUE(row.all.contains(bar));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, BarLayout, testing::Values(1, 2, 26, 200));

TEST(BarLayoutHeight, FewRowsFillTheRoomAndManyGoBeyondIt) {
    const BarRoom room{.size = {600, 300}, .labelWidth = 120, .lineHeight = 16};
    EXPECT_EQ(qt::layBarRows(6, 2, room).back().all.bottom(), 300);
    EXPECT_LT(qt::layBarRows(1, 2, room).back().all.bottom(), 100);
    EXPECT_GT(qt::layBarRows(200, 2, room).back().all.bottom(), 200 * 16);
    EXPECT_TRUE(qt::layBarRows(0, 2, room).empty());
}

TEST(BarLayoutHeight, BarsOfACrowdedRowAreSixHighWithTwoBetweenThem) {
    const BarRow row =
        qt::layBarRows(9, 3, {.size = {600, 10}, .labelWidth = 120, .lineHeight = 5}).front();
    EXPECT_EQ(row.all.height(), 3 * 6 + 2 * 2 + 6);
    for (const QRectF& bar : row.bars) EXPECT_EQ(bar.height(), 6);
    EXPECT_EQ(row.bars[1].top(), row.bars[0].bottom() + 2);
}

TEST(WedgeLayout, NothingHasNoWedgesAndTheLeastOfAWholeHas) {
    EXPECT_TRUE(qt::layWedges({0, -1}).empty());
    ASSERT_EQ(qt::layWedges({0.5}).size(), 1U);
    EXPECT_EQ(qt::layWedges({0.5})[0].span, 360);
}

TEST(WedgeLayout, EachTakesItsShareOfTheTurn) {
    const std::vector<qt::Wedge> wedges = qt::layWedges({1, 2, 0, 1});
    ASSERT_EQ(wedges.size(), 4U);
    EXPECT_EQ(wedges[0].start, 0);
    EXPECT_EQ(wedges[0].span, 90);
    EXPECT_EQ(wedges[1].start, 90);
    EXPECT_EQ(wedges[1].span, 180);
    EXPECT_EQ(wedges[2].span, 0);
    EXPECT_EQ(wedges[3].start, 270);
    EXPECT_TRUE(qt::layWedges({0, 0}).empty());
    EXPECT_EQ(qt::layWedges({-5, 5})[1].span, 360);
}

TEST(WedgeLayout, ThePlaceTellsTheWedge) {
    const std::vector<qt::Wedge> wedges = qt::layWedges({1, 2, 0, 1});
    EXPECT_EQ(qt::wedgeAt(wedges, {5, -5}, 10), 0);   // upper right
    EXPECT_EQ(qt::wedgeAt(wedges, {5, 5}, 10), 1);    // lower right
    EXPECT_EQ(qt::wedgeAt(wedges, {-5, 5}, 10), 1);   // lower left
    EXPECT_EQ(qt::wedgeAt(wedges, {-5, -5}, 10), 3);  // upper left
    EXPECT_EQ(qt::wedgeAt(wedges, {8, 8}, 10), -1);
}

TEST(ChartColours, AllStandOutFromLightAndDarkGrounds) {
    std::vector<double> values(200, 1);
    values[150] = 7;
    for (const QColor& ground : {QColor(Qt::white), QColor(30, 31, 34), QColor(Qt::black)}) {
        for (int column = 0; column < 3; ++column) {
            EXPECT_GE(qt::contrast(qt::seriesColour(column, ground), ground), 3) << column;
        }
        const std::vector<QColor> colours = qt::wedgeColours(values, ground);
        ASSERT_EQ(colours.size(), values.size());
        for (std::size_t i = 0; i < colours.size(); ++i) {
            EXPECT_GE(qt::contrast(colours[i], ground), 3) << i;
            const std::size_t next = (i + 1) % colours.size();
            EXPECT_NE(colours[i].rgb(), colours[next].rgb()) << i;
        }
    }
}

TEST(ChartColours, TwentyLinesDiffer) {
    for (const QColor& ground : {QColor(Qt::white), QColor(30, 31, 34)}) {
        std::set<QRgb> seen;
        for (int line = 0; line < 20; ++line) {
            EXPECT_GE(qt::contrast(qt::lineColour(line, ground), ground), 3) << line;
            seen.insert(qt::lineColour(line, ground).rgb());
        }
        EXPECT_EQ(seen.size(), 20U);
        EXPECT_EQ(qt::lineColour(20, ground), qt::lineColour(0, ground));
    }
}

// The face that has the legend above its bars, in a room of that width.
std::unique_ptr<qt::ChartFace> faceOfThreeColumns(double width, bool showLegend) {
    qt::ChartData data;
    data.showLegend = showLegend;
    data.rows = {QStringLiteral("C:\\")};
    data.columns = {QStringLiteral("Size of the drive"), QStringLiteral("Free space of it"),
                    QStringLiteral("The minimum of it")};
    data.values = {{100, 50, 10}};
    data.axisTitles = {QStringLiteral("Path"), QStringLiteral("KB")};
    std::unique_ptr<qt::ChartFace> face = qt::makeBarFace(std::move(data), Regional{});
    face->layOut({width, 300}, QFont());
    return face;
}

// The axis below has two lines and a gap; the same gap is above and below the rows.
TEST(BarFace, ItsRowsKeepTheSameDistanceFromTheLegendAndTheAxis) {
    const double line = std::ceil(QFontMetricsF(QFont()).height());
    const QRectF rows = faceOfThreeColumns(900, true)->window();
    const double gap = rows.top() - (qt::chartMargin + line);
    EXPECT_GT(gap, 0);
    EXPECT_EQ(rows.bottom(), 300 - qt::chartMargin - (2 * line + gap) - gap);
}

TEST(BarLegend, TakesMoreLinesWhereTheRoomIsNarrow) {
    const double line = std::ceil(QFontMetricsF(QFont()).height());
    const double wide = faceOfThreeColumns(900, true)->window().top();
    EXPECT_EQ(faceOfThreeColumns(900, false)->window().top(), wide);
    EXPECT_EQ(faceOfThreeColumns(180, true)->window().top(), wide + 2 * line);
    EXPECT_EQ(faceOfThreeColumns(180, false)->window().top(), wide);
}

TEST(BarLegend, NoEntryIsMissing) {
    for (const double width : {180.0, 900.0}) {
        QImage picture(static_cast<int>(width), 300, QImage::Format_RGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        const auto face = faceOfThreeColumns(width, true);
        face->paint(painter, {.palette = QPalette(Qt::white)});
        painter.end();
        std::set<QRgb> above;
        for (int y = 0; y < static_cast<int>(face->window().top()); ++y) {
            for (int x = 0; x < picture.width(); ++x) above.insert(picture.pixel(x, y));
        }
        for (int column = 0; column < 3; ++column) {
            EXPECT_TRUE(above.contains(qt::seriesColour(column, Qt::white).rgb()))
                << width << " " << column;
        }
    }
}

/// How many times the usual font, and how many rows.
class BarAxis : public testing::TestWithParam<std::tuple<double, int>> {};

INSTANTIATE_TEST_SUITE_P(Fonts, BarAxis,
                         testing::Combine(testing::Values(1.0, 1.5, 2.0), testing::Values(1, 200)));

// Drives of 16 TB in a chart as wide as the dialog.
TEST_P(BarAxis, ItsNumbersAreKilobytesInGroupsAndNoneTouchesAnother) {
    constexpr double sixteenTB = 17'179'869'184;  // KB
    constexpr double width = 900;
    const auto [scale, rows] = GetParam();
    qt::ChartData data;
    data.showLegend = true;
    for (int i = 1; i <= rows; ++i) {
        data.rows << QStringLiteral("\\\\server\\share %1").arg(i);
        data.values.push_back({sixteenTB / 2, sixteenTB});
    }
    data.columns = {QStringLiteral("Free Space"), QStringLiteral("Total Space")};
    data.axisTitles = {QStringLiteral("Drive/Path"), QStringLiteral("Free Space MB")};
    QFont font;
    font.setPointSizeF(font.pointSizeF() * scale);
    const auto face = qt::makeBarFace(data, Regional{});
    TextRecorder page;
    QPainter painter(&page);
    painter.setFont(font);
    face->layOut({width, 400}, painter.font());
    face->paint(painter, {.palette = QPalette(Qt::white)});
    painter.end();

    std::vector<TextRecorder::Word> ticks;
    double baseline = 0;
    for (const TextRecorder::Word& word : page.words) {
        if (word.text == QLatin1String("0")) baseline = word.place.y();
    }
    for (const TextRecorder::Word& word : page.words) {
        if (word.place.y() == baseline) ticks.push_back(word);
    }
    std::ranges::sort(ticks, {}, [](const TextRecorder::Word& word) { return word.place.x(); });
    ASSERT_GE(ticks.size(), 2U);
    EXPECT_EQ(ticks.front().text, QStringLiteral("0"));
    EXPECT_TRUE(page.has(QStringLiteral("10,000,000,000"))) << page.texts().join(' ').toStdString();
    for (std::size_t i = 1; i < ticks.size(); ++i) {
        EXPECT_GT(ticks[i].place.x(), ticks[i - 1].place.x() + ticks[i - 1].width)
            << ticks[i].text.toStdString();
        EXPECT_TRUE(ticks[i].text.endsWith(QLatin1String(",000,000,000")));
    }
    EXPECT_GE(ticks.front().place.x(), 0);
    EXPECT_LE(ticks.back().place.x() + ticks.back().width, width);
}

TEST(ChartColours, TheGreatestTenHaveColoursOfTheirOwn) {
    std::vector<double> values(30, 1);
    for (std::size_t i = 5; i < 15; ++i) values[i] = 100;
    const std::vector<QColor> colours = qt::wedgeColours(values, Qt::white);
    std::set<QRgb> great;
    for (std::size_t i = 5; i < 15; ++i) great.insert(colours[i].rgb());
    EXPECT_EQ(great.size(), 10U);
    for (const std::size_t small : {0, 4, 15, 29})
        EXPECT_FALSE(great.contains(colours[small].rgb()));
}

TEST(EmptyChart, FillsItsRoom) {
    const auto face = qt::makeEmptyFace();
    face->layOut({300, 200}, QFont());
    EXPECT_EQ(face->window(), QRectF(0, 0, 300, 200));
}

}  // namespace
}  // namespace velmora::tests
