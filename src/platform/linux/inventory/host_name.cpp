#include "platform/linux/inventory/host_name.h"

#include <limits.h>
#include <unistd.h>

#include <array>

#include "platform/linux/inventory/record_text.h"

namespace velmora::linuxhost {

std::string hostName() {
    std::array<char, HOST_NAME_MAX + 1> name{};
    if (gethostname(name.data(), name.size() - 1) != 0 || name[0] == '\0') return "localhost";
    return oneLine(name.data());
}

}  // namespace velmora::linuxhost
