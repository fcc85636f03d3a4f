// Files dropped on a widget from the desktop or a file manager, handed on as drive paths.
#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

#include "qt/surface/user_hand.h"

class QDropEvent;
class QWidget;

namespace velmora::qt {

class FileDrops : public QObject {
    Q_OBJECT
  public:
    /// Lets `widget` take files of this machine, whatever else it takes; lives as long as it.
    /// `takes` tells whether anything is done with them now.
    FileDrops(QWidget* widget, UserHand& hand, std::function<bool()> takes,
              std::function<void(const std::vector<std::string>&)> dropped);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool offersFiles(const QDropEvent& event) const;

    UserHand& hand_;
    std::function<bool()> takes_;
    std::function<void(const std::vector<std::string>&)> dropped_;
};

}  // namespace velmora::qt
