#include "qt/icons/glyph_colours.h"

#include <QApplication>
#include <QProxyStyle>
#include <cmath>

#include "qt/colours/colours.h"
#include "qt/colours/identity.h"

namespace velmora::qt {
namespace {

GlyphColours allOf(const QColor& colour) {
    return {colour, colour, colour, colour};
}

QColor between(const QColor& one, const QColor& other, double partOfOther) {
    const auto mix = [partOfOther](int a, int b) {
        return static_cast<int>(std::lround(a + (b - a) * partOfOther));
    };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()),
            mix(one.blue(), other.blue())};
}

/// The perceived brightness of the colour, 0 to 255.
int brightness(const QColor& colour) {
    return qGray(colour.rgb());
}

// The theme of Windows shows a selected row on its own pale blue instead of the palette's colour.
bool selectsPalely() {
    const QStyle* style = QApplication::style();
    if (const auto* proxy = qobject_cast<const QProxyStyle*>(style)) style = proxy->baseStyle();
    return style->name().startsWith(QLatin1String("windowsvista"));
}

}  // namespace

GlyphColours glyphColours(const QPalette& palette, QIcon::Mode mode) {
    // Named, because an icon doesn't depend on the palette's current group.
    const auto colour = [&palette](QPalette::ColorRole role) {
        return palette.color(QPalette::Active, role);
    };
    const QColor ink = colour(QPalette::WindowText);
    const QColor window = colour(QPalette::Window);
    if (mode == QIcon::Selected && !selectsPalely())
        return allOf(colour(QPalette::HighlightedText));
    if (mode == QIcon::Disabled) return allOf(between(ink, window, 0.62));

    const bool dark = brightness(ink) > brightness(window);
    return {between(ink, window, 0.12), visibleOn(window, identityOrange()),
            dark ? QColor(0x45, 0xc4, 0x7b) : QColor(0x1a, 0x8f, 0x4b),
            dark ? QColor(0xff, 0x9d, 0x3c) : QColor(0xe0, 0x56, 0x06)};
}

}  // namespace velmora::qt
