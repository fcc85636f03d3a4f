// A line over time with a level drawn as a dashed line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "controls/control.h"

namespace velmora {

class LineChart : public Control {
  public:
    struct Point {
        std::int64_t seconds = 0;  ///< before now, so 0 or less
        double value = 0;

        bool operator==(const Point&) const = default;
    };

    using Control::Control;

    /// Its points, oldest first, and the level if there is one.
    void show(std::string title, std::vector<Point> points, std::optional<double> level);
    const std::string& Title() const { return title_; }
    const std::vector<Point>& points() const { return points_; }
    std::optional<double> level() const { return level_; }

    std::string mainProperty() const override { return "PointCount"; }
    Properties properties() override;
    /// A row a point: "Seconds" and "Value".
    std::optional<Table> table() const override;

  private:
    std::string title_;
    std::vector<Point> points_;
    std::optional<double> level_;
};

}  // namespace velmora
