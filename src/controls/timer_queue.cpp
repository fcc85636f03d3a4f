#include "controls/timer_queue.h"

#include <algorithm>

namespace velmora {

void TimerQueue::add(Timer& timer) {
    const std::size_t place = entries_.size();
    entries_.push_back({&timer, now_() + timer.Interval()});
    entries_[place].restarted = timer.Restarted.connect([this, place] {
        Entry& entry = entries_[place];
        entry.due = now_() + entry.timer->Interval();
    });
}

bool TimerQueue::runs(const Entry& entry) const {
    return entry.timer->Enabled() && entry.timer->Interval() > 0 && !entry.firing;
}

void TimerQueue::fire(std::size_t place) {
    struct Firing {
        TimerQueue& queue;
        std::size_t place;
        ~Firing() { queue.entries_[place].firing = false; }
    };
    Entry& entry = entries_[place];
    entry.firing = true;
    entry.due = now_() + entry.timer->Interval();
    const Firing guard{*this, place};
    inHandlerOf(*entry.timer, [&entry] { entry.timer->fire(); });
}

int TimerQueue::fireDue() {
    const std::int64_t until = now_();
    std::vector<std::size_t> due;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (runs(entries_[i]) && entries_[i].due <= until) due.push_back(i);
    }
    if (due.empty()) return 0;
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

std::optional<std::int64_t> TimerQueue::untilNext() const {
    std::optional<std::int64_t> next;
    for (const Entry& entry : entries_) {
        if (runs(entry) && (!next || entry.due < *next)) next = entry.due;
    }
    if (next) next = std::max<std::int64_t>(0, *next - now_());
    return next;
}

}  // namespace velmora
