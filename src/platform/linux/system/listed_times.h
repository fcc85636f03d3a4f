// The times of files that listings have given out, for the clock that is compared with them.
#pragma once

#include <algorithm>
#include <cstdint>

namespace velmora::linuxhost {

/// All times are in units of 100 ns since 1601-01-01 UTC.
class ListedTimes {
  public:
    /// Begins a listing. Later times than `latest` are left out: a file dated far ahead says
    /// nothing of the present.
    void begin(std::uint64_t latest) { latest_ = latest; }
    void add(std::uint64_t time) {
        if (time <= latest_) newest_ = std::max(newest_, time);
    }
    /// The newest of all listings; 0 before the first.
    std::uint64_t newest() const { return newest_; }

  private:
    std::uint64_t latest_ = 0;
    std::uint64_t newest_ = 0;
};

}  // namespace velmora::linuxhost
