#include "qt/print/paper_look.h"

#include <QGuiApplication>

namespace velmora::qt {

namespace {

constexpr int textSize = 12;  // units of pages
constexpr int titleSize = 20;

}  // namespace

QPalette paperPalette() {
    QPalette palette(Qt::black, Qt::white, Qt::white, Qt::black, Qt::gray, Qt::black, Qt::white,
                     Qt::white, Qt::white);
    palette.setColor(QPalette::PlaceholderText, quietPaperInk());
    return palette;
}

QFont paperFont() {
    QFont font = QGuiApplication::font();
    font.setPixelSize(textSize);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QFont boldPaperFont() {
    QFont font = paperFont();
    font.setBold(true);
    return font;
}

QFont titlePaperFont() {
    QFont font = boldPaperFont();
    font.setPixelSize(titleSize);
    return font;
}

QColor quietPaperInk() {
    return {0x55, 0x55, 0x55};
}

QColor paperLineInk() {
    return {0xC8, 0xC8, 0xC8};
}

}  // namespace velmora::qt
