#include "shell/wizard/watched_rows_mirror.h"

#include <algorithm>

#include "shell/wizard/list_mirrors.h"

namespace velmora {

namespace {

// Path, free space and total size. What else the watch list shows comes with the checks.
constexpr int columns = 3;

std::vector<int> rowsOf(const ListView& list, const std::string& path) {
    std::vector<int> rows;
    for (int i = 1; i <= list.Count(); ++i) {
        if (list.ListItems(i).Text() == path) rows.push_back(i);
    }
    return rows;
}

}  // namespace

WatchedRowsMirror::Ticks WatchedRowsMirror::ticksOf(const ListView& list) {
    Ticks ticks;
    for (int i = 1; i <= list.Count(); ++i) {
        const ListItem& row = list.ListItems(i);
        ticks[row.Text()].push_back(row.Checked());
    }
    return ticks;
}

void WatchedRowsMirror::read() {
    addColumns();
    mine_.Clear();
    for (int i = 1; i <= theirs_.Count(); ++i) copyRow(theirs_.ListItems(i), mine_.Add());
    asRead_ = ticksOf(theirs_);
}

void WatchedRowsMirror::addColumns() {
    for (int i = mine_.ColumnCount() + 1; i <= columns; ++i) {
        mine_.addColumn(theirs_.ColumnHeaders(i));
    }
}

bool WatchedRowsMirror::touched() const {
    return ticksOf(mine_) != asRead_;
}

void WatchedRowsMirror::write() {
    if (!touched() || !commands_.mayDisturbCheck()) return;
    // Handlers may have run while the question was open: all is looked at from here on.
    const Ticks now = ticksOf(mine_);
    const std::vector<Added> additions = addedRows();
    tickRows(now);
    removeRows(now);
    asRead_ = now;
    const bool ran = timer_.Enabled();
    for (const Added& added : additions) add(added);
    if (ran) timer_.setEnabled(true);
}

// Those of the rows as they were read that are still there and have another tick now.
void WatchedRowsMirror::tickRows(const Ticks& now) {
    for (const auto& [path, before] : asRead_) {
        const auto after = now.find(path);
        if (after == now.end()) continue;
        const std::vector<int> rows = rowsOf(theirs_, path);
        const std::size_t count = std::min({rows.size(), before.size(), after->second.size()});
        for (std::size_t place = 0; place < count; ++place) {
            const bool ticked = after->second[place];
            if (before[place] != ticked) tick(theirs_.ListItems(rows[place]), ticked);
        }
    }
}

void WatchedRowsMirror::tick(ListItem& row, bool ticked) {
    if (row.Checked() == ticked) return;
    row.setChecked(ticked);
    theirs_.ItemCheck(row);
}

void WatchedRowsMirror::removeRows(const Ticks& now) {
    for (const auto& [path, ticks] : asRead_) {
        const auto after = now.find(path);
        const std::size_t kept = after == now.end() ? 0 : after->second.size();
        const std::vector<int> rows = rowsOf(theirs_, path);
        for (std::size_t place = std::min(ticks.size(), rows.size()); place > kept; --place) {
            theirs_.Remove(rows[place - 1]);
        }
    }
}

std::vector<WatchedRowsMirror::Added> WatchedRowsMirror::addedRows() const {
    std::vector<Added> all;
    std::map<std::string, std::size_t> seen;
    for (int i = 1; i <= mine_.Count(); ++i) {
        const ListItem& row = mine_.ListItems(i);
        const auto before = asRead_.find(row.Text());
        const std::size_t known = before == asRead_.end() ? 0 : before->second.size();
        if (seen[row.Text()]++ >= known) all.push_back({row.Text(), row.Checked()});
    }
    return all;
}

void WatchedRowsMirror::add(const Added& added) {
    commands_.add(added.path);
    // It is the last, unless a handler that ran meanwhile has changed the list.
    if (!added.ticked || theirs_.Count() == 0) return;
    ListItem& row = theirs_.ListItems(theirs_.Count());
    if (row.Text() == added.path) tick(row, true);
}

}  // namespace velmora
