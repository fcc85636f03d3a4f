// Letting the timers run: for some time, for ever, or until a text is shown.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "console/console_host.h"
#include "controls/timer_queue.h"
#include "platform/clock.h"

namespace velmora::console {

class Waiting {
  public:
    /// Lets the given number of milliseconds pass.
    using Sleep = std::function<void(std::int64_t)>;

    Waiting(ConsoleHost& host, TimerQueue& timers, LaterCommands& later, Clock& clock,
            Output& output, Sleep sleep)
        : host_(host),
          timers_(timers),
          later_(later),
          clock_(clock),
          output_(output),
          sleep_(std::move(sleep)) {}

    using IsEndRequested = std::function<bool()>;
    /// Every wait ends once somebody asks for the end of the program, and those to come end at
    /// once. It is asked after each sleep: those must end early for it to be heard early.
    void endWith(IsEndRequested isEndRequested) { isEndRequested_ = std::move(isEndRequested); }
    /// Milliseconds of the longest single sleep while no timer is due; a second unless set.
    void setLongestNap(std::int64_t milliseconds) { nap_ = milliseconds; }
    /// Whoever else has to be woken, and in how many milliseconds; nothing for not at all.
    using UntilNext = std::function<std::optional<std::int64_t>()>;
    void wakeFor(UntilNext untilNext) { untilNextOther_ = std::move(untilNext); }

    void forSeconds(double seconds);
    /// Until the end is asked for.
    void forever();
    /// Waits until `seen` is called with a text that holds `text`; false after the limit of 600 s.
    /// Waits can begin within each other; each has a text of its own.
    bool until(const std::string& text);
    /// The same for a new alert alone.
    bool untilAlert(const std::string& text);
    /// A status panel shows this.
    void seen(const std::string& text);
    /// A new alert holds this.
    void seenInAlert(const std::string& text);

  private:
    std::int64_t untilWork() const;
    // Runs timers until the condition holds or the time is up.
    void run(std::optional<std::int64_t> end, const std::function<bool()>& done);

    ConsoleHost& host_;
    TimerQueue& timers_;
    LaterCommands& later_;
    Clock& clock_;
    Output& output_;
    Sleep sleep_;
    IsEndRequested isEndRequested_ = [] { return false; };
    UntilNext untilNextOther_ = [] { return std::optional<std::int64_t>(); };
    std::int64_t nap_ = 1000;
    struct Awaited {
        std::string text = {};
        bool inAlert = false;
        bool isSeen = false;
    };
    bool untilSeen(Awaited awaited);
    std::vector<Awaited*> awaited_;  // the innermost wait last
};

}  // namespace velmora::console
