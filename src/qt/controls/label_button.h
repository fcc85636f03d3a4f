// A label that acts as a button or a tab: its colours are the field's, and its handlers get press,
// release, move and click.
#pragma once

#include <QAbstractButton>

#include "controls/buttons.h"
#include "qt/icons/glyph.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

class LabelButton : public QAbstractButton {
    Q_OBJECT
  public:
    enum class Shape {
        button,   ///< rounded on all sides
        sideTab,  ///< at the left of its page
        topTab,   ///< above its page
    };

    LabelButton(Label& label, UserHand& hand, Shape shape, QWidget* parent = nullptr);

    /// Shows a picture in place of the caption, which stays the button's name.
    void setPicture(Glyph glyph);

    QSize sizeHint() const override;
    /// The whole caption, with less room at its sides.
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;

  private:
    bool isShownTab() const;
    QPainterPath outline(const QRectF& area) const;
    void paintPicture(QPainter& painter, const QColor& colour);

    Label& label_;
    UserHand& hand_;
    Shape shape_;
};

}  // namespace velmora::qt
