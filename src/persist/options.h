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
    Options(Forms& forms, Platform& platform, Registry& registry);
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

  private:
    void chkStartUp_Click();
    void chkLog_Click();

    Forms& forms_;
    Platform& platform_;
    Registry& registry_;
};

}  // namespace velmora
