// A list of entries that can be ticked.
#pragma once

#include <QListWidget>

#include "controls/list_box.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

/// As high as its entries, unless it is given less room.
class CheckList : public QListWidget {
    Q_OBJECT
  public:
    CheckList(ListBox& field, UserHand& hand, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void showEntries();

    ListBox& field_;
    bool hasTicked_ = false;  // this release of the button
};

}  // namespace velmora::qt
