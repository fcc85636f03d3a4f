#include "qt/controls/chart_colours.h"

#include <algorithm>
#include <iterator>
#include <numeric>

#include "qt/colours/colours.h"

namespace velmora::qt {

namespace {

constexpr QRgb hues[] = {0xFF2F7ED8, 0xFFE8842A, 0xFF3B9E5A, 0xFFD6484B, 0xFF8E62C4,
                         0xFF2AA5A8, 0xFFC49A1E, 0xFFD264A0, 0xFF8A6244, 0xFF6B8E23};
constexpr QRgb quiet = 0xFF8A96A8;

// Neighbours of the scale differ in lightness.
QColor scaleColour(int place, const QColor& ground) {
    constexpr int levels = 5;
    constexpr float hue = 0.6F;
    constexpr float saturation = 0.22F;
    constexpr float darkest = 0.3F;
    constexpr float step = 0.07F;
    const auto lightness = darkest + step * static_cast<float>(place * 2 % levels);
    return visibleOn(
        ground,
        QColor::fromHslF(hue, saturation, ground.lightnessF() < 0.5F ? 1 - lightness : lightness));
}

}  // namespace

QColor seriesColour(int column, const QColor& ground) {
    const QRgb colour =
        column == 1 ? quiet : hues[static_cast<std::size_t>(column) % std::size(hues)];
    return visibleOn(ground, QColor(colour));
}

QColor lineColour(int line, const QColor& ground) {
    constexpr int deeper = 150;  // percent
    const auto count = static_cast<int>(std::size(hues));
    const QColor colour(hues[line % count]);
    return visibleOn(ground, line / count % 2 == 0 ? colour : colour.darker(deeper));
}

std::vector<QColor> wedgeColours(const std::vector<double>& values, const QColor& ground) {
    std::vector<std::size_t> bySize(values.size());
    std::iota(bySize.begin(), bySize.end(), std::size_t{0});
    std::ranges::stable_sort(bySize,
                             [&](std::size_t a, std::size_t b) { return values[a] > values[b]; });
    const std::size_t coloured = std::min(std::size(hues), bySize.size());
    // In the order of the wedges, so that the colours of a list stay when its sizes change little.
    std::sort(bySize.begin(), bySize.begin() + static_cast<std::ptrdiff_t>(coloured));
    std::sort(bySize.begin() + static_cast<std::ptrdiff_t>(coloured), bySize.end());
    std::vector<QColor> colours(values.size());
    for (std::size_t i = 0; i < bySize.size(); ++i) {
        colours[bySize[i]] = i < coloured ? visibleOn(ground, QColor(hues[i]))
                                          : scaleColour(static_cast<int>(i - coloured), ground);
    }
    return colours;
}

}  // namespace velmora::qt
