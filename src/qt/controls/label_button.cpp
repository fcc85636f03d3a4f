#include "qt/controls/label_button.h"

#include <QAccessible>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

#include "qt/colours/colours.h"
#include "qt/controls/legible_style.h"
#include "qt/surface/field.h"
#include "qt/surface/text.h"
#include "shell/tab_selection.h"

namespace velmora::qt {

namespace {

constexpr int sideMargin = 8;
constexpr int leastSideMargin = 4;
constexpr int topMargin = button_shape::topMargin;
constexpr double corner = button_shape::corner;
constexpr int labelPicture = 16;

}  // namespace

LabelButton::LabelButton(Label& label, UserHand& hand, Shape shape, QWidget* parent)
    : QAbstractButton(parent), label_(label), hand_(hand), shape_(shape) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setCursor(Qt::PointingHandCursor);
    bindField(this, label, [this] {
        // An ampersand is a letter here and marks no shortcut.
        const QString caption = shown(label_.Caption());
        if (text() != caption) {
            setText(caption);
            updateGeometry();
        }
        reportSelection();
        update();
    });
    connect(this, &QAbstractButton::pressed, this,
            [this] { hand_.does(label_, [this] { label_.MouseDown(); }); });
    connect(this, &QAbstractButton::released, this,
            [this] { hand_.does(label_, [this] { label_.MouseUp(); }); });
    connect(this, &QAbstractButton::clicked, this,
            [this] { hand_.does(label_, [this] { label_.Click(); }); });
}

void LabelButton::setPicture(Glyph glyph) {
    setIcon(glyphIcon(glyph));
    updateGeometry();
    update();
}

QSize LabelButton::sizeHint() const {
    const QFontMetrics metrics(font());
    const int content = icon().isNull() ? metrics.horizontalAdvance(text()) : labelPicture;
    return {content + 2 * sideMargin,
            metrics.height() + 2 * (shape_ == Shape::sideTab ? topMargin + 4 : topMargin)};
}

QSize LabelButton::minimumSizeHint() const {
    return sizeHint() - QSize(2 * (sideMargin - leastSideMargin), 0);
}

bool LabelButton::isShownTab() const {
    return shape_ == Shape::topTab ? isSelectedInnerTab(label_) : isSelectedTab(label_);
}

void LabelButton::reportSelection() {
    if (isSelected() == wasSelected_) return;
    wasSelected_ = isSelected();
    QAccessible::State changed;
    changed.selected = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
    emit selectionChanged(wasSelected_);
}

QPainterPath LabelButton::outline(const QRectF& area) const {
    QRectF box = area;
    // A tab is cut off on the side of its page.
    if (shape_ == Shape::sideTab) box.setRight(box.right() + 2 * corner);
    if (shape_ == Shape::topTab) box.setBottom(box.bottom() + 2 * corner);
    QPainterPath path;
    path.addRoundedRect(box, corner, corner);
    return path;
}

void LabelButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const QColor background = shownColour(label_.BackColor(), palette());
    QColor text = legible(shownColour(label_.ForeColor(), palette()), background);
    if (!isEnabled()) text.setAlphaF(0.45F);
    // An outline, for backgrounds as dark as the button.
    const QColor window = palette().color(QPalette::Window);
    if (isShownTab()) {
        painter.setPen(Qt::NoPen);
    } else {
        painter.setPen(contrast(background, window) < 3 ? visibleOn(window, text) : background);
    }
    painter.setBrush(underMouse() && isEnabled() && !isSelectedTab(label_) ? background.lighter(150)
                                                                           : background);
    painter.drawPath(outline(area));
    if (shape_ != Shape::button && isShownTab()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::Highlight));
        painter.drawRect(shape_ == Shape::topTab
                             ? QRectF(area.left() + 4, area.top(), area.width() - 8, 3)
                             : QRectF(area.left(), area.top() + 4, 3, area.height() - 8));
    }
    if (hasFocus()) {
        QPen ring(palette().color(QPalette::Highlight), 2);
        painter.setPen(ring);
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(area.adjusted(1, 1, -1, -1), corner - 1, corner - 1);
    }
    if (!icon().isNull()) {
        paintPicture(painter, text);
        return;
    }
    painter.setPen(text);
    painter.drawText(rect(), Qt::AlignCenter, this->text());
}

// In the one colour of the button's letters: the picture's own are made for windows.
void LabelButton::paintPicture(QPainter& painter, const QColor& colour) {
    const double ratio = devicePixelRatioF();
    QPixmap picture = icon().pixmap(QSize(labelPicture, labelPicture), ratio);
    QPainter tint(&picture);
    tint.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tint.fillRect(picture.rect(), colour);
    tint.end();
    painter.drawPixmap(QPoint((width() - labelPicture) / 2, (height() - labelPicture) / 2),
                       picture);
}

void LabelButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void LabelButton::mouseMoveEvent(QMouseEvent* event) {
    hand_.does(label_, [this] { label_.MouseMove(); });
    QAbstractButton::mouseMoveEvent(event);
}

void LabelButton::enterEvent(QEnterEvent* event) {
    update();
    QAbstractButton::enterEvent(event);
}

}  // namespace velmora::qt
