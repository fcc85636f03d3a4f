// A chart: a grid of numbers with labels, as a bar chart (rows of two columns) or a pie (one row).
#pragma once

#include <array>
#include <string>
#include <vector>

#include "controls/control.h"

namespace velmora {

/// The chart control's numbers of its kinds and places.
namespace chart_type {
inline constexpr int bars2D = 1;
inline constexpr int pie2D = 14;
}  // namespace chart_type

class Chart : public Control {
  public:
    Chart(Form& form, std::string name, int index) : Control(form, std::move(name), index) {}

    int RowCount() const { return static_cast<int>(rowLabels_.size()); }
    int ColumnCount() const { return static_cast<int>(columnLabels_.size()); }
    /// What fits into the new size stays; new cells are 0 and new labels empty. Error 380 below 0.
    void setRowCount(int count);
    void setColumnCount(int count);

    /// The row and column that the next operations are about, from 1; no more than there are. Error
    /// 380 outside them.
    void setRow(int row);
    void setColumn(int column);
    /// Of the present row, the present column, the present cell. Error 380 while there is none.
    void setRowLabel(std::string text);
    void setColumnLabel(std::string text);
    void setData(double value);

    int chartType() const { return type_; }
    void setChartType(int type);
    bool ShowLegend() const { return showLegend_; }
    void setShowLegend(bool show);
    int LegendLocation() const { return legendLocation_; }
    void setLegendLocation(int location);
    /// Titles of the axes 0 and 1; error 380 for another.
    const std::string& AxisTitle(int axis) const;
    void setAxisTitle(int axis, std::string title);

    // For views; error 35600 outside the grid.
    const std::string& rowLabel(int row) const;
    const std::string& columnLabel(int column) const;
    double data(int row, int column) const;

    std::string mainProperty() const override { return "RowCount"; }
    Properties properties() override;
    /// A row of the grid each: "RowLabel", a value named after each column, and "Data" with all
    /// values in their order, since two columns may have the same name.
    std::optional<Table> table() const override;

  private:
    double& cell(int row, int column);

    std::vector<std::string> rowLabels_;
    std::vector<std::string> columnLabels_;
    std::vector<std::vector<double>> data_;  // by row
    std::array<std::string, 2> axisTitles_;
    int row_ = 0;
    int column_ = 0;
    int type_ = chart_type::bars2D;
    int legendLocation_ = 0;
    bool showLegend_ = false;
};

}  // namespace velmora
