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

    bool isTab() const { return shape_ != Shape::button; }
    /// Whether it is the tab of the page that is shown.
    bool isSelected() const { return isTab() && isShownTab(); }

  signals:
    /// It has become the selected tab, or is it no longer.
    void selectionChanged(bool selected);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;

  private:
    bool isShownTab() const;
    void reportSelection();
    QPainterPath outline(const QRectF& area) const;
    void paintPicture(QPainter& painter, const QColor& colour);

    Label& label_;
    UserHand& hand_;
    Shape shape_;
    bool wasSelected_ = false;
};

}  // namespace velmora::qt
