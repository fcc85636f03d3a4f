// A row of ten lamps for a speed, with the speed and its unit beside it.
#pragma once

#include <QWidget>
#include <array>

#include "controls/gauges.h"

namespace velmora::qt {

class LampsWidget : public QWidget {
    Q_OBJECT
  public:
    explicit LampsWidget(CtlDigital& field, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    /// Where a lamp is, from 1.
    QRectF lamp(int number) const;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void refresh(const CtlDigital& field);

    std::array<Colour, CtlDigital::lamps> colours_{};
    QString caption_;
};

}  // namespace velmora::qt
