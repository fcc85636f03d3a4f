#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "qt/controls/chart_colours.h"
#include "qt/controls/chart_face.h"
#include "qt/controls/chart_layout.h"
#include "qt/controls/chart_paint.h"

namespace velmora::qt {

namespace {

constexpr double captionSpace = 8;
constexpr double legendGap = 24;
constexpr double pieAtMost = 0.5;    // of the width
constexpr double legendAtMost = 30;  // by the height of a line
constexpr double unitsADegree = 16;  // in Qt's units of angles
constexpr double seamFrom = 6;  // degrees: seams of narrow wedges would cover them at the middle

class PieFace : public ChartFace {
  public:
    PieFace(ChartData data, Regional regional)
        : data_(std::move(data)),
          regional_(std::move(regional)),
          values_(data_.values.front()),
          whole_(wholeOf(values_)),
          wedges_(layWedges(values_)) {}

    void layOut(const QSizeF& room, const QFont& font) override;
    QRectF window() const override { return window_; }
    double scrolledHeight() const override {
        return data_.showLegend ? lineHeight_ * partCount() : 0;
    }
    void paint(QPainter& painter, const State& state) const override;
    int partAt(const QPointF& place, double scroll) const override;
    QString hint(int part) const override;
    int partCount() const override { return static_cast<int>(data_.columns.size()); }

  private:
    void paintPie(QPainter& painter, const State& state, const std::vector<QColor>& colours) const;
    void paintLegend(QPainter& painter, const State& state,
                     const std::vector<QColor>& colours) const;
    void paintLine(QPainter& painter, const QRectF& line, std::size_t part, const QColor& colour,
                   const QPalette& palette) const;
    QString shareOf(std::size_t part) const { return share(values_[part], whole_, regional_); }

