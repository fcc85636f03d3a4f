#include "app/service_notice.h"

#include <algorithm>
#include <utility>

#include "base/runtime_error.h"
#include "platform/work_steps.h"

namespace velmora {

namespace {

constexpr std::int64_t betweenLooks = 1000;

// A line feed would end the value.
std::string inOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return text;
}

}  // namespace

ServiceNotice::ServiceNotice(ServiceManager manager, Clock& clock,
                             std::function<std::string()> status)
    : manager_(std::move(manager)), clock_(clock), status_(std::move(status)) {}

ServiceNotice::~ServiceNotice() {
    hearWorkSteps({});
}

void ServiceNotice::ready() {
    if (!manager_.send) return;
    lastLook_ = lastSign_ = clock_.GetTickCount();
    toldStatus_ = inOneLine(status_());
    manager_.send("READY=1\nSTATUS=" + toldStatus_);
    hearWorkSteps([this] { goOn(); });
}

void ServiceNotice::stopping() {
    if (manager_.send) manager_.send("STOPPING=1");
}

void ServiceNotice::goOn() {
    const std::int64_t now = clock_.GetTickCount();
    if (manager_.watchdog > 0 && now - lastSign_ >= manager_.watchdog / 2) {
        lastSign_ = now;
        manager_.send("WATCHDOG=1");
    }
    if (now - lastLook_ < betweenLooks) return;
    lastLook_ = now;
    tellStatus();
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
