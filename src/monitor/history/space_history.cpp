#include "monitor/history/space_history.h"

#include <algorithm>

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

void SpaceRing::add(const SpacePoint& point) {
    const auto seconds = static_cast<std::uint32_t>(point.seconds);
    const auto kilobytes = static_cast<std::uint64_t>(std::clamp(point.freeKB, 0.0, 0x1p48 - 1));
    const auto low = static_cast<std::uint32_t>(kilobytes);
    const auto high = static_cast<std::uint16_t>(kilobytes >> 32);
    if (count_ < most) {
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

const SpaceRing* SpaceHistory::of(const std::string& path) const {
    const auto found = rings_.find(lowerCase(path));
    return found == rings_.end() ? nullptr : &found->second;
}

void SpaceHistory::add(const std::string& path, const SpacePoint& point) {
    const std::string key = lowerCase(path);
    const auto found = rings_.find(key);
    if (found != rings_.end()) return found->second.add(point);
    if (rings_.size() == mostPaths) return;
    rings_[key].add(point);
    paths_.push_back(path);
}

void SpaceHistory::remove(const std::string& path) {
    const std::string key = lowerCase(path);
    rings_.erase(key);
    std::erase_if(paths_, [&key](const std::string& each) { return lowerCase(each) == key; });
}

}  // namespace velmora
