#include "platform/linux/inventory/systemd/service_bus.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "platform/linux/system/systemd_calls.h"

namespace velmora::linuxhost {

namespace {

constexpr const char* service = "org.freedesktop.systemd1";
constexpr const char* timerInterface = "org.freedesktop.systemd1.Timer";

struct Unreference {
    void operator()(sd_bus_message* message) const { systemd().busMessageUnref(message); }
};
using BusMessage = std::unique_ptr<sd_bus_message, Unreference>;

// Which units with a name like "*.timer" there are, in any state.
BusMessage questionForTimers(sd_bus* bus) {
    sd_bus_message* message = nullptr;
    if (systemd().busMessageNewMethodCall(bus, &message, service, "/org/freedesktop/systemd1",
                                          "org.freedesktop.systemd1.Manager",
                                          "ListUnitsByPatterns") < 0)
        return nullptr;
    BusMessage question(message);
    if (systemd().busMessageAppend(message, "asas", 0, 1, "*.timer") < 0) return nullptr;
    return question;
}

// An array of id, description, three states, the unit that it follows, its object, and of its job
// the number, kind and object.
std::vector<Unit> readUnits(sd_bus_message* answer) {
    std::vector<Unit> units;
    if (systemd().busMessageEnterContainer(answer, 'a', "(ssssssouso)") < 0) return units;
    const char* id = nullptr;
    const char* description = nullptr;
    const char* object = nullptr;
    const char* other = nullptr;
    std::uint32_t job = 0;
    while (systemd().busMessageRead(answer, "(ssssssouso)", &id, &description, &other, &other,
                                    &other, &other, &object, &job, &other, &other) > 0)
        units.push_back({.id = id, .description = description, .object = object});
    return units;
}

}  // namespace

void ServiceBus::Close::operator()(sd_bus* bus) const {
    systemd().busCloseUnref(bus);
}

void ServiceBus::giveTime(std::chrono::microseconds time) {
    deadline_ = std::chrono::steady_clock::now() + time;
}

std::uint64_t ServiceBus::timeLeft() const {
    const auto left = std::chrono::duration_cast<std::chrono::microseconds>(
        deadline_ - std::chrono::steady_clock::now());
    return static_cast<std::uint64_t>(std::max<std::int64_t>(left.count(), 0));
}

bool ServiceBus::isConnected() {
    return bus_ && systemd().busIsReady(bus_.get()) > 0;
}

// A call would wait for the connection, too, but much longer than for its answer.
bool ServiceBus::connect() {
    if (bus_) return isConnected();
    sd_bus* bus = nullptr;
    if (!loadSystemd() || systemd().busOpenSystem(&bus) < 0) return false;
    bus_.reset(bus);
    while (systemd().busIsReady(bus) == 0) {
        const int progress = systemd().busProcess(bus, nullptr);
        if (progress > 0) continue;
        const std::uint64_t left = timeLeft();
        if (progress < 0 || left == 0) return false;
        const int wait = systemd().busWait(bus, left);
        if (wait < 0 && wait != -EINTR) return false;
    }
    return isConnected();
}

// Without any time left, a call would wait as long as the library likes.
bool ServiceBus::mayAsk() {
    const std::uint64_t left = timeLeft();
    return isConnected() && left > 0 && systemd().busSetMethodCallTimeout(bus_.get(), left) >= 0;
}

std::optional<std::vector<Unit>> ServiceBus::timers() {
    if (!connect() || !mayAsk()) return std::nullopt;
    const BusMessage question = questionForTimers(bus_.get());
    sd_bus_message* answer = nullptr;
    if (!question || systemd().busCall(bus_.get(), question.get(), 0, nullptr, &answer) < 0)
        return std::nullopt;
    const BusMessage owner(answer);
    return readUnits(answer);
}

std::optional<std::string> ServiceBus::timerText(const Unit& unit, const char* property) {
    char* text = nullptr;
    if (!mayAsk() || systemd().busGetPropertyString(bus_.get(), service, unit.object.c_str(),
                                                    timerInterface, property, nullptr, &text) < 0)
        return std::nullopt;
    const std::unique_ptr<char, decltype(&std::free)> owner(text, &std::free);
    return text;
}

std::optional<std::uint64_t> ServiceBus::timerNumber(const Unit& unit, const char* property) {
    std::uint64_t number = 0;
    if (!mayAsk() ||
        systemd().busGetPropertyTrivial(bus_.get(), service, unit.object.c_str(), timerInterface,
                                        property, nullptr, 't', &number) < 0)
        return std::nullopt;
    return number;
}

}  // namespace velmora::linuxhost
