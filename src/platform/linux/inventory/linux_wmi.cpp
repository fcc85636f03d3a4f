#include "platform/linux/inventory/linux_wmi.h"

#include "base/runtime_error.h"

namespace velmora::linuxhost {

std::unique_ptr<WmiServices> LinuxWmi::GetObject(const std::string& /*moniker*/) {
    throw RuntimeError(error::automation);
}

std::unique_ptr<WmiServices> LinuxWmi::ConnectServer(const std::string& /*server*/,
                                                     const std::string& /*nameSpace*/) {
    throw RuntimeError(error::automation);
}

}  // namespace velmora::linuxhost
