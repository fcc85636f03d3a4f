#include "platform/linux/volumes/linux_raw_volumes.h"

#include <algorithm>
#include <string_view>

#include "base/text.h"
#include "platform/linux/volumes/block_device.h"
#include "platform/linux/volumes/cluster_counts.h"
#include "platform/linux/volumes/drive_kind.h"
#include "platform/linux/volumes/volume_names.h"

namespace velmora::linuxhost {

namespace {

constexpr std::uint32_t noPosition = 0xFFFFFFFF;
constexpr std::string_view devicePrefix = R"(\\.\)";

// "C:" of "c:" and "c:\"; empty for any other text.
std::string driveOfRoot(std::string_view root) {
    if (root.size() == 3 && root[2] == '\\') root.remove_suffix(1);
    if (root.size() != 2 || root[1] != ':') return {};
    return asciiUpperCase(root);
}

// Only a letter and a colon: with a back-slash the name would be that of a folder.
std::string driveOfDevicePath(std::string_view path) {
    if (!path.starts_with(devicePrefix) || path.ends_with('\\')) return {};
    return driveOfRoot(path.substr(devicePrefix.size()));
}

}  // namespace

VolumeHandle LinuxRawVolumes::fail(const std::string& why) {
    failure_ = why;
    return raw_volume::invalid;
}

VolumeHandle LinuxRawVolumes::CreateFileA(const std::string& path, std::uint32_t access,
                                          std::uint32_t /*share*/, std::uint32_t /*disposition*/) {
    if (access != raw_volume::genericRead) return fail("a volume is opened for reading only");
    const std::string drive = driveOfDevicePath(path);
    const auto mount = volumes_.mountOf(drive);
    if (!mount) return fail("no drive " + (drive.empty() ? path : drive));
    const auto source = blockDeviceOf(*mount);
    if (!source) return fail(drive + " has no block device (" + mount->type + ")");
    auto device = std::make_unique<OpenDevice>(*source, deadline_);
    if (!device->open()) return fail(device->failure());
    failure_.clear();
    open_[++last_] = {.device = std::move(device)};
    return last_;
}

bool LinuxRawVolumes::ReadFile(VolumeHandle volume, std::string& buffer, std::uint32_t bytes,
                               std::uint32_t& read) {
    const auto open = open_.find(volume);
    if (open == open_.end()) {
        fail("the volume isn't open");
        return false;
    }
    const auto wanted = static_cast<std::uint32_t>(std::min<std::size_t>(bytes, buffer.size()));
    const auto content = open->second.device->read(open->second.position, wanted);
    failure_ = open->second.device->failure();
    if (!content) return false;
    buffer.replace(0, content->size(), *content);
    open->second.position += content->size();
    read = static_cast<std::uint32_t>(content->size());
    return true;
}

std::uint32_t LinuxRawVolumes::SetFilePointer(VolumeHandle volume, std::int32_t low,
                                              std::int32_t high, std::uint32_t method) {
    const auto open = open_.find(volume);
    if (open == open_.end() || method != raw_volume::fromStart || high < 0) return noPosition;
    const auto lowHalf = static_cast<std::uint32_t>(low);
    open->second.position = std::uint64_t{static_cast<std::uint32_t>(high)} << 32 | lowHalf;
    return lowHalf;
}

bool LinuxRawVolumes::CloseHandle(VolumeHandle volume) {
    return open_.erase(volume) > 0;
}

bool LinuxRawVolumes::GetVolumeInformationA(const std::string& root, std::string& volumeName,
                                            std::string& fileSystemName) {
    const auto mount = volumes_.mountOf(driveOfRoot(root));
    if (!mount) return false;
    std::string label;
    std::string name;
    if (const auto source = blockDeviceOf(*mount)) {
        OpenDevice device(*source, deadline_);
        if (const auto names = device.openAndProbe()) {
            label = names->label;
            name = fileSystemNameOf(*names);
        }
    }
    if (name.empty()) name = fileSystemNameOf(mount->type);
    if (name.empty() || name.size() >= fileSystemName.size()) return false;
    putInFront(fileSystemName, name);
    putInFront(volumeName, label);
    return true;
}

std::uint32_t LinuxRawVolumes::GetDriveTypeA(const std::string& root) {
    const auto mount = volumes_.mountOf(driveOfRoot(root));
    return mount ? driveKindOf(*mount) : drive_kind::missing;
}

bool LinuxRawVolumes::GetDiskFreeSpaceA(const std::string& root, DiskFreeSpace& space) {
    const std::string drive = driveOfRoot(root);
    const auto mount = volumes_.mountOf(drive);
    if (!mount) return false;
    const auto reading = volumes_.measure(drive);
    if (!reading || reading->fragmentSize == 0) return false;
    const auto device = blockDeviceOf(*mount);
    space = clustersOf(*reading, device ? logicalSectorSize(*device) : 0);
    return true;
}

std::vector<pid_t> LinuxRawVolumes::processes() const {
    std::vector<pid_t> processes;
    for (const auto& [handle, volume] : open_) processes.push_back(volume.device->process());
    return processes;
}

}  // namespace velmora::linuxhost
