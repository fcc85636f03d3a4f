// The timers of a message loop: when each is due, and firing those that are.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "controls/connection.h"
#include "controls/timer.h"

namespace velmora {

/// Times are milliseconds of the clock `tickCount`. Timers must outlive the queue.
class TimerQueue {
  public:
    explicit TimerQueue(std::function<std::int64_t()> tickCount) : now_(std::move(tickCount)) {}
    TimerQueue(const TimerQueue&) = delete;
    TimerQueue& operator=(const TimerQueue&) = delete;

    /// Takes a timer into the queue; its first interval begins now.
    void add(Timer& timer);

    /// Fires every timer that is due, each at most once and in the order of their times. A timer
    /// that missed several intervals fires once, and its next interval begins now. A timer whose
    /// handler is running (a handler yielded) doesn't fire again meanwhile. Returns how many fired.
    int fireDue();
    /// Milliseconds until the next timer is due (0 when one is); nothing when none runs. Timers
    /// that are due up to `joined` milliseconds after it are waited for, so that one awakening
    /// serves them all.
    std::optional<std::int64_t> untilNext(std::int64_t joined = 0) const;

  private:
    struct Entry {
        Timer* timer;
        std::int64_t due = 0;
        ScopedConnection restarted = {};
        bool firing = false;
    };
    void setDue(Entry& entry);
    void fire(std::size_t entry);
    bool runs(const Entry& entry) const;
    std::optional<std::int64_t> nextDue() const;

    std::function<std::int64_t()> now_;
    std::vector<Entry> entries_;
    // No timer is due before: a check asks thousands of times, and each time the answer is no.
    std::int64_t quietUntil_ = 0;
};

}  // namespace velmora
