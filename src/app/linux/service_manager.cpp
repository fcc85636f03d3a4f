#include "app/service_manager.h"

#include <cstdlib>
#include <iostream>

#ifdef VELMORA_HAS_SYSTEMD
#include "platform/linux/system/systemd_calls.h"
#endif

namespace velmora {

#ifdef VELMORA_HAS_SYSTEMD

ServiceManager serviceManagerOfProcess() {
    ServiceManager manager;
    if (std::getenv("NOTIFY_SOCKET") == nullptr) return manager;
    if (!linuxhost::loadSystemd()) {
        std::cerr
            << "The service manager isn't told how the program stands: " VELMORA_SYSTEMD_LIBRARY
               " could not be loaded.\n";
        return manager;
    }
    // The variables stay: they are read again for each message. What this program starts is not the
    // process that the manager listens to.
    manager.send = [](const std::string& lines) { linuxhost::systemd().notify(0, lines.c_str()); };
    std::uint64_t microseconds = 0;
    if (linuxhost::systemd().watchdogEnabled(0, &microseconds) > 0)
        manager.watchdog = static_cast<std::int64_t>(microseconds / 1000);
    return manager;
}

#else

ServiceManager serviceManagerOfProcess() {
    return {};
}

#endif

}  // namespace velmora
