// What the process of an open device is asked and what it answers: one datagram each.
#pragma once

#include <limits.h>

#include <cstddef>
#include <cstdint>

namespace velmora::linuxhost {

enum class DeviceQuestion : std::uint32_t { open, read, probe };

struct DeviceRequest {
    DeviceQuestion question = DeviceQuestion::open;
    std::uint32_t bytes = 0;     ///< to read, at most DeviceReply::mostBytes
    std::uint64_t position = 0;  ///< to read from, in bytes
    char path[PATH_MAX] = {};    // to open; sent up to its NUL

    static constexpr std::size_t headSize() { return offsetof(DeviceRequest, path); }
};

/// What libblkid finds on a device, each closed by a NUL and empty when it isn't there.
struct FileSystemNames {
    char type[32] = {};     ///< "vfat", "ext4", ...
    char version[32] = {};  ///< "FAT32", "1.0", ...
    char label[256] = {};
};

struct DeviceReply {
    static constexpr std::uint32_t mostBytes = 16384;

    int error = 0;                 ///< 0 or the errno
    std::uint32_t bytes = 0;       ///< read; fewer than wanted at the end of the device
    FileSystemNames names;         ///< of a probe
    char content[mostBytes] = {};  ///< of a read
};

/// The child's whole life: opens one device for reading and answers until the
/// other end of the socket is closed. Nothing is ever written to the device.
void runDeviceProcess();

}  // namespace velmora::linuxhost
