// The global setting of the minimum space: its text, unit, slider and spinner, and the switch to a
// value for each row.
#pragma once

#include <string>

#include "base/regional.h"
#include "forms/form1.h"
#include "platform/host.h"

namespace velmora {

class MinimumSpace {
  public:
    /// Connects the handlers to the forms.
    MinimumSpace(Form1& form1, const Regional& regional, Host& host);
    MinimumSpace(const MinimumSpace&) = delete;
    MinimumSpace& operator=(const MinimumSpace&) = delete;

    /// 0 for KB, 1 for percent.
    void OpDriv_Click(int index);

  private:
    void chkDrive_Click();
    void txtSpace_Change();
    void echoInGreaterUnits();
    void step(double by);

    Form1& form1_;
    const Regional& regional_;
    Host& host_;
};

}  // namespace velmora
