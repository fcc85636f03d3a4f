#include "platform/linux/inventory/systemd/unit_timers.h"

#include <chrono>
#include <limits>

#include "platform/linux/inventory/cim_time.h"
#include "platform/linux/inventory/record_text.h"

namespace velmora::linuxhost {

namespace {

// What a reader waits for a record.
constexpr std::chrono::milliseconds timeForATimer{1500};

// Microseconds since 1970; neither 0 nor the greatest number is a time.
std::string nextStart(std::uint64_t elapse) {
    if (elapse == 0 || elapse > std::uint64_t{std::numeric_limits<std::int64_t>::max()}) return {};
    return cimTime(static_cast<std::int64_t>(elapse));
}

}  // namespace

Record UnitTimers::timerRecord(const Unit& timer) {
    const std::string description = oneLine(timer.description);
    Record record{
        {"Caption", description}, {"Description", description}, {"Name", oneLine(timer.id)}};
    if (const auto unit = bus_.timerText(timer, "Unit")) record["Command"] = oneLine(*unit);
    const auto elapse = bus_.timerNumber(timer, "NextElapseUSecRealtime");
    if (const std::string start = nextStart(elapse.value_or(0)); !start.empty())
        record["StartTime"] = start;
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
