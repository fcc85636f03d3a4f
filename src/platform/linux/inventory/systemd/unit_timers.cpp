#include "platform/linux/inventory/systemd/unit_timers.h"

#include <time.h>

#include <chrono>
#include <limits>

#include "platform/linux/inventory/cim_time.h"
#include "platform/linux/inventory/record_text.h"

namespace velmora::linuxhost {

namespace {

// What a reader waits for a record.
constexpr std::chrono::milliseconds timeForATimer{1500};

// Microseconds; neither 0 nor the greatest number is a time.
std::optional<std::int64_t> timeIn(const std::optional<std::uint64_t>& given) {
    const std::uint64_t time = given.value_or(0);
    if (time == 0 || time > std::uint64_t{std::numeric_limits<std::int64_t>::max()}) return {};
    return static_cast<std::int64_t>(time);
}

std::int64_t microsecondsOf(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return std::int64_t{now.tv_sec} * 1'000'000 + now.tv_nsec / 1000;
}

}  // namespace

// A timer that counts from the start of the system knows its time since then alone.
std::optional<std::int64_t> UnitTimers::nextStart(const Unit& timer) {
    if (const auto time = timeIn(bus_.timerNumber(timer, "NextElapseUSecRealtime"))) return time;
    const auto sinceStart = timeIn(bus_.timerNumber(timer, "NextElapseUSecMonotonic"));
    if (!sinceStart) return std::nullopt;
    return *sinceStart - microsecondsOf(CLOCK_MONOTONIC) + microsecondsOf(CLOCK_REALTIME);
}

Record UnitTimers::timerRecord(const Unit& timer) {
    const std::string description = oneLine(timer.description);
    Record record{
        {"Caption", description}, {"Description", description}, {"Name", oneLine(timer.id)}};
    if (const auto unit = bus_.timerText(timer, "Unit")) record["Command"] = oneLine(*unit);
    if (const auto start = nextStart(timer)) record["StartTime"] = cimTime(*start);
    if (const auto result = bus_.timerText(timer, "Result"))
        record["JobStatus"] = *result == "success" ? "Success" : "Failure";
    return record;
}

std::optional<Record> UnitTimers::next() {
    bus_.giveTime(timeForATimer);
    if (!timers_) timers_ = bus_.timers().value_or(std::vector<Unit>{});
    if (at_ == timers_->size() || !bus_.isConnected()) return std::nullopt;
    Record record = timerRecord(timers_->at(at_++));
    if (!bus_.hasTime()) at_ = timers_->size();
    return record;
}

}  // namespace velmora::linuxhost
