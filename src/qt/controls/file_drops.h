// Files dropped on a widget from the desktop or a file manager, passed on as drive paths.
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
    /// Lets `widget` accept files of this machine, besides what else it accepts; lives as long as
    /// it. `takes` returns whether files are of use at the moment.
    FileDrops(QWidget* widget, UserHand& hand, std::function<bool()> takes,
              std::function<void(const std::vector<std::string>&)> dropped);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool offersFiles(const QDropEvent& event) const;

    UserHand& hand_;
    std::function<bool()> takes_;
    std::function<void(const std::vector<std::string>&)> dropped_;
};

/// Lets `widget` pass dropped files to its field, while the field takes them.
template <typename Field>
void takeDrops(QWidget* widget, Field& field, UserHand& hand) {
    new FileDrops(
        widget, hand, [&field] { return field.takesDrops(); },
        [&field](const std::vector<std::string>& paths) { field.userDrop(paths); });
}

}  // namespace velmora::qt
