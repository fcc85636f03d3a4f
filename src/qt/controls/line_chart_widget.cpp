#include "qt/controls/line_chart_widget.h"

#include <QHelpEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "inspect/charts/axis_ticks.h"
#include "qt/controls/chart_colours.h"
#include "qt/controls/chart_data.h"
#include "qt/controls/chart_paint.h"
#include "qt/surface/field.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

constexpr int levelColumn = 1;  // of the colours: the line has the first one

// "now", "20 minutes ago", "3 hours ago", "2 days ago".
QString ago(std::int64_t seconds) {
    const auto text = [](std::int64_t count, const char* unit) {
        return QStringLiteral("%1 %2%3 ago")
            .arg(count)
            .arg(QLatin1String(unit), count == 1 ? QString() : QStringLiteral("s"));
    };
    if (seconds < 60) return QStringLiteral("now");
    if (seconds < 2 * 3600) return text(seconds / 60, "minute");
    if (seconds < 2 * 86400) return text(seconds / 3600, "hour");
    return text(seconds / 86400, "day");
}

}  // namespace

LineChartWidget::LineChartWidget(LineChart& field, Regional regional, QWidget* parent)
    : QWidget(parent), field_(field), regional_(std::move(regional)) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    bindField(this, field, [this] { refresh(); });
}

void LineChartWidget::refresh() {
    points_ = field_.points();
    level_ = field_.level();
    QString words = shown(field_.Title());
    if (!points_.empty()) words += QStringLiteral(", ") + hint(points_.back());
    if (level_) words += QStringLiteral(", trigger ") + kilobytes(*level_, regional_);
    setAccessibleDescription(words);
    update();
}

LineChartWidget::Scale LineChartWidget::scale() const {
    constexpr int lines = 3;  // of text between two marks
    const QFontMetricsF metrics(font());
    double most = level_.value_or(0);
    for (const LineChart::Point& point : points_) most = std::max(most, point.value);
    const double room = height() - 2 * chartMargin - metrics.height();
    Scale scale;
    scale.marks = axisTicks(most, std::max(2, static_cast<int>(room / (lines * metrics.height()))));
    const double label = metrics.horizontalAdvance(kilobytes(scale.marks.back(), regional_));
    scale.plot =
        QRectF(rect()).adjusted(chartMargin + label + 8, chartMargin + metrics.height() / 2,
                                -chartMargin - 8, -chartMargin - metrics.height() - 6);
    scale.span = points_.empty() ? 0 : static_cast<double>(-points_.front().seconds);
    return scale;
}

QPointF LineChartWidget::Scale::placeOf(const LineChart::Point& point) const {
    const double across = span <= 0 ? 1 : 1 + static_cast<double>(point.seconds) / span;
    return {plot.left() + across * plot.width(), yOf(point.value)};
}

QPointF LineChartWidget::placeOf(const LineChart::Point& point) const {
    return scale().placeOf(point);
}

void LineChartWidget::paintAxis(QPainter& painter, const Scale& scale) const {
    const double line = fontMetrics().height();
    for (const double mark : scale.marks) {
        const double y = scale.yOf(mark);
        painter.setPen(gridInk(palette()));
        painter.drawLine(QPointF(scale.plot.left(), y), QPointF(scale.plot.right(), y));
        painter.setPen(quietInk(palette()));
        painter.drawText(QRectF(0, y - line / 2, scale.plot.left() - 8, line),
                         Qt::AlignRight | Qt::AlignVCenter, kilobytes(mark, regional_));
    }
    const QRectF below(scale.plot.left(), scale.plot.bottom() + 6, scale.plot.width(), line);
    painter.drawText(below, Qt::AlignLeft, ago(-points_.front().seconds));
    painter.drawText(below, Qt::AlignRight, QStringLiteral("now"));
}

void LineChartWidget::paintLevel(QPainter& painter, const Scale& scale) const {
    if (!level_) return;
    const double y = scale.yOf(*level_);
    const QColor colour = seriesColour(levelColumn, palette().color(QPalette::Base));
    painter.setPen(QPen(colour, 1.5, Qt::DashLine));
    painter.drawLine(QPointF(scale.plot.left(), y), QPointF(scale.plot.right(), y));
    painter.drawText(QPointF(scale.plot.left() + 6, y - 4), QStringLiteral("Trigger"));
}

// Of the points in one column of pixels the lowest and the highest are drawn: ten thousand would
// make a thick line, and a short fall must not get lost.
void LineChartWidget::paintLine(QPainter& painter, const Scale& scale) const {
    const QColor colour = seriesColour(0, palette().color(QPalette::Base));
    QPainterPath path(scale.placeOf(points_.front()));
    for (std::size_t i = 0; i < points_.size();) {
        QPointF lowest = scale.placeOf(points_[i]);
        QPointF highest = lowest;
        const double column = lowest.x();
        for (; i < points_.size(); ++i) {
            const QPointF place = scale.placeOf(points_[i]);
            if (place.x() - column >= 1) break;
            if (place.y() > lowest.y()) lowest = place;
            if (place.y() < highest.y()) highest = place;
        }
        path.lineTo(highest);
        path.lineTo(lowest);
    }
    const QPointF last = scale.placeOf(points_.back());
    path.lineTo(last);
    painter.setPen(QPen(colour, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
    painter.setBrush(colour);
    painter.drawEllipse(last, 3, 3);
}

void LineChartWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (points_.empty()) {
        painter.setPen(quietInk(palette()));
        painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("Nothing was checked yet."));
        return;
    }
    const Scale places = scale();
    paintAxis(painter, places);
    paintLevel(painter, places);
    painter.setBrush(Qt::NoBrush);
    paintLine(painter, places);
}

QString LineChartWidget::hint(const LineChart::Point& point) const {
    return ago(-point.seconds) + QStringLiteral(": ") + kilobytes(point.value, regional_);
}

bool LineChartWidget::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || points_.empty()) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const auto nearest =
        std::min_element(points_.begin(), points_.end(), [&](const auto& a, const auto& b) {
            return std::abs(placeOf(a).x() - help->pos().x()) <
                   std::abs(placeOf(b).x() - help->pos().x());
        });
    QToolTip::showText(help->globalPos(), hint(*nearest), this);
    return true;
}

}  // namespace velmora::qt
