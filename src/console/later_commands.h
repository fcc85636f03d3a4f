// Commands that run by themselves after some time, at the first yield or wait from then on.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "platform/clock.h"

namespace velmora::console {

class LaterCommands {
  public:
    using Run = std::function<void(const std::string& line)>;

    explicit LaterCommands(Clock& clock) : clock_(clock) {}

    /// Whoever carries a line out; until it is set, lines wait.
    void setRun(Run run) { run_ = std::move(run); }
    void add(std::int64_t milliseconds, std::string line);
    /// At the yield of that number from now, from 1.
    void addAtYield(std::int64_t count, std::string line);
    /// Runs those that are due, in the order of their times. A command may yield: one that is due
    /// meanwhile runs then. Returns whether any ran.
    bool runDue();
    /// The program yields: runs those that waited for this yield. Returns whether any did.
    bool yielded();
    /// Milliseconds until the next one is due (0 when one is); nothing when there is none.
    std::optional<std::int64_t> untilNext() const;

  private:
    Clock& clock_;
    Run run_;
    std::multimap<std::int64_t, std::string> lines_;  // by the time at which they are due
    std::int64_t yields_ = 0;
    std::multimap<std::int64_t, std::string> atYields_;  // by the number of the yield
};

}  // namespace velmora::console
