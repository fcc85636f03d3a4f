// Settings of the wizard that go to the main window by its rules: the minimum space, the actions on
// a shortage, and the interval between checks.
#pragma once

#include <string>
#include <vector>

#include "alerts/actions/action_list_rules.h"
#include "base/regional.h"
#include "forms/form1.h"
#include "forms/frm_wizard.h"
#include "monitor/minimum_space.h"
#include "platform/host.h"
#include "shell/wizard/mirror.h"

namespace velmora {

/// Number and unit of the minimum space, and the switch to a value for each row.
class SpaceMirror final : public Mirror {
  public:
    SpaceMirror(FrmWizard& mine, Form1& theirs, MinimumSpace& rules)
        : mine_(mine), theirs_(theirs), rules_(rules) {}

    void read() override;
    bool touched() const override;
    void write() override;

  private:
    struct Value {
        bool percent = false;
        std::string space;
        int individual = 0;

        bool operator==(const Value&) const = default;
    };
    Value value() const;

    FrmWizard& mine_;
    Form1& theirs_;
    MinimumSpace& rules_;
    Value asRead_;
};

/// The ticks of the actions.
class ActionsMirror final : public Mirror {
  public:
    ActionsMirror(ListBox& mine, ListBox& theirs, ActionListRules& rules)
        : mine_(mine), theirs_(theirs), rules_(rules) {}

    void read() override;
    bool touched() const override;
    void write() override;

  private:
    std::vector<bool> ticks() const;

    ListBox& mine_;
    ListBox& theirs_;
    ActionListRules& rules_;
    std::vector<bool> asRead_;
};

/// The interval between checks, in seconds. It stands for the picker, which every tick goes by.
class IntervalMirror final : public Mirror {
  public:
    IntervalMirror(TextBox& mine, Form1& theirs, const Regional& regional, Host& host)
        : mine_(mine), theirs_(theirs), regional_(regional), host_(host) {}

    void read() override;
    bool touched() const override { return mine_.Text() != asRead_; }
    /// Refuses what is no whole number from 1 to 86399, with a box.
    void write() override;

  private:
    TextBox& mine_;
    Form1& theirs_;
    const Regional& regional_;
    Host& host_;
    std::string asRead_;
};

}  // namespace velmora
