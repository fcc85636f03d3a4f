// Updates a view from its field, once for any number of changes: a check writes several texts for
// each row, and no text that lasts less than a frame needs to be shown.
#pragma once

#include <QObject>
#include <functional>

#include "controls/event.h"

namespace velmora::qt {

class Refresher : public QObject {
    Q_OBJECT
  public:
    /// Lives as long as `view`. Refreshes at once, so that the view begins with the field's state,
    /// and after each notice. The field may be destroyed before the view.
    template <typename... Args>
    Refresher(QObject* view, Notice<Args...>& changed, std::function<void()> refresh)
        : Refresher(view, std::move(refresh)) {
        changes_ = changed.connect([this](Args...) { touch(); });
    }

    /// Refreshes in the next round of the event loop.
    void touch();
    /// Does nothing once the field is gone.
    void refreshNow();
    bool fieldExists() const { return changes_.connected(); }

  private:
    Refresher(QObject* view, std::function<void()> refresh);

    std::function<void()> refresh_;
    bool touched_ = false;
    ScopedConnection changes_;
};

/// Keeps a view up to date with a field that reports its changes by this notice.
template <typename... Args>
Refresher* follow(Notice<Args...>& changed, QObject* view, std::function<void()> refresh) {
    return new Refresher(view, changed, std::move(refresh));
}

}  // namespace velmora::qt
