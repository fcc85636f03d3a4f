// The pages of a printout as they are painted: every word of them, and their colours.
#include "qt/print/printed_pages.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <algorithm>

#include "qt/controls/printed_chart.h"
#include "qt/print/paper_look.h"
#include "qt/print/printed_table.h"
#include "qt/text_recorder.h"

namespace velmora::tests {
namespace {

constexpr double pageWidth = 680;
constexpr double pageHeight = 1010;

qt::ChartData barsOf(int rows, const QString& name = QStringLiteral("Row %1")) {
    qt::ChartData data{.showLegend = true,
                       .columns = {"Free Space", "Total Space"},
                       .axisTitles = {{"Drive/Path", "Free Space MB"}}};
    for (int i = 1; i <= rows; ++i) {
        data.rows << (name.contains(QLatin1String("%1")) ? name.arg(i) : name);
        data.values.push_back({1000.0 + i, 5000.0 + i});
    }
    return data;
}

qt::ChartData pieOf(int parts) {
    qt::ChartData data{.isPie = true, .showLegend = true, .rows = {"All of it"}};
    data.values.emplace_back();
    for (int i = 1; i <= parts; ++i) {
        data.columns << QStringLiteral("Part %1").arg(i);
        data.values.front().push_back(1);
    }
    return data;
}

qt::Printout printoutOf(const qt::ChartData& data, const QStringList& lines = {}) {
    return {.words = {.title = QStringLiteral("Free Space By Drive(s)"), .lines = lines},
            .picture = qt::printedChart(data, {}),
            .table = qt::tableOf(data, {}, true)};
}

struct Paper {
    qt::PrintedPages pages;
    std::vector<TextRecorder> sheets;

