#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "base/format_number.h"
#include "inspect/charts/axis_ticks.h"
#include "qt/controls/chart_colours.h"
#include "qt/controls/chart_face.h"
#include "qt/controls/chart_layout.h"
#include "qt/controls/chart_paint.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

constexpr double lineSpace = 6;
constexpr double tickSpace = 14;       // between the numbers of two ticks
constexpr double labelsAtMost = 0.34;  // of the width

class BarFace : public ChartFace {
  public:
    BarFace(ChartData data, Regional regional)
        : data_(std::move(data)), regional_(std::move(regional)) {
        for (const auto& row : data_.values) {
            for (const double value : row) greatest_ = std::max(greatest_, value);
        }
    }

    void layOut(const QSizeF& room, const QFont& font) override;
    QRectF window() const override { return window_; }
    double scrolledHeight() const override { return rows_.empty() ? 0 : rows_.back().all.bottom(); }
    void paint(QPainter& painter, const State& state) const override;
    int partAt(const QPointF& place, double scroll) const override;
    QString hint(int part) const override;
    int partCount() const override { return static_cast<int>(data_.rows.size()); }

  private:
    QString tickText(double value) const {
        return shown(FormatNumber(value, 0, Grouping::regional, regional_));
    }
    double labelWidth(double room, const QFontMetricsF& metrics) const;
    void chooseTicks(const QFontMetricsF& metrics);
    double xOf(double value) const;
    void paintHead(QPainter& painter, const QPalette& palette) const;
    void layLegend(const QRectF& inner, const QFontMetricsF& metrics, double swatch);
    void paintLegend(QPainter& painter, const QPalette& palette) const;
    void paintAxis(QPainter& painter, const QPalette& palette) const;
    void paintRows(QPainter& painter, const State& state) const;
    void paintRow(QPainter& painter, std::size_t row, const QPalette& palette) const;

    ChartData data_;
    Regional regional_;
    double greatest_ = 0;
    QRectF head_;
    std::vector<QRectF> legend_;  // by column
    QRectF window_;
    QRectF axis_;
    double plotLeft_ = 0;
    double plotRight_ = 0;
    double lineHeight_ = 0;
    std::vector<double> ticks_;
    std::vector<BarRow> rows_;
};

double BarFace::labelWidth(double room, const QFontMetricsF& metrics) const {
    double widest = metrics.horizontalAdvance(data_.axisTitles[0]);
    for (const QString& row : data_.rows) {
        widest = std::max(widest, metrics.horizontalAdvance(row));
    }
    return std::ceil(std::min(widest + 1, room * labelsAtMost));
}

// As many as have room for the widest of their numbers.
void BarFace::chooseTicks(const QFontMetricsF& metrics) {
    const double width = plotRight_ - plotLeft_;
    const double widest = metrics.horizontalAdvance(tickText(axisTicks(greatest_, 2).back()));
    ticks_ = axisTicks(greatest_, static_cast<int>(width / (widest + tickSpace)) + 1);
}

// Entries go to the next line where the room ends, so that none is missing.
void BarFace::layLegend(const QRectF& inner, const QFontMetricsF& metrics, double swatch) {
    legend_.clear();
    if (!data_.showLegend) return;
    double x = plotLeft_;
    double y = head_.top();
    for (const QString& column : data_.columns) {
        const double needed = swatch + metrics.horizontalAdvance(column) + 1;
        if (x > plotLeft_ && x + needed > inner.right()) {
            x = plotLeft_;
            y += lineHeight_;
        }
        legend_.emplace_back(x, y, std::min(needed, inner.right() - plotLeft_), lineHeight_);
        x += needed + tickSpace;
    }
    if (!legend_.empty()) head_.setBottom(legend_.back().bottom());
}

void BarFace::layOut(const QSizeF& room, const QFont& font) {
    const QFontMetricsF metrics(font);
    lineHeight_ = std::ceil(metrics.height());
    const QRectF inner =
        QRectF(QPointF(0, 0), room).adjusted(chartMargin, chartMargin, -chartMargin, -chartMargin);
    const double labels = labelWidth(inner.width(), metrics);
    plotLeft_ = inner.left() + labels + barLabelGap;
    head_ = {inner.left(), inner.top(), inner.width(), lineHeight_};
    layLegend(inner, metrics, swatchWidth(font));
    const double axisHeight = 2 * lineHeight_ + lineSpace;
    axis_ = {inner.left(), inner.bottom() - axisHeight, inner.width(), axisHeight};
    window_ = {inner.left(), head_.bottom() + lineSpace, inner.width(),
               std::max(0.0, axis_.top() - head_.bottom() - 2 * lineSpace)};
    // Half of the last number lies beyond the last tick.
    const double overhang = metrics.horizontalAdvance(tickText(axisTicks(greatest_, 2).back())) / 2;
    plotRight_ = std::max(plotLeft_ + 1, inner.right() - overhang);
    chooseTicks(metrics);
    rows_ = layBarRows(static_cast<int>(data_.rows.size()), static_cast<int>(data_.columns.size()),
                       {.size = {plotRight_ - inner.left(), window_.height()},
                        .labelWidth = labels,
                        .lineHeight = lineHeight_});
}

