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

double LineChartWidget::greatest() const {
    double most = level_.value_or(0);
    for (const LineChart::Point& point : points_) most = std::max(most, point.value);
    return most;
}

std::vector<double> LineChartWidget::marks() const {
    constexpr int lines = 3;  // of text between two marks
    const double height = this->height() - 2 * chartMargin - fontMetrics().height();
    return axisTicks(greatest(),
                     std::max(2, static_cast<int>(height / (lines * fontMetrics().height()))));
}

QRectF LineChartWidget::plot() const {
    const QFontMetricsF metrics(font());
    const double label = metrics.horizontalAdvance(kilobytes(marks().back(), regional_));
    return QRectF(rect()).adjusted(chartMargin + label + 8, chartMargin + metrics.height() / 2,
                                   -chartMargin - 8, -chartMargin - metrics.height() - 6);
}

QPointF LineChartWidget::placeOf(const LineChart::Point& point) const {
    const QRectF place = plot();
    const auto span = static_cast<double>(points_.empty() ? 0 : -points_.front().seconds);
    const double across = span <= 0 ? 1 : 1 + static_cast<double>(point.seconds) / span;
    return {place.left() + across * place.width(),
            place.bottom() - point.value / marks().back() * place.height()};
}

void LineChartWidget::paintAxis(QPainter& painter) const {
    const QRectF place = plot();
    const double line = fontMetrics().height();
    for (const double mark : marks()) {
        const double y = place.bottom() - mark / marks().back() * place.height();
        painter.setPen(gridInk(palette()));
        painter.drawLine(QPointF(place.left(), y), QPointF(place.right(), y));
        painter.setPen(quietInk(palette()));
        painter.drawText(QRectF(0, y - line / 2, place.left() - 8, line),
                         Qt::AlignRight | Qt::AlignVCenter, kilobytes(mark, regional_));
    }
    const QRectF below(place.left(), place.bottom() + 6, place.width(), line);
    painter.drawText(below, Qt::AlignLeft, ago(-points_.front().seconds));
    painter.drawText(below, Qt::AlignRight, QStringLiteral("now"));
}

void LineChartWidget::paintLevel(QPainter& painter) const {
    if (!level_) return;
    const QRectF place = plot();
    const double y = place.bottom() - *level_ / marks().back() * place.height();
    const QColor colour = seriesColour(levelColumn, palette().color(QPalette::Base));
    painter.setPen(QPen(colour, 1.5, Qt::DashLine));
    painter.drawLine(QPointF(place.left(), y), QPointF(place.right(), y));
    painter.drawText(QPointF(place.left() + 6, y - 4), QStringLiteral("Trigger"));
}

void LineChartWidget::paintLine(QPainter& painter) const {
    const QColor colour = seriesColour(0, palette().color(QPalette::Base));
    QPainterPath path(placeOf(points_.front()));
    // A column of pixels takes one of them: a line of ten thousand points would be thick.
    double last = path.currentPosition().x();
    for (const LineChart::Point& point : points_) {
        const QPointF place = placeOf(point);
        if (place.x() - last < 1 && &point != &points_.back()) continue;
        path.lineTo(place);
        last = place.x();
    }
    painter.setPen(QPen(colour, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
    painter.setBrush(colour);
    painter.drawEllipse(placeOf(points_.back()), 3, 3);
}

void LineChartWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (points_.empty()) {
        painter.setPen(quietInk(palette()));
        painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("Nothing was checked yet."));
        return;
    }
    paintAxis(painter);
    paintLevel(painter);
    painter.setBrush(Qt::NoBrush);
    paintLine(painter);
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
