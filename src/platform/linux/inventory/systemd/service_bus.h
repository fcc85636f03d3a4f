// Questions to the service manager over the system's bus.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct sd_bus;

namespace velmora::linuxhost {

/// A unit of the service manager.
struct Unit {
    std::string id;
    std::string description;
    std::string object;  ///< its path on the bus
};

/// A connection to the bus. Each question is answered before the deadline or not at all.
class ServiceBus {
  public:
    /// All questions until the next call of this must be answered within this time.
    void giveTime(std::chrono::microseconds time);

    /// Connects, if it isn't connected. Nothing when there is no bus, or no answer.
    std::optional<std::vector<Unit>> timers();
    /// A property of a unit as timers have them. Nothing when there is no such property, or no
    /// answer.
    std::optional<std::string> timerText(const Unit& unit, const char* property);
    std::optional<std::uint64_t> timerNumber(const Unit& unit, const char* property);
    /// Whether the bus answers.
    bool isConnected();
    /// Whether some of the given time is left.
    bool hasTime() const { return timeLeft() > 0; }

  private:
    struct Close {
        void operator()(sd_bus* bus) const;
    };
    std::uint64_t timeLeft() const;
    bool connect();
    bool mayAsk();

    std::unique_ptr<sd_bus, Close> bus_;
    std::chrono::steady_clock::time_point deadline_;
};

}  // namespace velmora::linuxhost
