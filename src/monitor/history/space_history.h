// The free space of the watched rows at each check, kept in memory while the program runs. Nothing
// asks a drive for it: it is what the check has measured.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace velmora {

/// One measure.
struct SpacePoint {
    std::int64_t seconds = 0;  ///< since the history began
    double freeKB = 0;         ///< whole KB, below 2^48

    bool operator==(const SpacePoint&) const = default;
};

/// The last measures of one path, oldest first. Ten bytes each.
class SpaceRing {
  public:
    static constexpr std::size_t most = 10080;

    std::size_t size() const { return count_; }
    /// From 0, the oldest.
    SpacePoint at(std::size_t index) const;
    /// Bytes that they take, with what is reserved.
    std::size_t bytes() const;
    /// The oldest one goes once it is full.
    void add(const SpacePoint& point);

  private:
    std::size_t place(std::size_t index) const;
    void reserveBlock();

    // Side by side, so that no byte is lost between them.
    std::vector<std::uint32_t> seconds_;
    std::vector<std::uint32_t> lowKB_;
    std::vector<std::uint16_t> highKB_;
    std::size_t first_ = 0;
    std::size_t count_ = 0;
};

class SpaceHistory {
  public:
    static constexpr std::size_t mostPaths = 200;

    SpaceHistory() = default;
    SpaceHistory(const SpaceHistory&) = delete;
    SpaceHistory& operator=(const SpaceHistory&) = delete;

    /// The measures of a path in any letter case; null when there are none.
    const SpaceRing* of(const std::string& path) const;
    /// The paths in the order of their first measure.
    const std::vector<std::string>& paths() const { return paths_; }
    /// Bytes that the measures take.
    std::size_t bytes() const;
    /// Takes a measure. With 200 paths another one takes the place of one that wasn't measured for
    /// an hour; without such a one it isn't kept.
    void add(const std::string& path, const SpacePoint& point);
    /// Forgets a path.
    void remove(const std::string& path);

  private:
    bool dropForgotten(std::int64_t now);

    std::map<std::string, SpaceRing> rings_;  // by path in lower case
    std::vector<std::string> paths_;
    // The rings by their paths as they are written, so that a check changes no letters.
    std::unordered_map<std::string, SpaceRing*> asWritten_;
    std::int64_t nothingForgottenUntil_ = 0;  // seconds
};

}  // namespace velmora
