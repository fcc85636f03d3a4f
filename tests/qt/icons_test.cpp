// Glyphs and the program's icon, as the widgets rely on them.
#include <gtest/gtest.h>

#include <QApplication>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QTransform>
#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "qt/colours/colours.h"
#include "qt/icons/glyph.h"
#include "qt/icons/program_icon.h"

namespace velmora::qt {
namespace {

std::vector<Glyph> allGlyphs() {
    std::vector<Glyph> glyphs;
    for (int i = static_cast<int>(Glyph::start); i <= static_cast<int>(Glyph::networkDrive); ++i) {
        glyphs.push_back(static_cast<Glyph>(i));
    }
    return glyphs;
}

QImage picture(Glyph glyph, int side = 16, QIcon::Mode mode = QIcon::Normal, qreal ratio = 1) {
    return glyphIcon(glyph).pixmap(QSize(side, side), ratio, mode).toImage();
}

template <typename Predicate>
int countPixels(const QImage& image, Predicate predicate) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) count += predicate(image.pixelColor(x, y)) ? 1 : 0;
    }
    return count;
}

int paintedPixels(const QImage& image) {
    return countPixels(image, [](const QColor& pixel) { return pixel.alpha() > 0; });
}

/// Which pixels are painted, in any colour.
std::vector<bool> shape(const QImage& image) {
    std::vector<bool> mask;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            mask.push_back(image.pixelColor(x, y).alpha() >= 128);
        }
    }
    return mask;
}

int differences(const std::vector<bool>& one, const std::vector<bool>& other) {
    int count = 0;
    for (std::size_t i = 0; i < one.size(); ++i) count += one[i] != other[i] ? 1 : 0;
    return count;
}

QPalette paletteOf(const QColor& window, const QColor& text, const QColor& highlight) {
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::yellow);
    return palette;
}

class Icons : public testing::Test {
  protected:
    void SetUp() override { QApplication::setPalette(light_); }
    void TearDown() override { QApplication::setPalette(before_); }

    const QPalette before_ = QApplication::palette();
    const QPalette light_ = paletteOf(Qt::white, Qt::black, QColor(0, 90, 200));
    const QPalette dark_ = paletteOf(QColor(30, 30, 30), Qt::white, QColor(120, 190, 255));
};

TEST_F(Icons, EveryGlyphPaintsSomethingAtItsSmallestSize) {
    for (const Glyph glyph : allGlyphs()) {
        EXPECT_GE(paintedPixels(picture(glyph)), 16) << static_cast<int>(glyph);
    }
}

TEST_F(Icons, NoTwoGlyphsHaveTheSameShape) {
    std::set<std::vector<bool>> shapes;
    for (const Glyph glyph : allGlyphs()) shapes.insert(shape(picture(glyph)));
    EXPECT_EQ(shapes.size(), allGlyphs().size());
}

TEST_F(Icons, GlyphsStayInsideTheirSquare) {
    constexpr int side = 48;
    for (const Glyph glyph : allGlyphs()) {
        const QImage image = picture(glyph, side);
        const QImage inner = image.copy(1, 1, side - 2, side - 2);
        EXPECT_EQ(paintedPixels(image), paintedPixels(inner)) << static_cast<int>(glyph);
    }
}

TEST_F(Icons, AGlyphIsTheSameIconAtEachCall) {
    EXPECT_EQ(glyphIcon(Glyph::drive).cacheKey(), glyphIcon(Glyph::drive).cacheKey());
}

TEST_F(Icons, AGlyphIsDrawnAgainForADenserScreen) {
    const QImage dense = picture(Glyph::drive, 16, QIcon::Normal, 2);
    EXPECT_EQ(dense.size(), QSize(32, 32));
    EXPECT_EQ(dense.devicePixelRatio(), 2);
    QImage single = picture(Glyph::drive, 32);
    single.setDevicePixelRatio(2);
    EXPECT_EQ(dense, single);
}

TEST_F(Icons, EveryGlyphTakesTheColoursOfANewPalette) {
    std::vector<QImage> before;
    for (const Glyph glyph : allGlyphs()) before.push_back(picture(glyph));
    QApplication::setPalette(dark_);
    std::size_t next = 0;
    for (const Glyph glyph : allGlyphs()) {
        EXPECT_NE(picture(glyph), before[next++]) << static_cast<int>(glyph);
    }
}

TEST_F(Icons, OutlinesAreDarkOnLightAndLightOnDark) {
    const auto opaqueBrighterThan = [](int least, const QImage& image) {
        return countPixels(image, [least](const QColor& pixel) {
            return pixel.alpha() > 200 && qGray(pixel.rgb()) > least;
        });
    };
    EXPECT_EQ(opaqueBrighterThan(150, picture(Glyph::networkDrive, 48)), 0);
    QApplication::setPalette(dark_);
    EXPECT_GT(opaqueBrighterThan(200, picture(Glyph::networkDrive, 48)), 100);
}

TEST_F(Icons, TheAccentStandsOutFromEveryWindow) {
    // Pause is drawn in the accent alone.
    for (const auto& [window, ink] : {std::pair{Qt::white, Qt::black}, {Qt::black, Qt::white}}) {
        QApplication::setPalette(paletteOf(window, ink, QColor(0, 0, 90)));
        const QImage pause = picture(Glyph::pause, 48);
        const QColor ground(window);
        EXPECT_EQ(countPixels(pause,
                              [&ground](const QColor& pixel) {
                                  return pixel.alpha() == 255 && qt::contrast(pixel, ground) < 2.9;
                              }),
                  0);
    }
}

