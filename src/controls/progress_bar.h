// A bar that shows how much of a range is reached.
#pragma once

#include <string>

#include "controls/control.h"

namespace velmora {

class ProgressBar : public Control {
  public:
    using Control::Control;

    int Min() const { return 0; }
    int Max() const { return 100; }
    int Value() const { return value_; }
    /// Error 380 outside Min to Max.
    void setValue(int value);

    std::string mainProperty() const override { return "Value"; }
    Properties properties() override;

  private:
    int value_ = 0;
};

}  // namespace velmora
