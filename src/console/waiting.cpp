#include "console/waiting.h"

#include <algorithm>
#include <cmath>

#include "base/scope_guard.h"
#include "base/text.h"

namespace velmora::console {

namespace {
constexpr std::int64_t untilLimit = 600 * 1000;
// Timers that are due within one tick of the system's clock from each other wake the program once.
constexpr std::int64_t clockTick = 16;
}  // namespace

void Waiting::forSeconds(double seconds) {
    const auto end = clock_.GetTickCount() + std::llround(seconds * 1000);
    run(end, [] { return false; });
}

void Waiting::forever() {
    run(std::nullopt, [] { return false; });
}

bool Waiting::until(const std::string& text) {
    return untilSeen({.text = text});
}

bool Waiting::untilAlert(const std::string& text) {
    return untilSeen({.text = text, .inAlert = true});
}

bool Waiting::untilSeen(Awaited awaited) {
    awaited_.push_back(&awaited);
    const ScopeGuard forget([this] { awaited_.pop_back(); });
    run(clock_.GetTickCount() + untilLimit, [&awaited] { return awaited.isSeen; });
    return awaited.isSeen;
}

void Waiting::seen(const std::string& text) {
    for (Awaited* each : awaited_) {
        if (!each->inAlert && contains(text, each->text)) each->isSeen = true;
    }
}

void Waiting::seenInAlert(const std::string& text) {
    seen(text);
    for (Awaited* each : awaited_) {
        if (each->inAlert && contains(text, each->text)) each->isSeen = true;
    }
}

void Waiting::run(std::optional<std::int64_t> end, const std::function<bool()>& done) {
    for (;;) {
        host_.fireTimers();
        if (done() || isEndRequested_()) return;
        std::int64_t rest = untilWork();
        if (end) {
            const std::int64_t left = *end - clock_.GetTickCount();
            if (left <= 0) return;
            rest = std::min(rest, left);
        }
        if (rest <= 0) continue;
        output_.flush();
        sleep_(rest);
    }
}

std::int64_t Waiting::untilWork() const {
    return std::min({timers_.untilNext(clockTick).value_or(nap_), later_.untilNext().value_or(nap_),
                     untilNextOther_().value_or(nap_), nap_});
}

}  // namespace velmora::console
