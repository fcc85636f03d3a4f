#include <blkid/blkid.h>

#include <cerrno>
#include <cstring>
#include <memory>

#include "platform/linux/volumes/file_system_probe.h"

namespace velmora::linuxhost {

namespace {

using Probe = std::unique_ptr<blkid_struct_probe, decltype(&blkid_free_probe)>;

template <std::size_t room>
void copyValue(blkid_probe probe, const char* name, char (&value)[room]) {
    const char* text = nullptr;
    if (blkid_probe_lookup_value(probe, name, &text, nullptr) != 0) return;
    std::strncpy(value, text, room - 1);
}

}  // namespace

int probeFileSystem(int device, FileSystemNames& names) {
    const Probe probe(blkid_new_probe(), blkid_free_probe);
    if (!probe) return ENOMEM;
    if (blkid_probe_set_device(probe.get(), device, 0, 0) != 0) return EIO;
    blkid_probe_enable_superblocks(probe.get(), 1);
    blkid_probe_set_superblocks_flags(
        probe.get(), BLKID_SUBLKS_TYPE | BLKID_SUBLKS_LABEL | BLKID_SUBLKS_VERSION);
    if (blkid_do_safeprobe(probe.get()) < 0) return EIO;
    copyValue(probe.get(), "TYPE", names.type);
    copyValue(probe.get(), "VERSION", names.version);
    copyValue(probe.get(), "LABEL", names.label);
    return 0;
}

}  // namespace velmora::linuxhost
