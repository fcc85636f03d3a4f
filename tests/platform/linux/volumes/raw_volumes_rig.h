// Volumes on real devices, for one test.
#pragma once

#include <gtest/gtest.h>

#include <iostream>
#include <string>

#include "platform/linux/support/loop_disk.h"
#include "platform/linux/volumes/linux_raw_volumes.h"

namespace velmora::linuxhost {

/// Ends a test with a printed reason when there is one.
#define SKIP_FOR(reason)                                \
    if (const std::string why = reason; !why.empty()) { \
        std::cout << "skipped: " << why << '\n';        \
        GTEST_SKIP() << why;                            \
    }

class VolumesRig {
  public:
    explicit VolumesRig(std::chrono::milliseconds deadline = driveDeadline)
        : raw(volumes, deadline) {}

    /// "D:" of the drive on a folder, empty when there is none.
    std::string driveAt(const std::string& mountPoint) {
        for (const DriveRoot& root : volumes.roots()) {
            if (root.mountPoint == mountPoint) return root.drive;
        }
        return {};
    }
    VolumeHandle open(const std::string& drive) {
        return raw.CreateFileA(R"(\\.\)" + drive, raw_volume::genericRead,
                               raw_volume::shareReadAndWrite, raw_volume::openExisting);
    }
    /// What a read of so many bytes gives; "failed" when it fails.
    std::string read(VolumeHandle volume, std::uint32_t bytes) {
        std::string buffer(bytes, '#');
        std::uint32_t count = 0;
        return raw.ReadFile(volume, buffer, bytes, count) ? buffer.substr(0, count) : "failed";
    }

    Volumes volumes;
    LinuxRawVolumes raw;
};

}  // namespace velmora::linuxhost
