// The tool bar and the status bar.
#pragma once

#include <QLabel>
#include <QStatusBar>
#include <QToolBar>

#include "controls/bars.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

/// The buttons of the field, each with the glyph of its caption. Their object names are
/// "Toolbar1(1)" and so on.
QToolBar* makeToolBar(ToolBar& field, UserHand& hand);

/// Three panels; the first shows its picture in front.
class StatusView : public QStatusBar {
    Q_OBJECT
  public:
    explicit StatusView(StatusBar& field, QWidget* parent = nullptr);

    /// Whether what is watched is known to be fine; until then the picture for "ready" is neutral.
    void setFine(bool isFine);

  private:
    void addPanel(int number);
    void showPicture();

    StatusBar& field_;
    QLabel* picture_;
    bool isFine_ = false;
};

}  // namespace velmora::qt
