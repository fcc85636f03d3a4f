// The service manager that has started the program, where one has: systemd on Linux.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace velmora {

struct ServiceManager {
    /// Sends lines "NAME=VALUE", with a line feed between two. Empty where nobody listens.
    std::function<void(const std::string& lines)> send = {};
    /// In milliseconds: without a sign of life for so long the program is ended and started again.
    /// 0 where no sign is wanted.
    std::int64_t watchdog = 0;
};

/// The one that the environment of the process names.
ServiceManager serviceManagerOfProcess();

}  // namespace velmora
