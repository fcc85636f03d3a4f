// Events: what a control reports to its handlers. One thread. While the handlers run, they may
// connect and disconnect, emit the event again, and destroy it.
#pragma once

#include <memory>
#include <utility>

#include "controls/event_handlers.h"

namespace velmora {

template <typename... Args>
class Event {
  public:
    using Handler = typename EventHandlers<Args...>::Handler;

    Event() = default;
    /// Ends the connections. During an emission the remaining handlers don't run.
    ~Event() {
        if (handlers_) handlers_->eventDestroyed(handlers_);
    }
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    /// The handler stays connected for the life of the event, unless the connection is ended;
    /// handlers run in the order of connection.
    Connection connect(Handler handler) {
        if (!handlers_) handlers_ = std::make_shared<EventHandlers<Args...>>();
        return {handlers_, handlers_->add(std::move(handler))};
    }
    bool connected() const { return handlers_ && handlers_->any(); }

    /// Runs the handlers. An error in one goes to the caller; the remaining ones don't run.
    void operator()(Args... args) const {
        if (handlers_) handlers_->run(args...);
    }

  private:
    // None until the first connection: most events of a form have no handler.
    std::shared_ptr<EventHandlers<Args...>> handlers_;
};

/// A notice for views only: something shown has changed. It never runs behaviour.
template <typename... Args>
using Notice = Event<Args...>;

}  // namespace velmora
