// The times of files that listings have given out, for the clock that is compared with them.
#pragma once

#include <cstdint>

#include "platform/linux/system/file_time.h"

namespace velmora::linuxhost {

/// All times are in units of 100 ns since 1601-01-01 UTC.
class ListedTimes {
  public:
    /// `now` is the clock by which files are dated.
    explicit ListedTimes(std::uint64_t (*now)() = timeOfFiles) : now_(now) {}

    /// A file can be dated so much later than the clock is read, by the steps of both.
    static constexpr std::uint64_t longestStep = 1'000'000;  // 100 ms

    /// Begins a listing.
    void begin() {
        // The clock was set back.
        if (isAhead(newest_)) newest_ = 0;
    }
    /// A file dated ahead says nothing of the present.
    void add(std::uint64_t time) {
        if (time > newest_ && !isAhead(time)) newest_ = time;
    }
    /// The newest of all listings; 0 before the first.
    std::uint64_t newest() const { return newest_; }

  private:
    bool isAhead(std::uint64_t time) const { return time > now_() + longestStep; }

    std::uint64_t (*now_)();
    std::uint64_t newest_ = 0;
};

}  // namespace velmora::linuxhost
