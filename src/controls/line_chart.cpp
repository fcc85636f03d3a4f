#include "controls/line_chart.h"

#include "base/convert.h"

namespace velmora {

namespace {

void append(std::string& list, const std::string& entry) {
    if (!list.empty()) list += "; ";
    list += entry;
}

}  // namespace

void LineChart::show(std::vector<Line> lines) {
    lines_ = std::move(lines);
    Changed();
}

std::string LineChart::names() const {
    std::string all;
    for (const Line& line : lines_) append(all, line.name);
    return all;
}

std::string LineChart::levels() const {
    std::string all;
    for (const Line& line : lines_) {
        append(all, line.level ? toText(*line.level, Regional{}) : "none");
    }
    return all;
}

std::int64_t LineChart::pointCount() const {
    std::size_t count = 0;
    for (const Line& line : lines_) count += line.points.size();
    return static_cast<std::int64_t>(count);
}

Properties LineChart::properties() {
    Properties all = Control::properties();
    all.push_back({"LineCount",
                   [this] { return PropertyValue{static_cast<std::int64_t>(lines_.size())}; },
                   {}});
    all.push_back({"PointCount", [this] { return PropertyValue{pointCount()}; }, {}});
    all.push_back({"Names", [this] { return PropertyValue{names()}; }, {}});
    all.push_back({"Levels", [this] { return PropertyValue{levels()}; }, {}});
    return all;
}

std::optional<Control::Table> LineChart::table() const {
    Table rows;
    for (const Line& line : lines_) {
        for (const Point& point : line.points) {
            rows.push_back({{"Line", line.name},
                            {"Seconds", point.seconds},
                            {"Value", toText(point.value, Regional{})}});
        }
    }
    return rows;
}

}  // namespace velmora
