#include "controls/timer.h"

#include <exception>

#include "base/runtime_error.h"

namespace velmora {

Timer::Timer(Form& form, std::string name, int interval, bool enabled)
    : Control(form, std::move(name)), interval_(interval) {
    Control::setEnabled(enabled);
}

void Timer::setInterval(int interval) {
    if (interval < 0) throw RuntimeError(error::invalidPropertyValue);
    interval_ = interval;
    Restarted();
}

void Timer::setEnabled(bool enabled) {
    if (Enabled() == enabled) return;
    Control::setEnabled(enabled);
    Restarted();
}

void Timer::fire() {
    const bool wasOn = Enabled();
    try {
        Tick();
    } catch (const std::exception&) {
        setEnabled(Enabled() || wasOn);
        throw;
    }
}

Properties Timer::properties() {
    return {{"Enabled", [this] { return PropertyValue{Enabled()}; }, {}},
            {"Interval", [this] { return PropertyValue{std::int64_t{interval_}}; }, {}}};
}

}  // namespace velmora
