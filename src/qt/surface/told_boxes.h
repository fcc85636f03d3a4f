// Boxes that wait for nobody: the program goes on behind them, also through a night without a user.
#pragma once

#include <QMessageBox>
#include <QPointer>
#include <QStringList>

#include "platform/host.h"

namespace velmora::qt {

/// One box at a time, which holds what was told since it was opened, each text once and the newest
/// first: an error that comes back every minute must not cover the screen with boxes.
class ToldBoxes {
  public:
    ~ToldBoxes() { delete shown_; }
    /// `owner` may be null: the box comes in the middle of the screen.
    void tell(const Box& box, QWidget* owner);
    /// The texts in the box; empty when none is open.
    const QStringList& texts() const { return texts_; }

  private:
    void open(const Box& box, QWidget* owner);

    QPointer<QMessageBox> shown_;
    QStringList texts_;
};

}  // namespace velmora::qt
