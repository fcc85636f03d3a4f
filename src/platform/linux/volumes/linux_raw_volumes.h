// Drives below their file systems. A volume is the block device below a mount.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/file_system_object.h"
#include "platform/linux/drives/volumes.h"
#include "platform/linux/volumes/open_device.h"
#include "platform/raw_volumes.h"

namespace velmora::linuxhost {

class LinuxRawVolumes final : public RawVolumes {
  public:
    /// `volumes` must outlive it. The deadline is that of each question to a device.
    explicit LinuxRawVolumes(Volumes& volumes, std::chrono::milliseconds deadline = driveDeadline)
        : volumes_(volumes), deadline_(deadline) {}

    VolumeHandle CreateFileA(const std::string& path, std::uint32_t access, std::uint32_t share,
                             std::uint32_t disposition) override;
    bool ReadFile(VolumeHandle volume, std::string& buffer, std::uint32_t bytes,
                  std::uint32_t& read) override;
    std::uint32_t SetFilePointer(VolumeHandle volume, std::int32_t low, std::int32_t high,
                                 std::uint32_t method) override;
    bool CloseHandle(VolumeHandle volume) override;
    std::string failure() override { return failure_; }
    bool GetVolumeInformationA(const std::string& root, std::string& volumeName,
                               std::string& fileSystemName) override;
    std::uint32_t GetDriveTypeA(const std::string& root) override;
    bool GetDiskFreeSpaceA(const std::string& root, DiskFreeSpace& space) override;

    /// The processes of the open volumes.
    std::vector<pid_t> processes() const;

  private:
    struct OpenVolume {
        std::unique_ptr<OpenDevice> device;
        std::uint64_t position = 0;  // in bytes
    };
    VolumeHandle fail(const std::string& why);

    Volumes& volumes_;
    std::chrono::milliseconds deadline_;
    std::map<VolumeHandle, OpenVolume> open_;
    VolumeHandle last_ = 0;
    std::string failure_;
};

}  // namespace velmora::linuxhost
