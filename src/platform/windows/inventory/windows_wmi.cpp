#include "platform/windows/inventory/windows_wmi.h"

#include "base/runtime_error.h"

namespace velmora::windows {

std::unique_ptr<WmiServices> WindowsWmi::GetObject(const std::string& /*moniker*/) {
    throw RuntimeError(error::automation);
}

std::unique_ptr<WmiServices> WindowsWmi::ConnectServer(const std::string& /*server*/,
                                                       const std::string& /*nameSpace*/) {
    throw RuntimeError(error::automation);
}

}  // namespace velmora::windows