    explicit Paper(qt::Printout printout, const QSizeF& room = {pageWidth, pageHeight})
        : pages(std::move(printout), QStringLiteral("3/14/2026 3:09:26 PM")),
          sheets(static_cast<std::size_t>(pages.layOut(room))) {
        for (std::size_t i = 0; i < sheets.size(); ++i) {
            QPainter painter(&sheets[i]);
            pages.paint(painter, static_cast<int>(i));
        }
    }
    int timesPrinted(const QString& text) const {
        int count = 0;
        for (const TextRecorder& sheet : sheets) {
            count += static_cast<int>(sheet.texts().count(text));
        }
        return count;
    }
    bool allWithin(const QSizeF& room) const {
        return std::ranges::all_of(sheets, [&](const TextRecorder& sheet) {
            return std::ranges::all_of(sheet.words, [&](const TextRecorder::Word& word) {
                return word.place.x() >= -0.5 && word.place.y() > 0 &&
                       word.place.x() + word.width <= room.width() + 1 &&
                       word.place.y() <= room.height();
            });
        });
    }
    QImage imageOf(int page) const {
        QImage image(static_cast<int>(pageWidth), static_cast<int>(pageHeight),
                     QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        pages.paint(painter, page);
        return image;
    }
};

TEST(PrintedPages, APageSaysWhatItShowsAndWhen) {
    const Paper paper(printoutOf(barsOf(1), {"What it is about", "", "C:\\data"}));
    ASSERT_EQ(paper.sheets.size(), 1U);
    for (const char* text :
         {"Free Space By Drive(s)", "3/14/2026 3:09:26 PM", "What it is about", "C:\\data",
          "Drive/Path", "Free Space (KB)", "Total Space (KB)", "1,001", "5,001", "Page 1 of 1"}) {
        EXPECT_TRUE(paper.sheets[0].has(QLatin1String(text))) << text;
    }
    EXPECT_EQ(paper.timesPrinted("Row 1"), 2);  // beside its bar and in the table
    EXPECT_TRUE(paper.allWithin({pageWidth, pageHeight}));
}

TEST(PrintedPages, TwoHundredRowsAreAllInThePictureAndInTheTable) {
    const Paper paper(printoutOf(barsOf(200)));
    const int count = static_cast<int>(paper.sheets.size());
    EXPECT_GT(count, 4);
    EXPECT_LT(count, 20);
    for (int i = 1; i <= 200; ++i) {
        EXPECT_EQ(paper.timesPrinted(QStringLiteral("%L1").arg(5000 + i)), 1) << i;
    }
    int numbers = 0;
    for (int page = 1; page <= count; ++page) {
        numbers += paper.timesPrinted(QStringLiteral("Page %1 of %2").arg(page).arg(count));
        EXPECT_TRUE(paper.sheets[static_cast<std::size_t>(page - 1)].has("Free Space By Drive(s)"));
    }
    EXPECT_EQ(numbers, count);
    EXPECT_TRUE(paper.allWithin({pageWidth, pageHeight}));
}

TEST(PrintedPages, PiecesOfAPictureCutNoBarInTwo) {
    const Paper paper(printoutOf(barsOf(200)));
    // A row on a page's edge would be painted on both pages.
    for (int i = 1; i <= 200; ++i) EXPECT_EQ(paper.timesPrinted(QString("Row %1").arg(i)), 2) << i;
    // Each piece has an axis.
    int axes = 0;
    for (const TextRecorder& sheet : paper.sheets) axes += sheet.has("Free Space MB") ? 1 : 0;
    EXPECT_GT(axes, 2);
}

TEST(PrintedPages, APieOfManyPartsGoesOnWithItsLegend) {
    const Paper few(printoutOf(pieOf(3)));
    EXPECT_EQ(few.sheets.size(), 1U);
    EXPECT_EQ(few.timesPrinted("Part 3"), 2);
    EXPECT_EQ(few.timesPrinted("33.3 %"), 6);
    const Paper many(printoutOf(pieOf(100)));
    for (int i = 1; i <= 100; ++i) EXPECT_EQ(many.timesPrinted(QString("Part %1").arg(i)), 2) << i;
    EXPECT_TRUE(many.allWithin({pageWidth, pageHeight}));
}

TEST(PrintedPages, OnWiderPaperAPieIsLargerAndBarsAreAsHigh) {
    const auto pie = qt::printedChart(pieOf(3), {});
    EXPECT_NEAR(pie->heights(1000).best - pie->heights(500).best, 500 * 0.45, 1);
    EXPECT_EQ(pie->heights(1000).least, pie->heights(500).least);
    const auto bars = qt::printedChart(barsOf(3), {});
    EXPECT_EQ(bars->heights(1000).best, bars->heights(500).best);
    EXPECT_GT(bars->heights(500).best, bars->heights(500).least);
}

TEST(PrintedTable, ItsValuesLeaveAPartOfTheLeastWidthToNames) {
    const QString value = QStringLiteral("9").repeated(60);
    const qt::PrintedTable one({.headings = {"Name", "Value"}, .rows = {{"a", value}}});
    const qt::PrintedTable two(
        {.headings = {"Name", "Value", "Value"}, .rows = {{"a", value, value}}});
    const double width = QFontMetricsF(qt::paperFont()).horizontalAdvance(value);
    EXPECT_GT(one.leastWidth(), width * 1.2);
    EXPECT_LT(one.leastWidth(), width * 1.4);
    EXPECT_NEAR(two.leastWidth(), 2 * one.leastWidth(), 0.01);
}

TEST(PrintedPages, ALongNameIsWholeInTheTable) {
    const QString name =
        QStringLiteral("\\\\server\\") + QStringLiteral("a folder with words\\").repeated(9);
    const Paper paper(printoutOf(barsOf(1, name)));
    // Beside its bar there is no room for all of it.
    EXPECT_EQ(paper.timesPrinted(name), 0);
    EXPECT_TRUE(paper.sheets[0].texts().join(QLatin1Char(' ')).contains(name));
    EXPECT_TRUE(paper.allWithin({pageWidth, pageHeight}));
}

TEST(PrintedPages, ANameWithoutEndIsCutInItsMiddle) {
    const QString name =
        QStringLiteral("begin") + QString(5000, QLatin1Char('x')) + QStringLiteral("end");
    const Paper paper(printoutOf(barsOf(1, name)));
    ASSERT_EQ(paper.sheets.size(), 1U);
    const QStringList texts = paper.sheets[0].texts();
    EXPECT_EQ(texts.filter(QStringLiteral("begin")).size(), 2);
    EXPECT_EQ(texts.filter(QStringLiteral("end")).size(), 2);
    EXPECT_EQ(texts.filter(QStringLiteral("xxx")).size(), 6);  // five lines in the table
    EXPECT_TRUE(paper.allWithin({pageWidth, pageHeight}));
}

TEST(PrintedPages, ALongPathAboveThePictureIsCutToo) {
    const QString path = QString(5000, QLatin1Char('y')) + QStringLiteral("\\last");
    const Paper paper(printoutOf(barsOf(1), {path}));
    const QStringList texts = paper.sheets[0].texts();
    EXPECT_EQ(texts.filter(QStringLiteral("yyy")).size(), 3);
    EXPECT_EQ(texts.filter(QStringLiteral("\\last")).size(), 1);
    EXPECT_TRUE(paper.allWithin({pageWidth, pageHeight}));
}

TEST(PrintedPages, LineEndsInNamesTearNoRowApart) {
    const Paper paper(printoutOf(barsOf(1, QStringLiteral("one\ntwo\tthree"))));
    EXPECT_TRUE(paper.sheets[0].has(QStringLiteral("one two three")));
}

TEST(PrintedPages, ThePaperIsLightInADarkTheme) {
    const QPalette before = QGuiApplication::palette();
    QPalette dark(QColor(56, 59, 64), QColor(43, 45, 49));
    dark.setColor(QPalette::Base, QColor(30, 31, 34));
    dark.setColor(QPalette::Text, Qt::white);
    QGuiApplication::setPalette(dark);
    for (const qt::ChartData& data : {barsOf(3), pieOf(3)}) {
        const Paper paper(printoutOf(data));
        for (const TextRecorder::Word& word : paper.sheets[0].words) {
            EXPECT_LT(word.colour.lightness(), 128) << word.text.toStdString();
        }
        const QImage image = paper.imageOf(0);
        for (const QPoint& place : {QPoint(5, 130), QPoint(670, 130), QPoint(340, 960)}) {
            EXPECT_EQ(image.pixelColor(place), QColor(Qt::white)) << place.x();
        }
    }
    QGuiApplication::setPalette(before);
}

TEST(PrintedPages, NarrowPaperKeepsAllWithinItsEdges) {
    for (const QSizeF room : {QSizeF(260, 400), QSizeF(1000, 560)}) {
        const Paper paper(printoutOf(barsOf(30)), room);
        EXPECT_TRUE(paper.allWithin(room)) << room.width();
        EXPECT_EQ(paper.timesPrinted("5,030"), 1) << room.width();
    }
}

TEST(PrintedPages, NoNumberIsCut) {
    qt::Printout printout = printoutOf(barsOf(1));
    printout.table = {
        .headings = {"Path", "Greatest", "Least", "Last", "Trigger"},
        .rows = {{"C:\\", "1,953,497,088", "1,953,497,087", "1,953,497,086", "1,953,497,085"}}};
    const Paper paper(std::move(printout), {300, 400});
    for (const char* number :
         {"1,953,497,088", "1,953,497,087", "1,953,497,086", "1,953,497,085"}) {
        EXPECT_EQ(paper.timesPrinted(QString::fromLatin1(number)), 1) << number;
    }
    EXPECT_TRUE(paper.allWithin({300, 400}));
}

TEST(PrintedPages, PaperCanBeChangedBetweenJobs) {
    qt::PrintedPages pages(printoutOf(barsOf(60)), {});
    const int onA4 = pages.layOut({pageWidth, pageHeight});
    const int onA5 = pages.layOut({440, 680});
    EXPECT_GT(onA5, onA4);
    EXPECT_EQ(pages.layOut({pageWidth, pageHeight}), onA4);
}

}  // namespace
}  // namespace velmora::tests
