#include "controls/timer_queue.h"

#include <algorithm>
#include <limits>

namespace velmora {

void TimerQueue::add(Timer& timer) {
    const std::size_t place = entries_.size();
    entries_.push_back({.timer = &timer});
    entries_[place].restarted = timer.Restarted.connect([this, place] { setDue(entries_[place]); });
    setDue(entries_[place]);
}

void TimerQueue::setDue(Entry& entry) {
    entry.due = now_() + entry.timer->Interval();
    quietUntil_ = std::min(quietUntil_, entry.due);
}

bool TimerQueue::runs(const Entry& entry) const {
    return entry.timer->Enabled() && entry.timer->Interval() > 0 && !entry.firing;
}

void TimerQueue::fire(std::size_t place) {
    struct Firing {
        TimerQueue& queue;
        std::size_t place;
        ~Firing() {
            Entry& entry = queue.entries_[place];
            entry.firing = false;
            queue.quietUntil_ = std::min(queue.quietUntil_, entry.due);
        }
    };
    Entry& entry = entries_[place];
    entry.firing = true;
    entry.due = now_() + entry.timer->Interval();
    const Firing guard{*this, place};
    inHandlerOf(*entry.timer, [&entry] { entry.timer->fire(); });
}

int TimerQueue::fireDue() {
    const std::int64_t until = now_();
    if (until < quietUntil_) return 0;
    std::vector<std::size_t> due;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (runs(entries_[i]) && entries_[i].due <= until) due.push_back(i);
    }
    if (due.empty()) {
        quietUntil_ = nextDue().value_or(std::numeric_limits<std::int64_t>::max());
        return 0;
    }
    std::stable_sort(due.begin(), due.end(), [this](std::size_t a, std::size_t b) {
        return entries_[a].due < entries_[b].due;
    });
    int fired = 0;
    for (const std::size_t i : due) {
        // A handler that ran meanwhile may have switched this one off or restarted it.
        if (!runs(entries_[i]) || entries_[i].due > until) continue;
        fire(i);
        ++fired;
    }
    return fired;
}

std::optional<std::int64_t> TimerQueue::nextDue() const {
    std::optional<std::int64_t> next;
    for (const Entry& entry : entries_) {
        if (runs(entry) && (!next || entry.due < *next)) next = entry.due;
    }
    return next;
}

std::optional<std::int64_t> TimerQueue::untilNext(std::int64_t joined) const {
    const auto next = nextDue();
    if (!next) return std::nullopt;
    const std::int64_t now = now_();
    if (*next <= now) return 0;
    std::int64_t last = *next;
    for (const Entry& entry : entries_) {
        if (runs(entry) && entry.due <= *next + joined) last = std::max(last, entry.due);
    }
    return last - now;
}

}  // namespace velmora
