#include "app/service_manager.h"

#ifdef VELMORA_HAS_SYSTEMD
#include <systemd/sd-daemon.h>
#endif

#include <cstdlib>

namespace velmora {

#ifdef VELMORA_HAS_SYSTEMD

ServiceManager serviceManagerOfProcess() {
    ServiceManager manager;
    if (std::getenv("NOTIFY_SOCKET") == nullptr) return manager;
    // The variables stay: they are read again for each message. What this program starts is not the
    // process that the manager listens to.
    manager.send = [](const std::string& lines) { sd_notify(0, lines.c_str()); };
    std::uint64_t microseconds = 0;
    if (sd_watchdog_enabled(0, &microseconds) > 0)
        manager.watchdog = static_cast<std::int64_t>(microseconds / 1000);
    return manager;
}

#else

ServiceManager serviceManagerOfProcess() {
    return {};
}

#endif

}  // namespace velmora
