#include "console/waiting.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"

namespace velmora::console {

namespace {
constexpr std::int64_t untilLimit = 600 * 1000;
// The longest single sleep while no timer is due.
constexpr std::int64_t nap = 1000;
}  // namespace

void Waiting::forSeconds(double seconds) {
    const auto end = clock_.GetTickCount() + std::llround(seconds * 1000);
    run(end, [] { return false; });
}

void Waiting::forever() {
    for (;;) run(std::nullopt, [] { return false; });
}

void Waiting::untilTrue(const std::function<bool()>& isTrue) {
    run(std::nullopt, isTrue);
}

bool Waiting::until(const std::string& text) {
    return untilSeen(awaited_, text);
}

bool Waiting::untilAlert(const std::string& text) {
    return untilSeen(awaitedAlert_, text);
}

bool Waiting::untilSeen(std::optional<std::string>& awaited, const std::string& text) {
    awaited = text;
    run(clock_.GetTickCount() + untilLimit, [&awaited] { return !awaited; });
    const bool found = !awaited;
    awaited.reset();
    return found;
}

void Waiting::seen(const std::string& text) {
    if (awaited_ && contains(text, *awaited_)) awaited_.reset();
}

void Waiting::seenInAlert(const std::string& text) {
    seen(text);
    if (awaitedAlert_ && contains(text, *awaitedAlert_)) awaitedAlert_.reset();
}

void Waiting::run(std::optional<std::int64_t> end, const std::function<bool()>& done) {
    for (;;) {
        host_.fireTimers();
        if (done()) return;
        std::int64_t rest = timers_.untilNext().value_or(nap);
        rest = std::min(rest, later_.untilNext().value_or(nap));
        if (end) {
            const std::int64_t left = *end - clock_.GetTickCount();
            if (left <= 0) return;
            rest = std::min(rest, left);
        }
        if (rest <= 0) continue;
        output_.flush();
        sleep_(std::min(rest, nap));
    }
}

}  // namespace velmora::console
