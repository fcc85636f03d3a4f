// The handlers of one event, in the order of their connection. They may come and go, and the event
// may be destroyed, while they run.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <iterator>
#include <memory>
#include <utility>

#include "controls/connection.h"

namespace velmora {

template <typename... Args>
class EventHandlers final : public HandlerList {
  public:
    using Handler = std::function<void(Args...)>;

    /// Returns the handler's number.
    std::uint64_t add(Handler handler) {
        entries_.push_back({std::move(handler), ++lastNumber_});
        return lastNumber_;
    }
    bool any() const { return std::any_of(entries_.begin(), entries_.end(), isConnected); }
    bool connected(std::uint64_t handler) const override {
        return std::any_of(entries_.begin(), entries_.end(), [handler](const Entry& entry) {
            return entry.number == handler && entry.connected;
        });
    }

    void disconnect(std::uint64_t handler) override {
        const auto entry =
            std::find_if(entries_.begin(), entries_.end(),
                         [handler](const Entry& each) { return each.number == handler; });
        if (entry == entries_.end()) return;
        if (emissions_ > 0) {
            entry->connected = false;
            unsettled_ = true;
            return;
        }
        // What the handler holds may disconnect others as it goes: the list is in order by then.
        const Handler removed = std::move(entry->handler);
        entries_.erase(entry);
    }

    /// Runs the handlers, also those that are connected meanwhile. An error in one goes to the
    /// caller and stops the rest.
    void run(Args&... args) {
        const Emission emission(*this);
        // By index, and over a container that keeps its elements in place: a handler may connect.
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            if (entries_[i].connected) entries_[i].handler(args...);
        }
    }

    /// The event is being destroyed: no handler runs any more. `self` is the event's own share of
    /// this list, which a running handler still needs.
    void eventDestroyed(std::shared_ptr<EventHandlers> self) {
        if (emissions_ == 0) return;
        for (Entry& entry : entries_) entry.connected = false;
        unsettled_ = true;
        self_ = std::move(self);
    }

  private:
    struct Entry {
        Handler handler;
        std::uint64_t number;
        bool connected = true;
    };
    // Counts the emissions that are running, one within another.
    class Emission {
      public:
        explicit Emission(EventHandlers& handlers) : handlers_(handlers) { ++handlers_.emissions_; }
        ~Emission() {
            if (--handlers_.emissions_ == 0 && handlers_.unsettled_) handlers_.settle();
        }
        Emission(const Emission&) = delete;
        Emission& operator=(const Emission&) = delete;

      private:
        EventHandlers& handlers_;
    };

    static bool isConnected(const Entry& entry) { return entry.connected; }

    // Removes what was disconnected during the emission. Without its event, the list goes too.
    void settle() {
        const auto self = std::move(self_);
        std::deque<Entry> removed;
        unsettled_ = false;
        const auto first = std::stable_partition(entries_.begin(), entries_.end(), isConnected);
        std::move(first, entries_.end(), std::back_inserter(removed));
        entries_.erase(first, entries_.end());
    }

    std::deque<Entry> entries_;
    std::uint64_t lastNumber_ = 0;
    int emissions_ = 0;
    bool unsettled_ = false;
    std::shared_ptr<EventHandlers> self_;
};

}  // namespace velmora
