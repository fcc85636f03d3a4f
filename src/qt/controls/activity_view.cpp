#include "qt/controls/activity_view.h"

#include <QPainter>

#include "qt/surface/field.h"

namespace velmora::qt {

namespace {

constexpr int steps = 12;
constexpr int stepTime = 80;  // milliseconds

}  // namespace

ActivityView::ActivityView(Animation& field, QWidget* parent) : QWidget(parent), field_(field) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    turn_.setInterval(stepTime);
    connect(&turn_, &QTimer::timeout, this, [this] {
        step_ = (step_ + 1) % steps;
        update();
    });
    bindField(this, field, [this] {
        if (field_.Playing() != turn_.isActive()) field_.Playing() ? turn_.start() : turn_.stop();
        setAccessibleDescription(field_.Playing() ? QStringLiteral("playing")
                                                  : QStringLiteral("still"));
        update();
    });
}

void ActivityView::paintEvent(QPaintEvent*) {
    if (!field_.Playing()) return;
    const bool alert = field_.File().ends_with("alert.avi");
    QColor colour = alert ? QColor(220, 60, 30) : palette().color(QPalette::Highlight);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect().center());
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < steps; ++i) {
        colour.setAlphaF(static_cast<float>((i + steps - step_) % steps + 1) / steps);
        painter.setBrush(colour);
        painter.drawEllipse(QPointF(0, -6.5), 1.4, 1.4);
        painter.rotate(360.0 / steps);
    }
}

}  // namespace velmora::qt
