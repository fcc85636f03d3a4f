// Lines over time, each with a level that is drawn as a dashed line.
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

    struct Line {
        std::string name;
        std::vector<Point> points;  ///< one at least, oldest first
        std::optional<double> level;

        bool operator==(const Line&) const = default;
    };

    using Control::Control;

    void show(std::vector<Line> lines);
    const std::vector<Line>& lines() const { return lines_; }

    std::string mainProperty() const override { return "LineCount"; }
    Properties properties() override;
    /// A row a point: "Line", "Seconds" and "Value".
    std::optional<Table> table() const override;

  private:
    std::string names() const;
    std::string levels() const;
    std::int64_t pointCount() const;

    std::vector<Line> lines_;
};

}  // namespace velmora
