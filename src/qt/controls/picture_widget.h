// What a program has drawn, painted in the widget's font: the places are pixels of the design,
// which grow with the font. Colours change as far as it takes to see them on the palette's ground.
#pragma once

#include <QWidget>
#include <vector>

#include "controls/drawn_picture.h"

namespace velmora::qt {

class PictureWidget : public QWidget {
    Q_OBJECT
  public:
    explicit PictureWidget(DrawnPicture& field, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    /// Pixels of the screen by those of the design.
    double scale() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void refresh(const DrawnPicture& field);
    QRectF boxOf(const DrawnShape& shape) const;
    void paintShape(QPainter& painter, const DrawnShape& shape) const;

    std::vector<DrawnShape> shapes_;
};

}  // namespace velmora::qt
