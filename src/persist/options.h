// The handlers of the settings page: starting with the system, showing the log, checking for
// updates.
#pragma once

#include "forms/forms.h"
#include "persist/registry.h"
#include "platform/platform.h"

namespace velmora {

class Options {
  public:
    /// Connects the handlers to the forms.
    Options(Form1& form1, Globals& globals, const Application& app, Registry& registry);
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

  private:
    void chkStartUp_Click();
    void chkLog_Click();

    Form1& form1_;
    Globals& globals_;
    const Application& app_;
    Registry& registry_;
};

}  // namespace velmora
