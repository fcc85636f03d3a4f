#include "monitor/history/space_history.h"

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace velmora {

std::size_t SpaceRing::place(std::size_t index) const {
    return (first_ + index) % most;
}

SpacePoint SpaceRing::at(std::size_t index) const {
    const std::size_t i = place(index);
    return {.seconds = seconds_.at(i),
            .freeKB = static_cast<double>(std::uint64_t{highKB_[i]} << 32 | lowKB_[i])};
}

// The usual doubling would take room for half as many again in the end.
void SpaceRing::reserveBlock() {
    constexpr std::size_t block = most / 4;
    if (count_ % block != 0) return;
    seconds_.reserve(count_ + block);
    lowKB_.reserve(count_ + block);
    highKB_.reserve(count_ + block);
}

void SpaceRing::add(const SpacePoint& point) {
    const auto seconds = static_cast<std::uint32_t>(point.seconds);
    const auto kilobytes = static_cast<std::uint64_t>(std::clamp(point.freeKB, 0.0, 0x1p48 - 1));
    const auto low = static_cast<std::uint32_t>(kilobytes);
    const auto high = static_cast<std::uint16_t>(kilobytes >> 32);
    if (count_ < most) {
        reserveBlock();
        seconds_.push_back(seconds);
        lowKB_.push_back(low);
        highKB_.push_back(high);
        ++count_;
        return;
    }
    seconds_[first_] = seconds;
    lowKB_[first_] = low;
    highKB_[first_] = high;
    first_ = (first_ + 1) % most;
}

std::size_t SpaceRing::bytes() const {
    return seconds_.capacity() * sizeof(std::uint32_t) + lowKB_.capacity() * sizeof(std::uint32_t) +
           highKB_.capacity() * sizeof(std::uint16_t);
}

std::size_t SpaceHistory::bytes() const {
    std::size_t sum = 0;
    for (const auto& [path, ring] : rings_) sum += ring.bytes();
    return sum;
}

const SpaceRing* SpaceHistory::of(const std::string& path) const {
    const auto found = rings_.find(lowerCase(path));
    return found == rings_.end() ? nullptr : &found->second;
}

void SpaceHistory::add(const std::string& path, const SpacePoint& point) {
    if (const auto known = asWritten_.find(path); known != asWritten_.end()) {
        return known->second->add(point);
    }
    const std::string key = lowerCase(path);
    if (rings_.count(key) == 0) {
        if (rings_.size() == mostPaths && !dropForgotten(point.seconds)) return;
        // A path is named only once it has a measure, also where memory ends in between.
        SpaceRing first;
        first.add(point);
        std::string name = path;
        paths_.reserve(mostPaths);
        rings_.emplace(key, std::move(first));
        paths_.push_back(std::move(name));
        return;
    }
    SpaceRing& ring = rings_[key];
    ring.add(point);
    // The same path may come in many ways of writing it.
    if (asWritten_.size() >= 2 * mostPaths) asWritten_.clear();
    asWritten_[path] = &ring;
}

// A path that wasn't measured for an hour makes room for another one.
bool SpaceHistory::dropForgotten(std::int64_t now) {
    constexpr std::int64_t hour = 3600;
    // Each further path of a long list asks at each check, and measures only become later.
    if (now < nothingForgottenUntil_) return false;
    std::int64_t earliest = now;
    for (const std::string& path : paths_) {
        const SpaceRing& ring = *of(path);
        const std::int64_t last = ring.at(ring.size() - 1).seconds;
        earliest = std::min(earliest, last);
        if (now - last < hour) continue;
        remove(std::string(path));
        return true;
    }
    nothingForgottenUntil_ = earliest + hour;
    return false;
}

void SpaceHistory::remove(const std::string& path) {
    const std::string key = lowerCase(path);
    asWritten_.clear();
    rings_.erase(key);
    std::erase_if(paths_, [&key](const std::string& each) { return lowerCase(each) == key; });
}

}  // namespace velmora