double BarFace::xOf(double value) const {
    return plotLeft_ + std::max(0.0, value) / ticks_.back() * (plotRight_ - plotLeft_);
}

void BarFace::paint(QPainter& painter, const State& state) const {
    painter.setRenderHint(QPainter::Antialiasing);
    paintHead(painter, state.palette);
    paintAxis(painter, state.palette);
    paintRows(painter, state);
}

void BarFace::paintHead(QPainter& painter, const QPalette& palette) const {
    painter.setPen(quietInk(palette));
    const QRectF heading(head_.left(), head_.top(), plotLeft_ - barLabelGap - head_.left(),
                         lineHeight_);
    paintShortened(painter, heading, Qt::AlignRight | Qt::AlignVCenter, data_.axisTitles[0]);
    if (data_.showLegend) paintLegend(painter, palette);
}

void BarFace::paintLegend(QPainter& painter, const QPalette& palette) const {
    for (std::size_t i = 0; i < legend_.size(); ++i) {
        QRectF entry = legend_[i];
        paintSwatch(painter, entry,
                    seriesColour(static_cast<int>(i), palette.color(QPalette::Base)));
        painter.setPen(palette.color(QPalette::Text));
        entry.setLeft(entry.left() + swatchWidth(painter.font()));
        paintShortened(painter, entry, Qt::AlignVCenter, data_.columns[static_cast<qsizetype>(i)]);
    }
}

void BarFace::paintAxis(QPainter& painter, const QPalette& palette) const {
    const QFontMetricsF metrics(painter.font());
    for (const double tick : ticks_) {
        const double x = std::round(xOf(tick)) + 0.5;
        painter.setPen(tick == 0 ? quietInk(palette) : gridInk(palette));
        painter.drawLine(QPointF(x, window_.top()), QPointF(x, axis_.top() - 2));
        const QString text = tickText(tick);
        const double width = metrics.horizontalAdvance(text) + 2;
        painter.setPen(quietInk(palette));
        painter.drawText(QRectF(x - width / 2, axis_.top(), width, lineHeight_), Qt::AlignCenter,
                         text);
    }
    painter.setPen(palette.color(QPalette::Text));
    paintShortened(painter,
                   {plotLeft_, axis_.bottom() - lineHeight_, plotRight_ - plotLeft_, lineHeight_},
                   Qt::AlignCenter, data_.axisTitles[1]);
}

void BarFace::paintRows(QPainter& painter, const State& state) const {
    painter.save();
    painter.setClipRect(window_);
    painter.translate(window_.left(), window_.top() - state.scroll);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const QRectF& all = rows_[i].all;
        if (all.bottom() <= state.scroll || all.top() >= state.scroll + window_.height()) continue;
        if (static_cast<int>(i) == state.hot) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(hotGround(state.palette));
            painter.drawRoundedRect(all.adjusted(0, 1, 0, -1), 3, 3);
        }
        paintRow(painter, i, state.palette);
    }
    painter.restore();
}

void BarFace::paintRow(QPainter& painter, std::size_t row, const QPalette& palette) const {
    const BarRow& place = rows_[row];
    painter.setPen(palette.color(QPalette::Text));
    paintShortened(painter, place.label, Qt::AlignRight | Qt::AlignVCenter,
                   data_.rows[static_cast<qsizetype>(row)]);
    for (std::size_t i = 0; i < place.bars.size(); ++i) {
        const double value = data_.values[row][i];
        if (!(value > 0)) continue;
        QRectF bar = place.bars[i];
        // What is there can be seen, however little it is.
        bar.setWidth(std::max(1.5, xOf(value) - plotLeft_));
        painter.setPen(Qt::NoPen);
        painter.setBrush(seriesColour(static_cast<int>(i), palette.color(QPalette::Base)));
        const double corner = std::min(2.5, bar.width() / 2);
        painter.drawRoundedRect(bar, corner, corner);
    }
}

int BarFace::partAt(const QPointF& place, double scroll) const {
    if (!window_.contains(place)) return -1;
    const QPointF inside(place.x() - window_.left(), place.y() - window_.top() + scroll);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (rows_[i].all.contains(inside)) return static_cast<int>(i);
    }
    return -1;
}

QString BarFace::hint(int part) const {
    const auto row = static_cast<std::size_t>(part);
    QString text = data_.rows[part];
    for (qsizetype i = 0; i < data_.columns.size(); ++i) {
        text += QStringLiteral("\n%1: %2")
                    .arg(data_.columns[i],
                         kilobytes(data_.values[row][static_cast<std::size_t>(i)], regional_));
    }
    return text;
}

}  // namespace

std::unique_ptr<ChartFace> makeBarFace(ChartData data, Regional regional) {
    return std::make_unique<BarFace>(std::move(data), std::move(regional));
}

}  // namespace velmora::qt
