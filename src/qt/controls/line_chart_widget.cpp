#include "qt/controls/line_chart_widget.h"

#include <QHelpEvent>
#include <QLineF>
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

constexpr int levelColumn = 1;  // of the colours
constexpr double besideAxis = 8;
constexpr double belowAxis = 6;
constexpr double namesGap = 16;
constexpr double namesAtMost = 0.3;  // of the width

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

QString leftOut(std::size_t lines) {
    return QStringLiteral("and %1 more").arg(lines);
}

}  // namespace

LineChartWidget::LineChartWidget(LineChart& field, Regional regional, QWidget* parent)
    : QWidget(parent), field_(field), regional_(std::move(regional)) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    bindField(this, field, [this] { refresh(); });
}

QString LineChartWidget::words(const LineChart::Line& line) const {
    QString words = shown(line.name) + QStringLiteral(", ") + hint(line.points.back());
    if (line.level) words += QStringLiteral(", trigger ") + kilobytes(*line.level, regional_);
    return words;
}

void LineChartWidget::refresh() {
    lines_ = field_.lines();
    QStringList all;
    for (const LineChart::Line& line : lines_) all.append(words(line));
    setAccessibleDescription(all.join(QStringLiteral("; ")));
    update();
}

double LineChartWidget::legendWidth() const {
    if (lines_.size() < 2) return 0;
    double widest = 0;
    for (const LineChart::Line& line : lines_) {
        widest = std::max(widest, fontMetrics().horizontalAdvance(shown(line.name)) + 1.0);
    }
    // Where not all have room, a line says how many are left out.
    if (static_cast<double>(lines_.size()) * fontMetrics().height() > height() / 2.0)
        widest = std::max(widest, fontMetrics().horizontalAdvance(leftOut(lines_.size())) + 1.0);
    return std::min(swatchWidth(font()) + widest, namesAtMost * width());
}

LineChartWidget::Scale LineChartWidget::scale() const {
    constexpr int lines = 3;  // of text between two marks
    const QFontMetricsF metrics(font());
    double most = 0;
    Scale scale;
    for (const LineChart::Line& line : lines_) {
        most = std::max(most, line.level.value_or(0));
        for (const LineChart::Point& point : line.points) most = std::max(most, point.value);
        scale.span = std::max(scale.span, static_cast<double>(-line.points.front().seconds));
    }
    const double room = height() - 2 * chartMargin - metrics.height();
    scale.marks = axisTicks(most, std::max(2, static_cast<int>(room / (lines * metrics.height()))));
    const double label = metrics.horizontalAdvance(kilobytes(scale.marks.back(), regional_));
    const double names = legendWidth();
    const double right = names > 0 ? chartMargin + names + namesGap : chartMargin + besideAxis;
    scale.plot = QRectF(rect()).adjusted(chartMargin + label + besideAxis,
                                         chartMargin + metrics.height() / 2, -right,
                                         -chartMargin - metrics.height() - belowAxis);
    scale.legend = {width() - chartMargin - names, scale.plot.top() - metrics.height() / 2, names,
                    scale.plot.height() + metrics.height()};
    return scale;
}

QPointF LineChartWidget::Scale::placeOf(const LineChart::Point& point) const {
    const double across = span <= 0 ? 1 : 1 + static_cast<double>(point.seconds) / span;
    return {plot.left() + across * plot.width(), yOf(point.value)};
}

QPointF LineChartWidget::placeOf(const LineChart::Point& point) const {
    return scale().placeOf(point);
}

QColor LineChartWidget::colourOf(std::size_t line) const {
    return lineColour(static_cast<int>(line), palette().color(QPalette::Base));
}

void LineChartWidget::paintAxis(QPainter& painter, const Scale& scale) const {
    const double line = fontMetrics().height();
    for (const double mark : scale.marks) {
        const double y = scale.yOf(mark);
        painter.setPen(gridInk(palette()));
        painter.drawLine(QPointF(scale.plot.left(), y), QPointF(scale.plot.right(), y));
        painter.setPen(quietInk(palette()));
        painter.drawText(QRectF(0, y - line / 2, scale.plot.left() - besideAxis, line),
                         Qt::AlignRight | Qt::AlignVCenter, kilobytes(mark, regional_));
    }
    const QRectF below(scale.plot.left(), scale.plot.bottom() + belowAxis, scale.plot.width(),
                       line);
    painter.drawText(below, Qt::AlignLeft, ago(static_cast<std::int64_t>(scale.span)));
    painter.drawText(below, Qt::AlignRight, QStringLiteral("now"));
}

