#include "platform/windows/volumes/windows_raw_volumes.h"

namespace velmora::windows {

VolumeHandle WindowsRawVolumes::CreateFileA(const std::string& /*path*/, std::uint32_t /*access*/,
                                            std::uint32_t /*share*/,
                                            std::uint32_t /*disposition*/) {
    return raw_volume::invalid;
}
bool WindowsRawVolumes::ReadFile(VolumeHandle /*volume*/, std::string& /*buffer*/,
                                 std::uint32_t /*bytes*/, std::uint32_t& /*read*/) {
    return false;
}
std::uint32_t WindowsRawVolumes::SetFilePointer(VolumeHandle /*volume*/, std::int32_t /*low*/,
                                                std::int32_t /*high*/, std::uint32_t /*method*/) {
    return 0xFFFFFFFF;
}
bool WindowsRawVolumes::CloseHandle(VolumeHandle /*volume*/) {
    return false;
}
std::string WindowsRawVolumes::failure() {
    return {};
}
bool WindowsRawVolumes::GetVolumeInformationA(const std::string& /*root*/, std::string& /*label*/,
                                              std::string& /*fileSystemName*/) {
    return false;
}
std::uint32_t WindowsRawVolumes::GetDriveTypeA(const std::string& /*root*/) {
    return 0;
}
bool WindowsRawVolumes::GetDiskFreeSpaceA(const std::string& /*root*/, DiskFreeSpace& /*space*/) {
    return false;
}

}  // namespace velmora::windows
