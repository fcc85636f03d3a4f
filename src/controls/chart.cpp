#include "controls/chart.h"

#include <algorithm>

#include "base/convert.h"
#include "base/runtime_error.h"

namespace velmora {

namespace {

std::size_t place(int number, std::size_t count, int failure) {
    if (number < 1 || static_cast<std::size_t>(number) > count) throw RuntimeError(failure);
    return static_cast<std::size_t>(number) - 1;
}

std::size_t countOf(int number) {
    if (number < 0) throw RuntimeError(error::invalidPropertyValue);
    return static_cast<std::size_t>(number);
}

}  // namespace

void Chart::setRowCount(int count) {
    rowLabels_.resize(countOf(count));
    data_.resize(rowLabels_.size(), std::vector<double>(columnLabels_.size()));
    row_ = std::min(row_, count);
    Changed();
}

void Chart::setColumnCount(int count) {
    columnLabels_.resize(countOf(count));
    for (std::vector<double>& row : data_) row.resize(columnLabels_.size());
    column_ = std::min(column_, count);
    Changed();
}

void Chart::setRow(int row) {
    place(row, rowLabels_.size(), error::invalidPropertyValue);
    row_ = row;
}

void Chart::setColumn(int column) {
    place(column, columnLabels_.size(), error::invalidPropertyValue);
    column_ = column;
}

void Chart::setRowLabel(std::string text) {
    rowLabels_[place(row_, rowLabels_.size(), error::invalidPropertyValue)] = std::move(text);
    Changed();
}

void Chart::setColumnLabel(std::string text) {
    columnLabels_[place(column_, columnLabels_.size(), error::invalidPropertyValue)] =
        std::move(text);
    Changed();
}

void Chart::setData(double value) {
    data_[place(row_, rowLabels_.size(), error::invalidPropertyValue)]
         [place(column_, columnLabels_.size(), error::invalidPropertyValue)] = value;
    Changed();
}

void Chart::setChartType(int type) {
    type_ = type;
    Changed();
}

void Chart::setShowLegend(bool show) {
    showLegend_ = show;
    Changed();
}

void Chart::setLegendLocation(int location) {
    legendLocation_ = location;
    Changed();
}

const std::string& Chart::AxisTitle(int axis) const {
    return axisTitles_[place(axis + 1, axisTitles_.size(), error::invalidPropertyValue)];
}

void Chart::setAxisTitle(int axis, std::string title) {
    axisTitles_[place(axis + 1, axisTitles_.size(), error::invalidPropertyValue)] =
        std::move(title);
    Changed();
}

const std::string& Chart::rowLabel(int row) const {
    return rowLabels_[place(row, rowLabels_.size(), error::indexOutOfBounds)];
}

const std::string& Chart::columnLabel(int column) const {
    return columnLabels_[place(column, columnLabels_.size(), error::indexOutOfBounds)];
}

double Chart::data(int row, int column) const {
    return data_[place(row, rowLabels_.size(), error::indexOutOfBounds)]
                [place(column, columnLabels_.size(), error::indexOutOfBounds)];
}

Properties Chart::properties() {
    Properties all = Control::properties();
    const auto number = [&all](const char* name, int value) {
        all.push_back({name, [value] { return PropertyValue{std::int64_t{value}}; }, {}});
    };
    const auto text = [&all](const std::string& name, const std::string& value) {
        all.push_back({name, [value] { return PropertyValue{value}; }, {}});
    };
    number("RowCount", RowCount());
    number("ColumnCount", ColumnCount());
    number("chartType", type_);
    number("LegendLocation", legendLocation_);
    all.push_back({"ShowLegend", [this] { return PropertyValue{showLegend_}; }, {}});
    for (int axis = 0; axis < 2; ++axis) {
        text("AxisTitle(" + std::to_string(axis) + ")", AxisTitle(axis));
    }
    for (int i = 1; i <= ColumnCount(); ++i) {
        text("ColumnLabel(" + std::to_string(i) + ")", columnLabel(i));
    }
    for (int i = 1; i <= RowCount(); ++i) {
        text("RowLabel(" + std::to_string(i) + ")", rowLabel(i));
    }
    return all;
}

std::optional<Control::Table> Chart::table() const {
    Table rows;
    for (int row = 1; row <= RowCount(); ++row) {
        auto& cells = rows.emplace_back();
        cells.emplace_back("RowLabel", rowLabel(row));
        std::string all;
        for (int column = 1; column <= ColumnCount(); ++column) {
            const std::string value = toText(data(row, column), Regional{});
            cells.emplace_back(columnLabel(column), value);
            all += (column == 1 ? "" : " ") + value;
        }
        cells.emplace_back("Data", all);
    }
    return rows;
}

}  // namespace velmora
