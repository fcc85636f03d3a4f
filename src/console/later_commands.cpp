#include "console/later_commands.h"

#include <algorithm>

namespace velmora::console {

void LaterCommands::add(std::int64_t milliseconds, std::string line) {
    lines_.emplace(clock_.GetTickCount() + milliseconds, std::move(line));
}

bool LaterCommands::runDue() {
    if (lines_.empty()) return false;
    const std::int64_t now = clock_.GetTickCount();
    bool any = false;
    while (run_ && !lines_.empty() && lines_.begin()->first <= now) {
        // Taken out first: the command may yield.
        const auto next = lines_.extract(lines_.begin());
        any = true;
        run_(next.mapped());
    }
    return any;
}

void LaterCommands::addAtYield(std::int64_t count, std::string line) {
    atYields_.emplace(yields_ + count, std::move(line));
}

bool LaterCommands::yielded() {
    ++yields_;
    bool any = false;
    while (run_ && !atYields_.empty() && atYields_.begin()->first <= yields_) {
        const auto next = atYields_.extract(atYields_.begin());
        any = true;
        run_(next.mapped());
    }
    return any;
}

std::optional<std::int64_t> LaterCommands::untilNext() const {
    if (lines_.empty()) return std::nullopt;
    return std::max<std::int64_t>(0, lines_.begin()->first - clock_.GetTickCount());
}

}  // namespace velmora::console
