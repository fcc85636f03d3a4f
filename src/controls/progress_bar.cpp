#include "controls/progress_bar.h"

#include "base/runtime_error.h"

namespace velmora {

void ProgressBar::setValue(int value) {
    if (value < Min() || value > Max()) throw RuntimeError(error::invalidPropertyValue);
    if (value_ == value) return;
    value_ = value;
    Changed();
}

Properties ProgressBar::properties() {
    Properties all = Control::properties();
    all.push_back({"Value", [this] { return PropertyValue{std::int64_t{value_}}; }, {}});
    return all;
}

}  // namespace velmora
