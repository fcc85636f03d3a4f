#include "qt/colours/identity.h"

#include "qt/colours/colours.h"

namespace velmora::qt {

namespace {

constexpr QRgb navy = 0xFF000040;
constexpr QRgb orange = 0xFFFF8000;

}  // namespace

QColor identityOrange() {
    return QColor(orange);
}

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Active, QPalette::WindowText).lightnessF() >
           palette.color(QPalette::Active, QPalette::Window).lightnessF();
}

QPalette withIdentity(QPalette palette) {
    const bool dark = isDark(palette);
    palette.setColor(QPalette::Highlight, QColor(dark ? orange : navy));
    palette.setColor(QPalette::HighlightedText, dark ? Qt::black : Qt::white);
    return palette;
}

QColor rimColour(const QPalette& palette) {
    const QColor window = palette.color(QPalette::Window);
    return visibleOn(window, palette.color(QPalette::Mid));
}

}  // namespace velmora::qt
