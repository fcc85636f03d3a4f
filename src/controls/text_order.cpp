#include "controls/text_order.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr std::size_t headSize = sizeof(std::uint64_t);

}  // namespace

void TextOrder::add(std::string_view text) {
    texts_ += text;
    ends_.push_back(texts_.size());
}

std::string_view TextOrder::text(std::size_t number) const {
    const std::size_t begin = number == 0 ? 0 : ends_[number - 1];
    return std::string_view(texts_).substr(begin, ends_[number] - begin);
}

std::uint64_t TextOrder::headOf(std::size_t number, std::size_t depth) const {
    const std::string_view whole = text(number);
    const std::string_view bytes = whole.substr(std::min(depth, whole.size()), headSize);
    std::uint64_t head = 0;
    for (const char byte : bytes) head = head << 8 | static_cast<unsigned char>(byte);
    return bytes.empty() ? 0 : head << 8 * (headSize - bytes.size());
}

// Of bytes that all texts of the group begin with; at least its depth.
std::size_t TextOrder::commonSize(const std::vector<Entry>& entries, const Group& group) const {
    const std::string_view first = text(entries[group.begin].number);
    std::size_t common = first.size();
    for (std::size_t i = group.begin + 1; i < group.end && common > group.depth; ++i) {
        const std::string_view other = text(entries[i].number);
        common = std::min(common, other.size());
        for (std::size_t at = group.depth; at < common; ++at) {
            if (first[at] != other[at]) common = at;
        }
    }
    return std::max(common, group.depth);
}

bool TextOrder::areAtEnd(const std::vector<Entry>& entries, const Group& group) const {
    return std::all_of(entries.begin() + static_cast<std::ptrdiff_t>(group.begin),
                       entries.begin() + static_cast<std::ptrdiff_t>(group.end),
                       [&](const Entry& each) { return text(each.number).size() <= group.depth; });
}

// By the heads. Texts that are at their end differ in zeros at most, so their sizes are what is
// left to compare: nothing remains to be done with their group.
bool TextOrder::arrange(std::vector<Entry>& entries, const Group& group, bool descending) const {
    const bool isEnd = areAtEnd(entries, group);
    const auto begin = entries.begin() + static_cast<std::ptrdiff_t>(group.begin);
    const auto end = entries.begin() + static_cast<std::ptrdiff_t>(group.end);
    std::for_each(begin, end, [&](Entry& each) {
        each.head = isEnd ? text(each.number).size() : headOf(each.number, group.depth);
    });
    std::sort(begin, end, [descending](const Entry& one, const Entry& other) {
        if (one.head != other.head) return (one.head < other.head) != descending;
        return one.number < other.number;
    });
    return !isEnd;
}

std::vector<std::size_t> TextOrder::sorted(bool descending) const {
    std::vector<Entry> entries;
    entries.reserve(ends_.size());
    for (std::size_t i = 0; i < ends_.size(); ++i) entries.push_back({.head = 0, .number = i});
    std::vector<Group> groups{{.begin = 0, .end = entries.size(), .depth = 0}};
    while (!groups.empty()) {
        Group group = groups.back();
        groups.pop_back();
        if (group.end - group.begin < 2) continue;
        group.depth = commonSize(entries, group);
        if (!arrange(entries, group, descending)) continue;
        for (std::size_t begin = group.begin, at = begin; at < group.end; ++at) {
            if (at + 1 < group.end && entries[at + 1].head == entries[begin].head) continue;
            groups.push_back({.begin = begin, .end = at + 1, .depth = group.depth + headSize});
            begin = at + 1;
        }
    }
    std::vector<std::size_t> numbers;
    numbers.reserve(entries.size());
    for (const Entry& each : entries) numbers.push_back(each.number);
    return numbers;
}

}  // namespace velmora
