#include <cerrno>

#include "platform/linux/volumes/file_system_probe.h"

namespace velmora::linuxhost {

int probeFileSystem(int /*device*/, FileSystemNames& /*names*/) {
    return ENOSYS;
}

}  // namespace velmora::linuxhost
