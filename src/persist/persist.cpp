#include "persist/persist.h"

namespace velmora {

Persist::Persist(Forms& forms, Platform& platform, Host& host)
    : settingsFile_(forms, platform, host),
      recovery_(platform),
      hintNote_(forms.form1, forms.hints),
      shellLinks_(platform.shell32, platform.wscriptShell),
      registry_(platform.advapi32, host),
      options_(forms.form1, forms.globals, platform.app, registry_) {}

}  // namespace velmora
