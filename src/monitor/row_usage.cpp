#include "monitor/row_usage.h"

#include <algorithm>

#include "base/convert.h"

namespace velmora {

namespace {

constexpr double nearTrigger = 1.25;

RowState stateOf(const ConstWatchRow& row, const RowUsage& usage) {
    if (!row.watched()) return RowState::notWatched;
    if (!row.isAvailable()) return RowState::unavailable;
    if (row.lastChecked().empty() || !usage.freeKB) return RowState::notChecked;
    // What the last check has found holds until the next one.
    if (row.isInAlert()) return RowState::shortOfSpace;
    if (usage.triggerKB.value_or(0) <= 0) return RowState::noMinimum;
    if (*usage.freeKB < *usage.triggerKB) return RowState::shortOfSpace;
    return *usage.freeKB < *usage.triggerKB * nearTrigger ? RowState::nearShortage : RowState::fine;
}

}  // namespace

std::optional<double> RowUsage::usedShare() const {
    if (!freeKB || !totalKB) return std::nullopt;
    return std::clamp(1 - *freeKB / *totalKB, 0.0, 1.0);
}

std::optional<double> RowUsage::shareAtTrigger() const {
    if (!totalKB || triggerKB.value_or(0) <= 0) return std::nullopt;
    return std::clamp(1 - *triggerKB / *totalKB, 0.0, 1.0);
}

std::optional<double> triggerKB(const ConstWatchRow& row, const Form1& form1,
                                const Regional& regional) {
    const auto trigger =
        readNumber(form1.chkDrive.ticked() ? row.trigger() : form1.txtSpace.Text(), regional);
    if (!trigger || !form1.OpDriv[1].Value()) return trigger;
    return *trigger / 100 * row.totalKBOrZero(regional);
}

RowUsage usageOf(const ConstWatchRow& row, const Form1& form1, const Regional& regional) {
    RowUsage usage;
    if (row.isMeasured()) {
        usage.freeKB = readKilobytes(row.freeSpace(), regional);
        const auto total = readKilobytes(row.totalSize(), regional);
        if (total && *total > 0) usage.totalKB = total;
    }
    usage.triggerKB = triggerKB(row, form1, regional);
    usage.state = stateOf(row, usage);
    return usage;
}

const char* wordsFor(RowState state) {
    switch (state) {
        case RowState::notWatched:
            return "not watched";
        case RowState::notChecked:
            return "not checked yet";
        case RowState::unavailable:
            return "not available";
        case RowState::noMinimum:
            return "without a minimum";
        case RowState::shortOfSpace:
            return "short of space";
        case RowState::nearShortage:
            return "near its minimum";
        default:
            return "ok";
    }
}

}  // namespace velmora