TEST_F(Icons, ADisabledGlyphIsGrey) {
    for (const Glyph glyph : allGlyphs()) {
        const QImage image = picture(glyph, 24, QIcon::Disabled);
        EXPECT_GT(paintedPixels(image), 0) << static_cast<int>(glyph);
        EXPECT_EQ(countPixels(image,
                              [](const QColor& pixel) {
                                  return pixel.alpha() == 255 && pixel.hsvSaturation() > 8;
                              }),
                  0)
            << static_cast<int>(glyph);
    }
}

TEST_F(Icons, AGlyphInASelectedRowHasTheColourOfItsText) {
    for (const Glyph glyph : {Glyph::stateOk, Glyph::stateAlert, Glyph::folder}) {
        const QImage image = picture(glyph, 24, QIcon::Selected);
        EXPECT_EQ(countPixels(image,
                              [](const QColor& pixel) {
                                  return pixel.alpha() == 255 && pixel != QColor(Qt::yellow);
                              }),
                  0)
            << static_cast<int>(glyph);
    }
}

TEST_F(Icons, TheStatesOfARowDifferWithoutTheirColours) {
    // A tenth of the picture at least, at the size of a row.
    const std::vector<bool> good = shape(picture(Glyph::stateOk));
    EXPECT_GE(differences(good, shape(picture(Glyph::stateAlert))), 16 * 16 / 10);
}

TEST_F(Icons, AGlyphIsPaintedIntoTheMiddleOfAWiderPlace) {
    QImage wide(48, 16, QImage::Format_ARGB32_Premultiplied);
    wide.fill(Qt::transparent);
    QPainter painter(&wide);
    glyphIcon(Glyph::stateOk).paint(&painter, wide.rect());
    painter.end();
    EXPECT_GT(paintedPixels(wide.copy(16, 0, 16, 16)), 100);
    EXPECT_EQ(paintedPixels(wide), paintedPixels(wide.copy(16, 0, 16, 16)));
}

// The smoothing of an edge can differ between its two sides by a pixel here and there.
TEST_F(Icons, WhatIsTheSameOnBothSidesIsDrawnSo) {
    for (const Glyph glyph : {Glyph::pause, Glyph::viewLess, Glyph::viewMore, Glyph::menu,
                              Glyph::add, Glyph::information, Glyph::critical, Glyph::stateAlert}) {
        const QImage drawn = picture(glyph, 240);
        EXPECT_LE(differences(shape(drawn), shape(drawn.mirrored(true, false))), 60)
            << static_cast<int>(glyph);
    }
    for (const Glyph glyph : {Glyph::start, Glyph::exit, Glyph::menu, Glyph::add, Glyph::remove,
                              Glyph::critical, Glyph::play}) {
        const QImage drawn = picture(glyph, 240);
        EXPECT_LE(differences(shape(drawn), shape(drawn.mirrored(false, true))), 60)
            << static_cast<int>(glyph);
    }
    // The case of a drive in the network, and the front of one in the machine.
    for (const QImage& front : {picture(Glyph::networkDrive, 240).copy(20, 30, 200, 100),
                                picture(Glyph::drive, 240).copy(20, 130, 200, 60)}) {
        EXPECT_LE(differences(shape(front), shape(front.mirrored(false, true))), 400);
    }
    // The letter beside a drive; its middle is at (170, 80).
    const QImage letter = picture(Glyph::driveInfo, 240).copy(120, 30, 100, 100);
    EXPECT_LE(differences(shape(letter), shape(letter.mirrored(true, false))), 60);
}

// At ten pixels a unit, its centre is at (154, 86), and its rays are 66 pixels long.
TEST_F(Icons, TheStarOfTheWizardHasFourEqualRays) {
    const QImage star = picture(Glyph::wizard, 240).copy(154 - 68, 86 - 68, 136, 136);
    const QColor colour = star.pixelColor(68, 68);
    const auto partOf = [&](const QImage& image) {
        std::vector<bool> mask;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                mask.push_back(image.pixelColor(x, y) == colour);
        }
        return mask;
    };
    const std::vector<bool> drawn = partOf(star);
    EXPECT_GT(std::count(drawn.begin(), drawn.end(), true), 2000);
    EXPECT_LE(differences(drawn, partOf(star.mirrored(true, false))), 60);
    EXPECT_LE(differences(drawn, partOf(star.mirrored(false, true))), 60);
    EXPECT_LE(differences(drawn, partOf(star.transformed(QTransform().rotate(90)))), 60);
}

TEST_F(Icons, TheProgramsIconsHaveEverySizeOfTheDesktop) {
    for (const QIcon& icon : {programIcon(), alertIcon(), pausedIcon()}) {
        for (const int side : {16, 20, 24, 32, 40, 48, 64, 128, 256}) {
            const QSize size(side, side);
            EXPECT_TRUE(icon.availableSizes().contains(size)) << side;
            const QImage image = icon.pixmap(size, 1.0).toImage();
            EXPECT_EQ(image.size(), size);
            EXPECT_GT(paintedPixels(image), side * side / 2) << side;
        }
    }
}

TEST_F(Icons, TheProgramsStatesDifferWithoutTheirColours) {
    const auto shapeOf = [](const QIcon& icon) { return shape(icon.pixmap(16, 16).toImage()); };
    EXPECT_GE(differences(shapeOf(programIcon()), shapeOf(alertIcon())), 16);
    EXPECT_GE(differences(shapeOf(programIcon()), shapeOf(pausedIcon())), 8);
    EXPECT_GE(differences(shapeOf(alertIcon()), shapeOf(pausedIcon())), 8);
}

}  // namespace
}  // namespace velmora::qt
