// A gauge of 50 segments above each other, with its caption at the foot. It reports its level to a
// screen reader as a progress bar does.
#pragma once

#include <QProgressBar>

#include "controls/gauges.h"

namespace velmora::qt {

class GaugeWidget : public QProgressBar {
    Q_OBJECT
  public:
    explicit GaugeWidget(Meter2& field, QWidget* parent = nullptr);

    QString text() const override { return caption_; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    /// Where a segment lies, from 0 at the foot.
    QRectF segment(int number) const;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void refresh(const Meter2& field);
    QRectF column() const;

    Meter2::Column colours_{};
    QString caption_;
    bool hasBorder_ = false;
};

}  // namespace velmora::qt
