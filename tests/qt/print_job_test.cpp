// Pages as pictures for a device that takes nothing else.
#include "qt/system/print_job.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora::tests {
namespace {

using qt::PageRange;
using qt::PrintEnd;
using qt::PrintResult;

// A4 in a printer of 600 dots an inch that can't print on 100 dots at each edge.
const qt::Paper fineA4{
    .size = {4960, 7016}, .printable = {100, 100, 4760, 6816}, .dotsPerInch = {600, 600}};

class RecordedDevice final : public qt::PageDevice {
  public:
    qt::Paper sheet = fineA4;
    int failingCall = 0;  // from 1, 0 for none
    PrintResult howItFails = {.end = PrintEnd::failed, .reason = "No paper"};
    std::vector<std::string> calls;
    std::vector<QImage> pictures;
    std::vector<QRect> places;

    qt::Paper paper() const override { return sheet; }
    bool startDoc(const QString& title) override { return call("StartDoc " + title.toStdString()); }
    bool startPage() override { return call("StartPage"); }
    bool draw(const QImage& picture, const QRect& place) override {
        pictures.push_back(picture);
        places.push_back(place);
        return call("draw");
    }
    bool endPage() override { return call("EndPage"); }
    bool endDoc() override { return call("EndDoc"); }
    void abortDoc() override { calls.emplace_back("AbortDoc"); }
    PrintResult failure() const override { return howItFails; }

  private:
    bool call(std::string name) {
        calls.push_back(std::move(name));
        return static_cast<int>(calls.size()) != failingCall;
    }
};

// Each page has a black square of 20 units at its number times 100.
class SquarePages final : public qt::Pages {
  public:
    explicit SquarePages(int count) : count_(count) {}
    QSizeF room;

    QString title() const override { return QStringLiteral("Squares"); }
    int layOut(const QSizeF& size) override {
        room = size;
        return count_;
    }
    void paint(QPainter& painter, int page) const override {
        painter.fillRect(QRectF(100, page * 100, 20, 20), Qt::black);
    }

