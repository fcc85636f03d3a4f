#include "monitor/watch_summary.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "monitor/row_usage.h"

namespace velmora {

namespace {

using Mood = WatchSummary::Mood;

void append(std::string& list, const std::string& entry) {
    if (!list.empty()) list += ", ";
    list += entry;
}

// What is wrong, the most serious first.
constexpr RowState serious[] = {RowState::shortOfSpace, RowState::unavailable, RowState::noMinimum,
                                RowState::nearShortage};

class Counts {
  public:
    Counts(const Form1& form1, const Regional& regional) {
        for (int i = 1; i <= form1.ListView1.Count(); ++i) {
            const ConstWatchRow row(form1.ListView1.ListItems(i));
            const RowState state = usageOf(row, form1, regional).state;
            ++counts_[static_cast<std::size_t>(state)];
            note(row.path(), state);
            watched_ += row.watched() ? 1 : 0;
        }
    }

    int of(RowState state) const { return counts_[static_cast<std::size_t>(state)]; }
    int watched() const { return watched_; }
    std::string pathsOf(RowState state) const {
        const std::string& named = named_[static_cast<std::size_t>(state)];
        const int others = of(state) - mostNamed;
        return others > 0 ? named + " and " + std::to_string(others) + " more" : named;
    }

  private:
    void note(const std::string& path, RowState state) {
        if (of(state) <= mostNamed) append(named_[static_cast<std::size_t>(state)], path);
    }

    static constexpr int mostNamed = 3;

    std::array<int, static_cast<std::size_t>(RowState::fine) + 1> counts_{};
    std::array<std::string, static_cast<std::size_t>(RowState::fine) + 1> named_;
    int watched_ = 0;
};

// "2 of 5 short of space, 1 not available", the most serious first; empty when nothing is wrong.
std::string troubles(const Counts& counts) {
    std::string all;
    for (const RowState state : serious) {
        const int count = counts.of(state);
        if (count == 0) continue;
        const std::string words = std::to_string(count) +
                                  (all.empty() ? " of " + std::to_string(counts.watched()) : "") +
                                  ' ' + wordsFor(state);
        append(all, words);
    }
    return all;
}

std::string pathsInTrouble(const Counts& counts) {
    const auto* worst = std::find_if(std::begin(serious), std::end(serious),
                                     [&](RowState state) { return counts.of(state) > 0; });
    return worst == std::end(serious) ? std::string() : counts.pathsOf(*worst);
}

Mood moodOf(const Counts& counts) {
    if (counts.of(RowState::shortOfSpace) > 0) return Mood::bad;
    const int fine = counts.of(RowState::fine);
    const int unknown = counts.of(RowState::notChecked);
    if (fine + unknown < counts.watched()) return Mood::warning;
    return unknown > 0 ? Mood::neutral : Mood::good;
}

bool isRunning(const Forms& forms) {
    return forms.globals.bChecking || forms.form1.Timer1.Enabled();
}

}  // namespace

WatchSummary summaryOf(const Forms& forms, const Regional& regional) {
    const Form1& form1 = forms.form1;
    const Counts counts(form1, regional);
    WatchSummary summary{.text = {}, .paths = {}, .watched = counts.watched()};
    if (counts.watched() == 0) {
        summary.text = "Nothing is watched yet: tick a drive";
        return summary;
    }
    const std::string wrong = troubles(counts);
    summary.paths = pathsInTrouble(counts);
    if (!isRunning(forms)) {
        summary.mood = Mood::warning;
        summary.text = "Paused";
        if (!wrong.empty()) append(summary.text, wrong);
        return summary;
    }
    summary.mood = moodOf(counts);
    summary.text = wrong;
    const std::string watched = std::to_string(counts.watched()) + " watched";
    const int unknown = counts.of(RowState::notChecked);
    if (wrong.empty()) summary.text = unknown > 0 ? watched : watched + ", all fine";
    if (unknown == counts.watched()) {
        append(summary.text, "not checked yet");
    } else if (unknown > 0) {
        append(summary.text, std::to_string(unknown) + " not checked yet");
    }
    return summary;
}

}  // namespace velmora