// The level of a line alone says what it is; among others it has the colour of its line.
void LineChartWidget::paintLevels(QPainter& painter, const Scale& scale) const {
    const bool alone = lines_.size() == 1;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        if (!lines_[i].level) continue;
        const double y = scale.yOf(*lines_[i].level);
        const QColor colour =
            alone ? seriesColour(levelColumn, palette().color(QPalette::Base)) : colourOf(i);
        painter.setPen(QPen(colour, 1.5, Qt::DashLine));
        painter.drawLine(QPointF(scale.plot.left(), y), QPointF(scale.plot.right(), y));
        if (alone) {
            painter.drawText(QPointF(scale.plot.left() + 6, y - 4), QStringLiteral("Trigger"));
        }
    }
}

// Of the points in one column of pixels the lowest and the highest are drawn: ten thousand would
// make a thick line, and a short fall must not get lost.
void LineChartWidget::paintLine(QPainter& painter, const Scale& scale, std::size_t line) const {
    const std::vector<LineChart::Point>& points = lines_[line].points;
    const QColor colour = colourOf(line);
    QPainterPath path(scale.placeOf(points.front()));
    for (std::size_t i = 0; i < points.size();) {
        QPointF lowest = scale.placeOf(points[i]);
        QPointF highest = lowest;
        const double column = lowest.x();
        for (; i < points.size(); ++i) {
            const QPointF place = scale.placeOf(points[i]);
            if (place.x() - column >= 1) break;
            if (place.y() > lowest.y()) lowest = place;
            if (place.y() < highest.y()) highest = place;
        }
        path.lineTo(highest);
        path.lineTo(lowest);
    }
    const QPointF last = scale.placeOf(points.back());
    path.lineTo(last);
    painter.setPen(QPen(colour, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
    painter.setBrush(colour);
    painter.drawEllipse(last, 3, 3);
}

QStringList LineChartWidget::legend() const {
    QStringList names;
    if (lines_.size() < 2) return names;
    const auto room = static_cast<std::size_t>(
        std::max(1.0, scale().legend.height() / QFontMetricsF(font()).height()));
    for (const LineChart::Line& line : lines_) names.append(shown(line.name));
    if (lines_.size() <= room) return names;
    names.resize(static_cast<qsizetype>(room) - 1);
    names.append(leftOut(lines_.size() + 1 - room));
    return names;
}

void LineChartWidget::paintLegend(QPainter& painter, const Scale& scale) const {
    const QStringList names = legend();
    const double high = QFontMetricsF(font()).height();
    const bool all = names.size() == static_cast<qsizetype>(lines_.size());
    for (qsizetype i = 0; i < names.size(); ++i) {
        QRectF line(scale.legend.left(), scale.legend.top() + static_cast<double>(i) * high,
                    scale.legend.width(), high);
        const bool isName = all || i + 1 < names.size();
        if (isName) paintSwatch(painter, line, colourOf(static_cast<std::size_t>(i)));
        painter.setPen(isName ? palette().color(QPalette::Text) : quietInk(palette()));
        line.setLeft(line.left() + swatchWidth(font()));
        paintShortened(painter, line, Qt::AlignLeft | Qt::AlignVCenter, names[i]);
    }
}

void LineChartWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint(painter);
}

void LineChartWidget::paint(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font());
    if (lines_.empty()) {
        painter.setPen(quietInk(palette()));
        painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("Nothing was checked yet."));
        return;
    }
    const Scale places = scale();
    paintAxis(painter, places);
    paintLevels(painter, places);
    for (std::size_t i = 0; i < lines_.size(); ++i) paintLine(painter, places, i);
    paintLegend(painter, places);
}

QString LineChartWidget::hint(const LineChart::Point& point) const {
    return ago(-point.seconds) + QStringLiteral(": ") + kilobytes(point.value, regional_);
}

// Of the line that is nearest, its point in the column of the pointer.
QString LineChartWidget::hintAt(const QPointF& place) const {
    const Scale places = scale();
    const LineChart::Line* line = nullptr;
    const LineChart::Point* point = nullptr;
    double least = 0;
    for (const LineChart::Line& each : lines_) {
        const auto across = [&](const LineChart::Point& at) {
            return std::abs(places.placeOf(at).x() - place.x());
        };
        const LineChart::Point& nearest = *std::ranges::min_element(each.points, {}, across);
        const double away = QLineF(places.placeOf(nearest), place).length();
        if (line != nullptr && away >= least) continue;
        line = &each;
        point = &nearest;
        least = away;
    }
    if (lines_.size() < 2) return hint(*point);
    return shown(line->name) + QLatin1Char('\n') + hint(*point);
}

bool LineChartWidget::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || lines_.empty()) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), hintAt(help->pos()), this);
    return true;
}

}  // namespace velmora::qt
