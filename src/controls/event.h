// Events: what a control tells its handlers. One thread; a handler may fire further events and may
// connect new handlers while one runs.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <utility>

namespace velmora {

template <typename... Args>
class Event {
  public:
    using Handler = std::function<void(Args...)>;

    /// The handler stays for the life of the event; handlers run in the order of connection.
    void connect(Handler handler) { handlers_.push_back(std::move(handler)); }
    bool connected() const { return !handlers_.empty(); }

    /// Runs the handlers. An error in one goes to the caller and stops the rest.
    void operator()(Args... args) const {
        // By index, and over a container that keeps its elements in place: a handler may connect.
        for (std::size_t i = 0; i < handlers_.size(); ++i) handlers_[i](args...);
    }

  private:
    std::deque<Handler> handlers_;
};

/// A notice for views only: something shown has changed. It never runs behaviour.
template <typename... Args>
using Notice = Event<Args...>;

}  // namespace velmora
