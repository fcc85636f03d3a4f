// While a dialog of the system's own is open, the program's windows are painted but get no input: a
// click there could move another file than the one that was asked about, or open a second dialog.
#pragma once

#include <QObject>

namespace velmora::qt {

/// Lasts as long as the object.
class NoInput : public QObject {
  public:
    NoInput();
    bool eventFilter(QObject* receiver, QEvent* event) override;
};

}  // namespace velmora::qt
