#include "platform/linux/volumes/block_device.h"

#include <grp.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace velmora::linuxhost {

namespace {

std::string deviceNumber(dev_t device) {
    return std::to_string(major(device)) + ':' + std::to_string(minor(device));
}

std::optional<dev_t> blockDeviceAt(const std::string& path) {
    struct stat status {};
    if (!path.starts_with("/dev/") || stat(path.c_str(), &status) != 0) return std::nullopt;
    if (!S_ISBLK(status.st_mode)) return std::nullopt;
    return status.st_rdev;
}

// "DEVNAME=sda1" in the folder of a device.
std::string nameByNumber(const std::string& number) {
    constexpr std::string_view key = "DEVNAME=";
    std::ifstream events("/sys/dev/block/" + number + "/uevent");
    for (std::string line; std::getline(events, line);) {
        if (line.starts_with(key)) return "/dev/" + line.substr(key.size());
    }
    return {};
}

// The folder of the whole disk: a partition's lies in it.
std::string diskFolder(const std::string& device) {
    const auto number = blockDeviceAt(device);
    if (!number) return {};
    const std::string folder = "/sys/dev/block/" + deviceNumber(*number);
    std::error_code ignored;
    const bool isPartition = std::filesystem::exists(folder + "/partition", ignored);
    return isPartition ? folder + "/.." : folder;
}

std::uint32_t numberIn(const std::string& file) {
    std::uint32_t number = 0;
    std::ifstream(file) >> number;
    return number;
}

// Only the file of groups is read: the group of a device is the system's own, and a directory on
// the network could keep the caller waiting.
std::string groupName(gid_t group) {
    std::string name;
    FILE* groups = std::fopen("/etc/group", "re");
    if (groups == nullptr) return name;
    while (const struct group* entry = fgetgrent(groups)) {
        if (entry->gr_gid == group) {
            name = entry->gr_name;
            break;
        }
    }
    std::fclose(groups);
    return name;
}

}  // namespace

std::optional<std::string> blockDeviceOf(const Mount& mount) {
    const bool hasNumber = !mount.device.empty() && !mount.device.starts_with("0:");
    const auto bySource = blockDeviceAt(mount.source);
    // Another device may have the source's name by now.
    if (bySource && (!hasNumber || deviceNumber(*bySource) == mount.device)) return mount.source;
    if (!hasNumber) return std::nullopt;
    std::string path = nameByNumber(mount.device);
    if (!blockDeviceAt(path)) return std::nullopt;
    return path;
}

bool isRemovable(const std::string& device) {
    return numberIn(diskFolder(device) + "/removable") == 1;
}

std::uint32_t logicalSectorSize(const std::string& device) {
    constexpr std::uint32_t usual = 512;
    const std::uint32_t size = numberIn(diskFolder(device) + "/queue/logical_block_size");
    return size == 0 ? usual : size;
}

std::string whoMayRead(const std::string& device) {
    struct stat status {};
    if (stat(device.c_str(), &status) == 0 && (status.st_mode & S_IRGRP) != 0) {
        const std::string group = groupName(status.st_gid);
        if (!group.empty()) return "members of the group " + group + " have it";
    }
    return "only the administrator has it";
}

}  // namespace velmora::linuxhost