    ChartData data_;
    Regional regional_;
    std::vector<double> values_;
    double whole_;
    std::vector<Wedge> wedges_;
    QRectF caption_;
    QRectF pie_;
    QRectF window_;  // of the legend
    double lineHeight_ = 0;
    double shareWidth_ = 0;
};

void PieFace::layOut(const QSizeF& room, const QFont& font) {
    const QFontMetricsF metrics(font);
    const QRectF inner =
        QRectF(QPointF(0, 0), room).adjusted(chartMargin, chartMargin, -chartMargin, -chartMargin);
    caption_ = {inner.left(), inner.top(), inner.width(), std::ceil(metrics.height())};
    lineHeight_ = std::ceil(metrics.height()) + 5;
    shareWidth_ = metrics.horizontalAdvance(QStringLiteral("100.0 %")) + 2;
    const double top = caption_.bottom() + captionSpace;
    const double height = std::max(0.0, inner.bottom() - top);
    const double side = std::max(0.0, std::min(height, inner.width() * pieAtMost));
    const double listed = std::min(height, scrolledHeight());
    const double left = inner.left() + side + legendGap;
    const double width = std::clamp(inner.right() - left, 0.0, legendAtMost * lineHeight_);
    pie_ = {inner.left(), top + (height - side) / 2, side, side};
    window_ = {left, top + (height - listed) / 2, width, listed};
}

void PieFace::paint(QPainter& painter, const State& state) const {
    painter.setRenderHint(QPainter::Antialiasing);
    const QFont plain = painter.font();
    painter.setFont(boldFont(plain));
    painter.setPen(state.palette.color(QPalette::Text));
    paintShortened(painter, caption_, Qt::AlignVCenter, data_.rows.front());
    painter.setFont(plain);
    const std::vector<QColor> colours = wedgeColours(values_, state.palette.color(QPalette::Base));
    paintPie(painter, state, colours);
    if (data_.showLegend) paintLegend(painter, state, colours);
}

void PieFace::paintPie(QPainter& painter, const State& state,
                       const std::vector<QColor>& colours) const {
    const QColor ground = state.palette.color(QPalette::Base);
    if (wedges_.empty()) {
        painter.setPen(QPen(quietInk(state.palette), 1, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(pie_.adjusted(1, 1, -1, -1));
        return;
    }
    for (std::size_t i = 0; i < wedges_.size(); ++i) {
        const Wedge& wedge = wedges_[i];
        if (wedge.span <= 0) continue;
        const bool isHot = static_cast<int>(i) == state.hot;
        const bool seam = wedge.span >= seamFrom && wedge.span < 360;
        painter.setPen(seam ? QPen(ground, 1.2) : QPen(colours[i], 0.5));
        painter.setBrush(isHot ? colours[i].lighter(118) : colours[i]);
        painter.drawPie(pie_, static_cast<int>(std::lround((90 - wedge.start) * unitsADegree)),
                        -static_cast<int>(std::ceil(wedge.span * unitsADegree)));
    }
}

void PieFace::paintLegend(QPainter& painter, const State& state,
                          const std::vector<QColor>& colours) const {
    painter.save();
    painter.setClipRect(window_);
    painter.translate(window_.left(), window_.top() - state.scroll);
    for (std::size_t i = 0; i < colours.size(); ++i) {
        const QRectF line(0, static_cast<double>(i) * lineHeight_, window_.width(), lineHeight_);
        if (line.bottom() <= state.scroll || line.top() >= state.scroll + window_.height()) {
            continue;
        }
        if (static_cast<int>(i) == state.hot) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(hotGround(state.palette));
            painter.drawRoundedRect(line, 3, 3);
        }
        paintLine(painter, line.adjusted(4, 0, -4, 0), i, colours[i], state.palette);
    }
    painter.restore();
}

void PieFace::paintLine(QPainter& painter, const QRectF& line, std::size_t part,
                        const QColor& colour, const QPalette& palette) const {
    paintSwatch(painter, line, colour);
    painter.setPen(palette.color(QPalette::Text));
    const QRectF name =
        line.adjusted(swatchWidth(painter.font()), 0, -(shareWidth_ + captionSpace), 0);
    paintShortened(painter, name, Qt::AlignVCenter, data_.columns[static_cast<qsizetype>(part)]);
    painter.setPen(quietInk(palette));
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, shareOf(part));
}

int PieFace::partAt(const QPointF& place, double scroll) const {
    const int wedge = wedgeAt(wedges_, place - pie_.center(), pie_.width() / 2);
    if (wedge >= 0 || !window_.contains(place)) return wedge;
    const int line = static_cast<int>((place.y() - window_.top() + scroll) / lineHeight_);
    return line < partCount() ? line : -1;
}

QString PieFace::hint(int part) const {
    const auto at = static_cast<std::size_t>(part);
    return QStringLiteral("%1\n%2 (%3)")
        .arg(data_.columns[part], kilobytes(values_[at], regional_), shareOf(at));
}

class EmptyFace : public ChartFace {
  public:
    void layOut(const QSizeF& room, const QFont&) override { room_ = {QPointF(0, 0), room}; }
    QRectF window() const override { return room_; }
    double scrolledHeight() const override { return 0; }
    void paint(QPainter& painter, const State& state) const override {
        painter.setPen(quietInk(state.palette));
        painter.drawText(room_.adjusted(chartMargin, chartMargin, -chartMargin, -chartMargin),
                         Qt::AlignCenter | Qt::TextWordWrap,
                         QStringLiteral("The watch list is empty."));
    }
    int partAt(const QPointF&, double) const override { return -1; }
    QString hint(int) const override { return {}; }
    int partCount() const override { return 0; }

  private:
    QRectF room_;
};

}  // namespace

std::unique_ptr<ChartFace> makePieFace(ChartData data, Regional regional) {
    return std::make_unique<PieFace>(std::move(data), std::move(regional));
}

std::unique_ptr<ChartFace> makeEmptyFace() {
    return std::make_unique<EmptyFace>();
}

}  // namespace velmora::qt
