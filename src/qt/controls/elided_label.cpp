#include "qt/controls/elided_label.h"

#include <QPainter>

#include "qt/controls/accessible_caption.h"

namespace velmora::qt {

ElidedLabel::ElidedLabel(QWidget* parent, Qt::TextElideMode mode) : QWidget(parent), mode_(mode) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    makeCaptionsAccessible();
}

void ElidedLabel::setText(const QString& text) {
    if (text_ == text) return;
    text_ = text;
    setAccessibleDescription(text);
    showWholeInToolTip();
    update();
}

void ElidedLabel::showWholeInToolTip() {
    const bool fits = fontMetrics().horizontalAdvance(text_) <= width();
    setToolTip(fits ? QString() : text_);
}

QSize ElidedLabel::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text_) + 4, fontMetrics().height() + 4};
}

QSize ElidedLabel::minimumSizeHint() const {
    return {40, fontMetrics().height() + 4};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Normal : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(text_, mode_, width()));
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    showWholeInToolTip();
}

}  // namespace velmora::qt
