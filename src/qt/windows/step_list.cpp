#include "qt/windows/step_list.h"

#include <QLabel>
#include <QPainter>

#include "forms/label_colours.h"
#include "qt/colours/colours.h"
#include "qt/icons/program_icon.h"
#include "qt/surface/field.h"
#include "qt/surface/refresher.h"
#include "qt/surface/text.h"
#include "qt/windows/layouts.h"

namespace velmora::qt {

namespace {

// In pixels.
constexpr int iconSize = 44;
constexpr int circleSize = 20;
constexpr int accentWidth = 4;
constexpr int sideMargin = 14;
constexpr int lineMargin = 6;
constexpr int wordGap = 8;

constexpr Colour quietLetters = 0xC0C0C0;

QColor ground(const QPalette& palette) {
    return shownColour(label_colour::deepBlue, palette);
}

QColor accent(const QPalette& palette) {
    return shownColour(label_colour::orange, palette);
}

// The dark blue behind all steps.
class Side : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), ground(palette())); }
};

QLabel* makePicture() {
    auto* picture = new QLabel;
    picture->setPixmap(programIcon().pixmap(QSize(iconSize, iconSize)));
    picture->setContentsMargins(sideMargin, sideMargin, sideMargin, lineMargin);
    return picture;
}

}  // namespace

StepButton::StepButton(Label& label, std::span<Frame> steps, UserHand& hand, QWidget* parent)
    : QAbstractButton(parent), label_(label), steps_(steps) {
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    bindField(this, label, [this] {
        setText(shown(label_.Caption()).trimmed());
        updateGeometry();
    });
    for (Frame& step : steps_) follow(step.Changed, this, [this] { showState(); });
    connect(this, &QAbstractButton::clicked, this,
            [this, &hand] { hand.does(label_, [this] { label_.userClick(); }); });
}

int StepButton::shownStep() const {
    for (const Frame& step : steps_) {
        if (step.Visible()) return step.Index();
    }
    return -1;
}

void StepButton::showState() {
    const bool isShown = shownStep() == label_.Index();
    QFont letters = font();
    letters.setBold(isShown);
    setFont(letters);
    setAccessibleDescription(QStringLiteral("Step %1 of %2%3")
                                 .arg(label_.Index() + 1)
                                 .arg(steps_.size())
                                 .arg(isShown ? QStringLiteral(", shown") : QString()));
    update();
}

QSize StepButton::sizeHint() const {
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    return {metrics.horizontalAdvance(text()) + circleSize + wordGap + 2 * sideMargin,
            std::max(metrics.height(), circleSize) + 2 * lineMargin};
}

void StepButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isShown = shownStep() == label_.Index();
    if (isShown || underMouse()) {
        painter.fillRect(rect(), QColor(255, 255, 255, isShown ? 38 : 20));
    }
    if (isShown) painter.fillRect(QRect(0, 0, accentWidth, height()), accent(palette()));
    const QColor letters = isShown ? QColor(Qt::white) : shownColour(quietLetters, palette());
    const QRectF circle(sideMargin, (height() - circleSize) / 2.0, circleSize, circleSize);
    paintNumber(painter, circle, letters);
    painter.setPen(letters);
    painter.drawText(rect().adjusted(sideMargin + circleSize + wordGap, 0, 0, 0),
                     Qt::AlignVCenter | Qt::AlignLeft, text());
}

// A tick for the steps before the one that is shown.
void StepButton::paintNumber(QPainter& painter, const QRectF& circle, const QColor& line) const {
    const int step = shownStep();
    const bool isShown = step == label_.Index();
    painter.setPen(isShown ? QPen(Qt::NoPen) : QPen(line, 1.2));
    painter.setBrush(isShown ? QBrush(accent(palette())) : QBrush(Qt::NoBrush));
    painter.drawEllipse(circle.adjusted(1, 1, -1, -1));
    if (label_.Index() < step) {
        const QPointF middle = circle.center();
        painter.setPen(QPen(line, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF{middle + QPointF(-3.8, 0.2), middle + QPointF(-1, 3),
                                       middle + QPointF(4, -3)});
        return;
    }
    painter.setPen(isShown ? ground(palette()) : line);
    QFont digits = font();
    digits.setPointSizeF(digits.pointSizeF() * 0.85);
    painter.setFont(digits);
    painter.drawText(circle, Qt::AlignCenter, QString::number(label_.Index() + 1));
    painter.setFont(font());
}

void StepButton::enterEvent(QEnterEvent* event) {
    update();
    QAbstractButton::enterEvent(event);
}

void StepButton::leaveEvent(QEvent* event) {
    update();
    QAbstractButton::leaveEvent(event);
}

QWidget* makeStepList(std::span<Label> labels, std::span<Frame> steps, UserHand& hand) {
    auto* content = column({makePicture()});
    content->setSpacing(0);
    for (Label& label : labels) content->addWidget(new StepButton(label, steps, hand));
    content->addStretch(1);
    auto* side = new Side;
    side->setLayout(content);
    return side;
}

}  // namespace velmora::qt
