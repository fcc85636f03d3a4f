#include "monitor/history/full_estimate.h"

#include <array>
#include <cmath>
#include <span>

namespace velmora {

namespace {

constexpr double minute = 60;
constexpr double hour = 60 * minute;
constexpr double day = 24 * hour;
constexpr double year = 365 * day;
constexpr std::size_t fewest = 12;
constexpr double goodFit = 0.9;
constexpr std::size_t quarters = 4;

std::vector<SpacePoint> lastDay(const SpaceRing& ring, std::int64_t now) {
    std::vector<SpacePoint> points;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const SpacePoint point = ring.at(i);
        if (static_cast<double>(now - point.seconds) <= day) points.push_back(point);
    }
    return points;
}

struct Line {
    double slope = 0;  // KB a second
    double fit = 0;    // coefficient of determination
};

Line lineThrough(std::span<const SpacePoint> points) {
    const auto count = static_cast<double>(points.size());
    double meanX = 0;
    double meanY = 0;
    for (const SpacePoint& point : points) {
        meanX += static_cast<double>(point.seconds) / count;
        meanY += point.freeKB / count;
    }
    double xx = 0;
    double xy = 0;
    double yy = 0;
    for (const SpacePoint& point : points) {
        const double x = static_cast<double>(point.seconds) - meanX;
        const double y = point.freeKB - meanY;
        xx += x * x;
        xy += x * y;
        yy += y * y;
    }
    if (xx == 0 || yy == 0) return {};
    return {.slope = xy / xx, .fit = xy * xy / (xx * yy)};
}

// A line may fit well through one great fall: each quarter must have lost something.
bool fallsInEachQuarter(std::span<const SpacePoint> points) {
    const auto begin = static_cast<double>(points.front().seconds);
    const double span = static_cast<double>(points.back().seconds) - begin;
    std::array<double, quarters> sums{};
    std::array<int, quarters> counts{};
    for (const SpacePoint& point : points) {
        const double share = (static_cast<double>(point.seconds) - begin) / span;
        const auto quarter = std::min(quarters - 1, static_cast<std::size_t>(share * quarters));
        sums[quarter] += point.freeKB;
        ++counts[quarter];
    }
    for (std::size_t i = 0; i < quarters; ++i) {
        if (counts[i] == 0) return false;
        if (i > 0 && sums[i] / counts[i] >= sums[i - 1] / counts[i - 1]) return false;
    }
    return true;
}

std::string about(double amount, const char* unit) {
    const long whole = std::lround(amount);
    return "full in about " + std::to_string(whole) + " " + unit + (whole == 1 ? "" : "s");
}

}  // namespace

std::optional<double> secondsUntilFull(const SpaceRing& ring, std::int64_t now) {
    const std::vector<SpacePoint> points = lastDay(ring, now);
    if (points.size() < fewest) return std::nullopt;
    if (static_cast<double>(points.back().seconds - points.front().seconds) < hour) {
        return std::nullopt;
    }
    const Line line = lineThrough(points);
    if (line.slope >= 0 || line.fit < goodFit || !fallsInEachQuarter(points)) return std::nullopt;
    const double left =
        points.back().freeKB / -line.slope - static_cast<double>(now - points.back().seconds);
    return left > 0 && left < year ? std::optional(left) : std::nullopt;
}

std::string fullText(const std::optional<double>& seconds) {
    if (!seconds) return {};
    if (*seconds < 2 * hour) return about(*seconds / minute, "minute");
    if (*seconds < 2 * day) return about(*seconds / hour, "hour");
    return about(*seconds / day, "day");
}

}  // namespace velmora
