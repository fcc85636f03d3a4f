#include "platform/linux/volumes/linux_raw_volumes.h"

namespace velmora::linuxhost {

VolumeHandle LinuxRawVolumes::CreateFileA(const std::string& /*path*/, std::uint32_t /*access*/,
                                          std::uint32_t /*share*/, std::uint32_t /*disposition*/) {
    return raw_volume::invalid;
}
bool LinuxRawVolumes::ReadFile(VolumeHandle /*volume*/, std::string& /*buffer*/,
                               std::uint32_t /*bytes*/, std::uint32_t& /*read*/) {
    return false;
}
std::uint32_t LinuxRawVolumes::SetFilePointer(VolumeHandle /*volume*/, std::int32_t /*low*/,
                                              std::int32_t /*high*/, std::uint32_t /*method*/) {
    return 0xFFFFFFFF;
}
bool LinuxRawVolumes::CloseHandle(VolumeHandle /*volume*/) {
    return false;
}
std::string LinuxRawVolumes::failure() {
    return {};
}
bool LinuxRawVolumes::GetVolumeInformationA(const std::string& /*root*/, std::string& /*label*/,
                                            std::string& /*fileSystemName*/) {
    return false;
}
std::uint32_t LinuxRawVolumes::GetDriveTypeA(const std::string& /*root*/) {
    return 0;
}
bool LinuxRawVolumes::GetDiskFreeSpaceA(const std::string& /*root*/, DiskFreeSpace& /*space*/) {
    return false;
}

}  // namespace velmora::linuxhost
