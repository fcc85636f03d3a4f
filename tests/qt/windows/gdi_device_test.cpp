// Pages on a device context, and the system's print dialog where there is no printer.
#include "qt/system/windows/printing/gdi_device.h"

#include <gtest/gtest.h>
#include <winspool.h>

#include "qt/system/windows/printing/print_dialog.h"

namespace velmora::tests {
namespace {

using qt::GdiDevice;
using qt::PrintEnd;

// A context whose dots can be read.
struct MemoryContext {
    static constexpr int width = 400;
    static constexpr int height = 600;
    HDC context = ::CreateCompatibleDC(nullptr);
    std::uint32_t* dots = nullptr;
    HBITMAP bitmap = nullptr;

    MemoryContext() {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bytes = nullptr;
        bitmap = ::CreateDIBSection(context, &info, DIB_RGB_COLORS, &bytes, nullptr, 0);
        dots = static_cast<std::uint32_t*>(bytes);
        ::SelectObject(context, bitmap);
        std::fill(dots, dots + width * height, paper);
    }
    ~MemoryContext() { ::DeleteObject(bitmap); }
    MemoryContext(const MemoryContext&) = delete;
    MemoryContext& operator=(const MemoryContext&) = delete;

    /// The red, green and blue of a dot.
    std::uint32_t at(int x, int y) const {
        ::GdiFlush();
        return dots[y * width + x] & 0xFFFFFF;
    }

    static constexpr std::uint32_t paper = 0xABCDEF;
};

QImage pictureFilled(const QSize& size, const QColor& colour) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

TEST(GdiDevice, APictureFillsItsPlaceAndNoMore) {
    MemoryContext memory;
    GdiDevice device(memory.context);
    QImage picture = pictureFilled({100, 200}, Qt::red);
    picture.setPixelColor(0, 0, Qt::blue);
    ASSERT_TRUE(device.draw(picture, {50, 60, 200, 400}));
    EXPECT_EQ(memory.at(50, 60), 0x0000FFU);
    EXPECT_EQ(memory.at(51, 61), 0x0000FFU);  // twice as large
    EXPECT_EQ(memory.at(52, 62), 0xFF0000U);
    EXPECT_EQ(memory.at(249, 459), 0xFF0000U);
    for (const auto& [x, y] : {std::pair{49, 60}, {50, 59}, {250, 459}, {249, 460}}) {
        EXPECT_EQ(memory.at(x, y), MemoryContext::paper) << x << ' ' << y;
    }
}

TEST(GdiDevice, StripsMeetWithoutGaps) {
    MemoryContext memory;
    GdiDevice device(memory.context);
    // Several strips, and no whole number of dots for a line of the picture.
    ASSERT_TRUE(device.draw(pictureFilled({100, 413}, Qt::darkGreen), {0, 3, 150, 571}));
    for (int y = 3; y < 3 + 571; ++y) ASSERT_EQ(memory.at(75, y), 0x008000U) << y;
    EXPECT_EQ(memory.at(75, 2), MemoryContext::paper);
    EXPECT_EQ(memory.at(75, 574), MemoryContext::paper);
}

TEST(GdiDevice, TheLinesOfAPictureKeepTheirPlaces) {
    MemoryContext memory;
    GdiDevice device(memory.context);
    QImage picture = pictureFilled({10, 500}, Qt::white);
    for (const int line : {0, 127, 128, 255, 256, 499}) {
        for (int x = 0; x < 10; ++x) picture.setPixelColor(x, line, Qt::black);
    }
    ASSERT_TRUE(device.draw(picture, {0, 0, 10, 500}));
    for (const int line : {0, 127, 128, 255, 256, 499}) EXPECT_EQ(memory.at(5, line), 0U) << line;
    for (const int line : {1, 126, 129, 254, 257}) EXPECT_EQ(memory.at(5, line), 0xFFFFFFU) << line;
}

TEST(GdiDevice, WhiteStripsAreNotSent) {
    MemoryContext memory;
    GdiDevice device(memory.context);
    QImage picture = pictureFilled({10, 500}, Qt::white);
    picture.setPixelColor(3, 300, Qt::black);
    ASSERT_TRUE(device.draw(picture, {0, 0, 10, 500}));
    EXPECT_EQ(memory.at(5, 100), MemoryContext::paper);
    EXPECT_EQ(memory.at(3, 300), 0U);
    EXPECT_EQ(memory.at(5, 300), 0xFFFFFFU);
    EXPECT_EQ(memory.at(5, 450), MemoryContext::paper);
}

TEST(GdiDevice, AContextWithoutPaperIsPrintableAllOver) {
    MemoryContext memory;
    const GdiDevice device(memory.context);
    const qt::Paper paper = device.paper();
    EXPECT_EQ(paper.size, paper.printable.size());
    EXPECT_EQ(paper.printable.topLeft(), QPoint(0, 0));
    EXPECT_GT(paper.dotsPerInch.width(), 1);
}

TEST(GdiDevice, AJobThatCannotBeginHasAReason) {
    GdiDevice device(nullptr);
    EXPECT_FALSE(device.startDoc(QStringLiteral("Chart")));
    EXPECT_EQ(device.failure().end, PrintEnd::failed);
    EXPECT_FALSE(device.failure().reason.isEmpty());
}

TEST(PrintDialog, AMachineWithoutPrintersIsKnown) {
    DWORD needed = 0;
    DWORD printers = 0;
    ::EnumPrintersW(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, nullptr, 4, nullptr, 0, &needed,
                    &printers);
    const qt::PrinterChoice choice = qt::choosePrinter(nullptr, true);
    if (needed == 0) {
        EXPECT_EQ(choice.result.end, PrintEnd::noPrinter);
        EXPECT_EQ(choice.context, nullptr);
    } else {
        EXPECT_EQ(choice.result.end, PrintEnd::printed);
        const GdiDevice device(choice.context);
        EXPECT_GT(device.paper().size.width(), 100);
    }
}

}  // namespace
}  // namespace velmora::tests
