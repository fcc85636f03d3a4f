#include "inspect/pie/cls_pie.h"

#include <cmath>

#include "base/convert.h"
#include "base/format_number.h"
#include "base/runtime_error.h"

namespace velmora {

namespace {

constexpr double whole = 100;
constexpr double top = 20;  // of the square around the pie, in pixels; its left is 0
constexpr double side = 100;

void drawWedge(DrawnPicture& picture, double percentage, Colour colour) {
    constexpr double radius = side / 2;
    constexpr double radiansPerDegree = 3.14159265358979 / 180;
    const double angle = (90 - percentage / whole * 360) * radiansPerDegree;
    picture.selectBrush(colour);
    // All of it ends where it begins, also with the rounding of sine and cosine.
    const double endX = percentage >= whole ? radius : radius + radius * std::cos(angle);
    const double endY = percentage >= whole ? top : top + radius - radius * std::sin(angle);
    picture.Pie(0, top, side, top + side, endX, endY);
}

void drawLegend(DrawnPicture& picture, int index, const clsPie::Segment& segment,
                const Regional& regional) {
    constexpr double textLeft = 145;
    const double base = index * 15.0;
    picture.selectBrush(segment.lngColour);
    picture.Rectangle(110, base + 53, 140, base + 63);
    picture.TextOut(
        textLeft, base + 51,
        segment.strName + "(" + Format(segment.dblPercentage, wholeNumberPicture, regional) + ")");
}

}  // namespace

void clsPie::AddSegment(double dblPercentage, const std::string& strName, Colour lngColour) {
    ++count_;
    segments_.resize(static_cast<std::size_t>(count_) + 1);
    segments_.back() = {dblPercentage, lngColour, strName};
}

void clsPie::Clear() {
    count_ = -1;
    segments_.assign(1, {});
}

double clsPie::total() const {
    double sum = 0;
    for (int i = 0; i <= count_; ++i) sum += segments_[static_cast<std::size_t>(i)].dblPercentage;
    return sum;
}

Control::Table clsPie::table() const {
    Control::Table rows;
    for (int i = 0; i <= count_; ++i) {
        const Segment& segment = segments_[static_cast<std::size_t>(i)];
        rows.push_back({{"strName", segment.strName},
                        {"dblPercentage", toText(segment.dblPercentage, Regional{})},
                        {"lngColour", std::int64_t{segment.lngColour}}});
    }
    return rows;
}

// Each wedge lies over the ones before it, so that one angle a segment is enough.
bool clsPie::DrawPie(DrawnPicture& picture, bool blnShowLegend, const std::string& strGraphTitle,
                     const std::string& strSecond, const Regional& regional) const {
    const double sum = total();
    double remaining = whole;
    if (blnShowLegend) drawLegend(picture, 0, segments_.front(), regional);
    drawWedge(picture, remaining, segments_.front().lngColour);
    for (int i = 0; i < count_; ++i) {
        if (sum == 0) return false;
        const Segment& next = segments_[static_cast<std::size_t>(i) + 1];
        remaining -= segments_[static_cast<std::size_t>(i)].dblPercentage / sum * whole;
        if (blnShowLegend) drawLegend(picture, i + 1, next, regional);
        drawWedge(picture, remaining, next.lngColour);
    }
    picture.describe(strGraphTitle, strSecond, table());
    picture.TextOut(22, 0, strGraphTitle);
    picture.TextOut(110, 80, strSecond);
    return true;
}

}  // namespace velmora
