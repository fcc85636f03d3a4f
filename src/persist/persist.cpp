#include "persist/persist.h"

namespace velmora {

Persist::Persist(Forms& forms, Platform& platform, Host& host)
    : settingsFile_(forms, platform, host),
      shellLinks_(platform),
      registry_(platform.advapi32, host),
      options_(forms, platform, registry_) {}

}  // namespace velmora
