#include "shell/wizard/list_mirrors.h"

#include <algorithm>

namespace velmora {

namespace {

std::vector<std::string> entriesOf(const ComboBox& box) {
    std::vector<std::string> all;
    for (int i = 0; i < box.ListCount(); ++i) all.push_back(box.List(i));
    return all;
}

std::vector<std::string> tagsOf(const ListView& list) {
    std::vector<std::string> all;
    for (int i = 1; i <= list.Count(); ++i) all.push_back(list.ListItems(i).Tag());
    return all;
}

// The last place of that text, counted from 0; -1 when it is none of them.
int lastPlaceOf(const std::vector<std::string>& texts, const std::string& text) {
    const auto found = std::find(texts.rbegin(), texts.rend(), text);
    return static_cast<int>(texts.rend() - found) - 1;
}

}  // namespace

std::vector<std::string> withoutThose(const std::vector<std::string>& from,
                                      std::vector<std::string> taken) {
    std::vector<std::string> rest;
    for (const std::string& text : from) {
        const auto found = std::find(taken.begin(), taken.end(), text);
        if (found == taken.end()) {
            rest.push_back(text);
        } else {
            taken.erase(found);
        }
    }
    return rest;
}

void copyRow(const ListItem& from, ListItem& to) {
    to.setText(from.Text());
    to.setTag(from.Tag());
    to.setChecked(from.Checked());
    to.setBold(from.Bold());
    for (int i = 1; i <= std::min(from.SubItemCount(), to.SubItemCount()); ++i) {
        to.setSubItems(i, from.SubItems(i));
        to.setSubTag(i, from.ListSubItems(i).Tag());
        to.setSubBold(i, from.ListSubItems(i).Bold());
    }
}

void EntriesMirror::read() {
    asRead_ = entriesOf(theirs_);
    mine_.Clear();
    for (const std::string& entry : asRead_) mine_.AddItem(entry);
}

bool EntriesMirror::touched() const {
    return entriesOf(mine_) != asRead_;
}

void EntriesMirror::write() {
    const std::vector<std::string> now = entriesOf(mine_);
    for (const std::string& gone : withoutThose(asRead_, now)) {
        const int place = lastPlaceOf(entriesOf(theirs_), gone);
        if (place >= 0) theirs_.RemoveItem(place);
    }
    for (const std::string& added : withoutThose(now, asRead_)) theirs_.AddItem(added);
    asRead_ = now;
}

void RowsMirror::read() {
    asRead_ = tagsOf(theirs_);
    mine_.Clear();
    for (int i = 1; i <= theirs_.Count(); ++i) copyRow(theirs_.ListItems(i), mine_.Add());
}

bool RowsMirror::touched() const {
    return tagsOf(mine_) != asRead_;
}

void RowsMirror::write() {
    const std::vector<std::string> now = tagsOf(mine_);
    for (const std::string& gone : withoutThose(asRead_, now)) {
        const int place = lastPlaceOf(tagsOf(theirs_), gone);
        if (place >= 0) theirs_.Remove(place + 1);
    }
    for (const std::string& added : withoutThose(now, asRead_)) {
        copyRow(mine_.ListItems(lastPlaceOf(now, added) + 1), theirs_.Add());
    }
    asRead_ = now;
}

}  // namespace velmora
