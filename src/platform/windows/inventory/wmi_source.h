// Where connections to the management records begin.
#pragma once

#include <windows.h>
// After the one above, which they need.
#include <oaidl.h>

#include <functional>
#include <string>

#include "platform/windows/system/com_reference.h"

namespace velmora::windows {

/// Called on the thread of the connection. Each gives no reference when there is none.
struct WmiSource {
    /// The services of a moniker.
    std::function<ComReference<IDispatch>(const std::wstring& moniker)> bind;
    /// The locator, which connects to a server.
    std::function<ComReference<IDispatch>()> locator;
};

/// The system's own.
WmiSource systemWmi();

}  // namespace velmora::windows
