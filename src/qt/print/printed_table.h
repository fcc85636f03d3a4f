// The table of a printout: as wide as the page, with names that go on in further lines.
#pragma once

#include <QPainter>
#include <vector>

#include "qt/print/wrapped_text.h"
#include "qt/surface/text_table.h"

namespace velmora::qt {

class PrintedTable {
  public:
    /// The first column has names, the others values.
    explicit PrintedTable(TextTable table);

    /// The width, in units of pages, that leaves room for names beside all values.
    double leastWidth() const { return leastWidth_; }
    /// Takes a width, the least one at least.
    void layOut(double width);
    double headHeight() const;
    const std::vector<double>& rowHeights() const { return heights_; }
    /// Paints the headings and some rows at a place.
    void paint(QPainter& painter, const QPointF& place, std::size_t first, std::size_t count) const;

  private:
    double widestOf(qsizetype column) const;
    void paintLine(QPainter& painter, const WrappedText& name, const QStringList& cells, double top,
                   double height) const;

    TextTable table_;
    double leastWidth_ = 0;
    double width_ = 0;
    std::vector<double> widths_;      // by column
    std::vector<double> heights_;     // by row
    std::vector<WrappedText> names_;  // by row
};

}  // namespace velmora::qt
