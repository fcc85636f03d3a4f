// The ports of the alerts, which write down what they were asked.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "alerts/ports.h"
#include "base/runtime_error.h"

namespace velmora::fake {

/// Notes "drop" and "restore" in the steps that it was given.
class RecordedStayOnTop final : public StayOnTop {
  public:
    explicit RecordedStayOnTop(std::vector<std::string>& steps) : steps_(steps) {}
    void drop() override {
        steps_.push_back("drop");
        if (failsToDrop) throw RuntimeError(error::invalidCall);
    }
    void restore() override { steps_.push_back("restore"); }

    bool failsToDrop = false;

  private:
    std::vector<std::string>& steps_;
};

/// Notes the form and the level.
class RecordedTranslucency final : public Translucency {
  public:
    bool SetTranslucency(const Form& form, int percent) override {
        levels.emplace_back(form.Name(), percent);
        return true;
    }

    std::vector<std::pair<std::string, int>> levels;
};

}  // namespace velmora::fake
