#include "qt/print/printed_table.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "qt/print/paper_look.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

constexpr double columnGap = 20;
constexpr double rowGap = 7;          // between the texts of two rows
constexpr double valuesAtMost = 0.8;  // of the width
constexpr int linesOfName = 5;

// Line ends and tabs of names would tear the rows apart.
QString cellOf(QString text) {
    for (const char separator : {'\t', '\r', '\n'}) text.replace(QLatin1Char(separator), ' ');
    return withVisibleControls(text);
}

}  // namespace

PrintedTable::PrintedTable(TextTable table) : table_(std::move(table)) {
    for (QStringList& row : table_.rows) {
        for (QString& cell : row) cell = cellOf(cell);
    }
    // Values are as wide as they need, names have the rest.
    widths_.assign(static_cast<std::size_t>(table_.headings.size()), 0);
    for (std::size_t i = 1; i < widths_.size(); ++i) {
        widths_[i] = widestOf(static_cast<qsizetype>(i)) + columnGap;
    }
    leastWidth_ = std::accumulate(widths_.begin(), widths_.end(), 0.0) / valuesAtMost;
}

double PrintedTable::headHeight() const {
    return std::ceil(QFontMetricsF(boldPaperFont()).height()) + rowGap;
}

double PrintedTable::widestOf(qsizetype column) const {
    double widest = QFontMetricsF(boldPaperFont()).horizontalAdvance(table_.headings[column]);
    const QFontMetricsF metrics(paperFont());
    for (const QStringList& row : table_.rows) {
        widest = std::max(widest, metrics.horizontalAdvance(row.value(column)));
    }
    return std::ceil(widest) + 1;
}

void PrintedTable::layOut(double width) {
    width_ = width;
    heights_.clear();
    names_.clear();
    if (widths_.empty()) return;
    widths_.front() = width - std::accumulate(widths_.begin() + 1, widths_.end(), 0.0);
    for (const QStringList& row : table_.rows) {
        names_.emplace_back(row.value(0), paperFont(), widths_.front(), linesOfName);
        heights_.push_back(names_.back().height() + rowGap);
    }
}

void PrintedTable::paintLine(QPainter& painter, const WrappedText& name, const QStringList& cells,
                             double top, double height) const {
    painter.setPen(Qt::black);
    name.paint(painter, {0, top + rowGap / 2});
    const QFontMetricsF metrics(painter.font());
    double right = widths_.front();
    for (std::size_t i = 1; i < widths_.size(); ++i) {
        right += widths_[i];
        const QString text = cells.value(static_cast<qsizetype>(i));
        painter.drawText(
            QPointF(right - metrics.horizontalAdvance(text), top + rowGap / 2 + metrics.ascent()),
            text);
    }
    painter.setPen(QPen(paperLineInk(), 0.75));
    painter.drawLine(QPointF(0, top + height), QPointF(width_, top + height));
}

void PrintedTable::paint(QPainter& painter, const QPointF& place, std::size_t first,
                         std::size_t count) const {
    painter.save();
    painter.translate(place);
    const WrappedText heading(table_.headings.front(), boldPaperFont(), widths_.front(), 1);
    paintLine(painter, heading, table_.headings, 0, headHeight());
    double top = headHeight();
    for (std::size_t i = first; i < first + count; ++i) {
        paintLine(painter, names_[i], table_.rows[i], top, heights_[i]);
        top += heights_[i];
    }
    painter.restore();
}

}  // namespace velmora::qt
