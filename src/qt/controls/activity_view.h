// The animation beside the list: a ring that turns while the clip plays, in the colour of an alert
// for the clip of alerts.
#pragma once

#include <QTimer>
#include <QWidget>

#include "controls/animation.h"

namespace velmora::qt {

class ActivityView : public QWidget {
    Q_OBJECT
  public:
    explicit ActivityView(Animation& field, QWidget* parent = nullptr);

    QSize sizeHint() const override { return {18, 18}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Animation& field_;
    QTimer turn_;
    int step_ = 0;
};

}  // namespace velmora::qt
