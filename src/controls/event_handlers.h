// The handlers of one event, in the order of their connection. They may come and go, and the event
// may be destroyed, while they run.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <iterator>
#include <list>
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
        // Destroying what the handler holds may disconnect others: the list must be valid by then.
        Entries removed;
        removed.splice(removed.begin(), entries_, entry);
    }

    /// Runs the handlers, also those that are connected meanwhile. An error in one goes to the
    /// caller; the remaining ones don't run.
    void run(Args&... args) {
        const Emission emission(*this);
        // A list keeps its elements in place, and nothing is removed while an emission runs.
        for (Entry& entry : entries_) {
            if (entry.connected) entry.handler(args...);
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
    using Entries = std::list<Entry>;

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
        Entries removed;
        unsettled_ = false;
        for (auto entry = entries_.begin(); entry != entries_.end();) {
            const auto next = std::next(entry);
            if (!entry->connected) removed.splice(removed.end(), entries_, entry);
            entry = next;
        }
    }

    Entries entries_;
    std::uint64_t lastNumber_ = 0;
    int emissions_ = 0;
    bool unsettled_ = false;
    std::shared_ptr<EventHandlers> self_;
};

}  // namespace velmora
