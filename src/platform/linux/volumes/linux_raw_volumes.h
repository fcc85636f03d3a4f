// Drives below their file systems.
#pragma once

#include "platform/raw_volumes.h"

namespace velmora::linuxhost {

class LinuxRawVolumes final : public RawVolumes {
  public:
    VolumeHandle CreateFileA(const std::string& path, std::uint32_t access, std::uint32_t share,
                             std::uint32_t disposition) override;
    bool ReadFile(VolumeHandle volume, std::string& buffer, std::uint32_t bytes,
                  std::uint32_t& read) override;
    std::uint32_t SetFilePointer(VolumeHandle volume, std::int32_t low, std::int32_t high,
                                 std::uint32_t method) override;
    bool CloseHandle(VolumeHandle volume) override;
    std::string failure() override;
    bool GetVolumeInformationA(const std::string& root, std::string& volumeName,
                               std::string& fileSystemName) override;
    std::uint32_t GetDriveTypeA(const std::string& root) override;
    bool GetDiskFreeSpaceA(const std::string& root, DiskFreeSpace& space) override;
};

}  // namespace velmora::linuxhost