  private:
    int count_;
};

TEST(PrintJob, PagesHaveMarginsOnPaper) {
    RecordedDevice device;
    SquarePages pages(1);
    EXPECT_EQ(printOn(device, pages, {}).end, PrintEnd::printed);
    // 4960 and 7016 dots are 793.6 and 1122.56 units; 57.6 at each edge are 0.6 inch.
    EXPECT_NEAR(pages.room.width(), 793.6 - 2 * 57.6, 0.001);
    EXPECT_NEAR(pages.room.height(), 1122.56 - 2 * 57.6, 0.001);
    // 0.6 inch are 360 dots, 260 of them among the printable ones.
    EXPECT_EQ(device.places.at(0).topLeft(), QPoint(260, 260));
    EXPECT_EQ(device.places.at(0).width(), 4960 - 720);
    EXPECT_EQ(device.places.at(0).height(), 7016 - 720);
}

TEST(PrintJob, APictureHasThreeHundredDotsAnInch) {
    RecordedDevice device;
    SquarePages pages(2);
    printOn(device, pages, {});
    ASSERT_EQ(device.pictures.size(), 2U);
    const QImage& second = device.pictures[1];
    EXPECT_EQ(second.width(), 2120);  // 678.4 units of 3.125 dots
    const auto at = [&](double x, double y) {
        return second.pixelColor(static_cast<int>(x * 3.125), static_cast<int>(y * 3.125));
    };
    EXPECT_EQ(at(110, 110), QColor(Qt::black));
    EXPECT_EQ(at(110, 130), QColor(Qt::white));
    EXPECT_EQ(at(110, 10), QColor(Qt::white));
    EXPECT_EQ(at(90, 110), QColor(Qt::white));
}

TEST(PrintJob, APrinterOfFewerDotsGetsNoMoreThanItHas) {
    RecordedDevice device;
    device.sheet = {
        .size = {1654, 1169}, .printable = {0, 0, 1654, 1169}, .dotsPerInch = {200, 100}};
    SquarePages pages(1);
    printOn(device, pages, {});
    EXPECT_NEAR(pages.room.width(), 1654 * 96 / 200.0 - 115.2, 0.001);
    EXPECT_NEAR(pages.room.height(), 1169 * 96 / 100.0 - 115.2, 0.001);
    EXPECT_NEAR(device.pictures.at(0).height(), device.places.at(0).height(), 1);
}

TEST(PrintJob, WhatCannotBePrintedIsLeftOut) {
    RecordedDevice device;
    device.sheet.printable = {600, 600, 3000, 3000};
    SquarePages pages(1);
    printOn(device, pages, {});
    EXPECT_NEAR(pages.room.width(), 3000 * 96 / 600.0, 0.001);
    EXPECT_EQ(device.places.at(0), QRect(0, 0, 3000, 3000));
}

TEST(PrintJob, ASmallLabelKeepsHalfOfItsSize) {
    const qt::Paper label{
        .size = {300, 600}, .printable = {0, 0, 300, 600}, .dotsPerInch = {300, 300}};
    EXPECT_EQ(roomOn(label), QRectF(24, 48, 48, 96));
}

TEST(PrintJob, APosterIsPaintedLessFinely) {
    RecordedDevice device;
    device.sheet = {
        .size = {9933, 14043}, .printable = {0, 0, 9933, 14043}, .dotsPerInch = {300, 300}};
    SquarePages pages(1);
    printOn(device, pages, {});
    const double dots = 1.0 * device.pictures.at(0).width() * device.pictures.at(0).height();
    EXPECT_GT(dots, 19e6);
    EXPECT_LT(dots, 21e6);
}

TEST(PrintJob, TheCallsHaveTheirOrder) {
    RecordedDevice device;
    SquarePages pages(2);
    printOn(device, pages, {});
    const std::vector<std::string> expected{"StartDoc Squares", "StartPage", "draw",    "EndPage",
                                            "StartPage",        "draw",      "EndPage", "EndDoc"};
    EXPECT_EQ(device.calls, expected);
}

TEST(PrintJob, WhicheverCallFailsTheJobIsDroppedAndThePageTold) {
    const int pageOf[] = {0, 1, 1, 1, 2, 2, 2, 0};
    for (int failing = 1; failing <= 8; ++failing) {
        RecordedDevice device;
        device.failingCall = failing;
        SquarePages pages(2);
        const PrintResult result = printOn(device, pages, {});
        EXPECT_EQ(result.end, PrintEnd::failed) << failing;
        EXPECT_EQ(result.reason, "No paper") << failing;
        EXPECT_EQ(result.page, pageOf[failing - 1]) << failing;
        // A job that never began can't be dropped.
        const std::size_t calls = static_cast<std::size_t>(failing) + (failing == 1 ? 0 : 1);
        ASSERT_EQ(device.calls.size(), calls) << failing;
        EXPECT_EQ(device.calls.back() == "AbortDoc", failing != 1) << failing;
    }
}

TEST(PrintJob, AJobThatTheUserCancelsHasNotFailed) {
    RecordedDevice device;
    device.failingCall = 1;
    device.howItFails = {.end = PrintEnd::cancelled};
    SquarePages pages(1);
    EXPECT_EQ(printOn(device, pages, {}).end, PrintEnd::cancelled);
}

TEST(PrintJob, OnlyTheChosenPagesArePrinted) {
    const auto printed = [](const PageRange& range) {
        RecordedDevice device;
        SquarePages pages(5);
        EXPECT_EQ(printOn(device, pages, range).end, PrintEnd::printed);
        return device.pictures;
    };
    const std::vector<QImage> some = printed({.first = 2, .last = 3});
    ASSERT_EQ(some.size(), 2U);
    EXPECT_EQ(some[0].pixelColor(344, 344), QColor(Qt::black));  // the square of page 2
    EXPECT_EQ(some[1].pixelColor(344, 656), QColor(Qt::black));
    EXPECT_EQ(printed({.first = 5, .last = 99}).size(), 1U);
    EXPECT_EQ(printed({}).size(), 5U);
}

TEST(PrintJob, PagesThatAreNotThereArePrintedOnNoPaper) {
    RecordedDevice device;
    SquarePages pages(5);
    PrintResult result = printOn(device, pages, {.first = 6, .last = 9});
    EXPECT_EQ(result.end, PrintEnd::failed);
    EXPECT_EQ(result.reason, "It has only 5 pages");
    SquarePages one(1);
    result = printOn(device, one, {.first = 2, .last = 2});
    EXPECT_EQ(result.reason, "It has only one page");
    EXPECT_TRUE(device.calls.empty());
}

}  // namespace
}  // namespace velmora::tests
