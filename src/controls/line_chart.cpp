#include "controls/line_chart.h"

#include "base/convert.h"

namespace velmora {

void LineChart::show(std::string title, std::vector<Point> points, std::optional<double> level) {
    title_ = std::move(title);
    points_ = std::move(points);
    level_ = level;
    Changed();
}

Properties LineChart::properties() {
    Properties all = Control::properties();
    all.push_back({"Title", [this] { return PropertyValue{title_}; }, {}});
    all.push_back({"PointCount",
                   [this] { return PropertyValue{static_cast<std::int64_t>(points_.size())}; },
                   {}});
    all.push_back(
        {"Level",
         [this] { return PropertyValue{level_ ? toText(*level_, Regional{}) : std::string()}; },
         {}});
    return all;
}

std::optional<Control::Table> LineChart::table() const {
    Table rows;
    for (const Point& point : points_) {
        rows.push_back({{"Seconds", point.seconds}, {"Value", toText(point.value, Regional{})}});
    }
    return rows;
}

}  // namespace velmora
