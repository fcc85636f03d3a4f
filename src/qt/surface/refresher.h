// Brings a view in line with its field, once for any number of changes: a check writes several
// texts for each row, and a screen shows none of them that lasts less than a frame.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

#include "controls/event.h"

namespace velmora::qt {

class Refresher : public QObject {
    Q_OBJECT
  public:
    /// Lives as long as `view`; refreshes at once, so that the view begins with the field's state.
    Refresher(QObject* view, std::function<void()> refresh);

    /// Refreshes when the event loop comes round.
    void touch();
    void refreshNow();

  private:
    std::function<void()> refresh_;
    bool touched_ = false;
};

/// Keeps a view in line with what the notice tells. The notice may outlive the view.
template <typename... Args>
Refresher* follow(Notice<Args...>& notice, QObject* view, std::function<void()> refresh) {
    auto* refresher = new Refresher(view, std::move(refresh));
    notice.connect([guard = QPointer<Refresher>(refresher)](Args...) {
        if (guard) guard->touch();
    });
    return refresher;
}

}  // namespace velmora::qt
