// The list of a wizard's steps at the side of its window: their names and numbers, and which of
// them is shown.
#pragma once

#include <QAbstractButton>
#include <span>

#include "controls/buttons.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

/// A click clicks its label. It takes no focus: the buttons below the step do the same by keys.
class StepButton : public QAbstractButton {
    Q_OBJECT
  public:
    StepButton(Label& label, std::span<Frame> steps, UserHand& hand, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    int shownStep() const;
    void showState();
    void paintNumber(QPainter& painter, const QRectF& circle, const QColor& line) const;

    Label& label_;
    std::span<Frame> steps_;
};

/// The steps below each other, in the program's dark blue.
QWidget* makeStepList(std::span<Label> labels, std::span<Frame> steps, UserHand& hand);

}  // namespace velmora::qt
