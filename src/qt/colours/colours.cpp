#include "qt/colours/colours.h"

#include <algorithm>
#include <cmath>

namespace velmora::qt {

namespace {

constexpr Colour systemColour = 0x80000000;
constexpr double readableContrast = 3;

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

}  // namespace

QColor shownColour(Colour value, const QPalette& palette) {
    switch (value) {
        case colour::window:
            return palette.color(QPalette::Window);
        case colour::buttonFace:
            return palette.color(QPalette::Button);
        case colour::buttonText:
            return palette.color(QPalette::ButtonText);
        default:
            break;
    }
    if ((value & systemColour) != 0) return palette.color(QPalette::WindowText);
    return {static_cast<int>(value & 0xFF), static_cast<int>((value >> 8) & 0xFF),
            static_cast<int>((value >> 16) & 0xFF)};
}

double contrast(const QColor& a, const QColor& b) {
    const double one = luminance(a) + 0.05;
    const double other = luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

QColor visibleOn(const QColor& ground, QColor colour) {
    constexpr float step = 0.02F;
    const bool lighter = luminance(ground) < 0.18;
    while (contrast(colour, ground) < readableContrast) {
        float hue = 0;
        float saturation = 0;
        float lightness = 0;
        colour.getHslF(&hue, &saturation, &lightness);
        if (lighter ? lightness >= 1 : lightness <= 0) break;
        lightness = std::clamp(lightness + (lighter ? step : -step), 0.0F, 1.0F);
        colour.setHslF(std::max(hue, 0.0F), saturation, lightness);
    }
    return colour.toRgb();
}

QColor legible(const QColor& text, const QColor& background) {
    if (contrast(text, background) >= readableContrast) return text;
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    return contrast(black, background) > contrast(white, background) ? black : white;
}

}  // namespace velmora::qt
