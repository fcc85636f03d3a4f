#include "app/service_notice.h"

#include <algorithm>
#include <utility>

#include "base/runtime_error.h"
#include "platform/work_steps.h"

namespace velmora {

namespace {

constexpr std::int64_t betweenLooks = 1000;    // milliseconds
constexpr std::int64_t betweenSigns = 60'000;  // where no watchdog says how often
// From the moment at which it is sent, in microseconds.
constexpr const char* moreTime = "EXTEND_TIMEOUT_USEC=300000000";

// A line feed would end the value.
std::string inOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return text;
}

}  // namespace

ServiceNotice::ServiceNotice(ServiceManager manager, Clock& clock,
                             std::function<std::string()> status,
                             std::function<bool()> isEndRequested)
    : manager_(std::move(manager)),
      clock_(clock),
      status_(std::move(status)),
      isEndRequested_(std::move(isEndRequested)) {
    if (!manager_.send) return;
    lastLook_ = lastSign_ = clock_.GetTickCount();
    hearWorkSteps([this] { goOn(); });
}

ServiceNotice::~ServiceNotice() {
    hearWorkSteps({});
}

void ServiceNotice::ready() {
    if (!manager_.send) return;
    lastLook_ = lastSign_ = clock_.GetTickCount();
    toldStatus_ = inOneLine(status_());
    phase_ = Phase::watching;
    manager_.send("READY=1\nSTATUS=" + toldStatus_);
}

void ServiceNotice::stopping() {
    if (!manager_.send || phase_ == Phase::ending) return;
    phase_ = Phase::ending;
    manager_.send("STOPPING=1");
}

void ServiceNotice::goOn() {
    const std::int64_t now = clock_.GetTickCount();
    giveSign(now);
    if (phase_ != Phase::watching) return;
    hasWorked_ = now - lastLook_ < betweenLooks;
    if (hasWorked_) return;
    lastLook_ = now;
    if (isEndRequested_()) return stopping();
    tellStatus();
}

std::optional<std::int64_t> ServiceNotice::untilNext() const {
    if (!manager_.send) return std::nullopt;
    const std::int64_t now = clock_.GetTickCount();
    const std::int64_t sign = lastSign_ + timeBetweenSigns() - now;
    const std::int64_t look = hasWorked_ ? lastLook_ + betweenLooks - now : sign;
    return std::max<std::int64_t>(1, std::min(sign, look));
}

std::int64_t ServiceNotice::timeBetweenSigns() const {
    return manager_.watchdog > 0 ? manager_.watchdog / 2 : betweenSigns;
}

// The start and the end have a time limit of their own beside the watchdog's.
void ServiceNotice::giveSign(std::int64_t now) {
    if (now - lastSign_ < timeBetweenSigns()) return;
    lastSign_ = now;
    if (phase_ != Phase::watching) manager_.send(moreTime);
    if (manager_.watchdog > 0) manager_.send("WATCHDOG=1");
}

// In the middle of any work, which must not end by it: a field can't be read while it changes.
void ServiceNotice::tellStatus() {
    try {
        std::string status = inOneLine(status_());
        if (status == toldStatus_) return;
        toldStatus_ = std::move(status);
    } catch (const RuntimeError&) {
        return;
    }
    manager_.send("STATUS=" + toldStatus_);
}

}  // namespace velmora
