#include "platform/linux/paths/path_mapping.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/text.h"
#include "platform/file_system_object.h"
#include "platform/linux/paths/path_names.h"

namespace velmora::linuxhost {

namespace {

constexpr const char* separators = "\\/";

bool isSeparator(char c) {
    return c == '\\' || c == '/';
}

std::string joined(const std::string& folder, const std::string& names) {
    if (names.empty()) return folder;
    return folder == "/" ? folder + names : folder + '/' + names;
}

// The one with the longest mount point; null when none holds the path.
const DriveRoot* rootHolding(const std::string& hostPath, const std::vector<DriveRoot>& roots) {
    const DriveRoot* longest = nullptr;
    for (const DriveRoot& root : roots) {
        if (!isWithin(hostPath, root.mountPoint)) continue;
        if (!longest || root.mountPoint.size() > longest->mountPoint.size()) longest = &root;
    }
    return longest;
}

// The one of a drive, written in whichever case; null when there is none.
const DriveRoot* rootOf(const std::string& drive, const std::vector<DriveRoot>& roots) {
    const std::string key = lowerCase(drive);
    const auto root = std::find_if(roots.begin(), roots.end(), [&key](const DriveRoot& each) {
        return lowerCase(each.drive) == key;
    });
    return root == roots.end() ? nullptr : &*root;
}

}  // namespace

std::string workingFolder() {
    std::error_code failure;
    const auto folder = std::filesystem::current_path(failure);
    return failure ? "/" : folder.string();
}

std::string drivePathOf(const std::string& hostPath, const std::vector<DriveRoot>& roots) {
    const std::string path = '/' + normalized(hostPath, "/", '/');
    const DriveRoot* root = rootHolding(path, roots);
    if (!root) return {};
    const auto skipped = root->mountPoint == "/" ? 1 : root->mountPoint.size() + 1;
    const std::string names = path.size() > skipped ? path.substr(skipped) : std::string{};
    const bool isShare = root->drive.size() > 2;
    if (names.empty() && isShare) return root->drive;
    return root->drive + '\\' + toDriveNames(names);
}

std::string mountPointOf(const std::string& hostPath, const std::vector<DriveRoot>& roots) {
    const DriveRoot* root = rootHolding(hostPath, roots);
    return root ? root->mountPoint : std::string{};
}

MappedPath mapDrivePath(const std::string& drivePath, const std::vector<DriveRoot>& roots) {
    if (drivePath.empty() || drivePath.find('\0') != std::string::npos) return {};
    const std::string drive = driveNameOf(drivePath);
    if (!drive.empty()) {
        const std::string names = normalized(drivePath.substr(drive.size()), separators, '\\');
        const DriveRoot* root = rootOf(drive, roots);
        const bool isShareRoot = names.empty() && drive.size() > 2;
        return {.onDrive = isShareRoot ? drive : drive + '\\' + names,
                .onHost = root ? joined(root->mountPoint, toHostNames(names)) : std::string{}};
    }
    if (isSeparator(drivePath[0])) {
        const std::string names = normalized(drivePath, separators, '\\');
        const std::string hostPath = joined("/", toHostNames(names));
        return {.onDrive = drivePathOf(hostPath, roots), .onHost = hostPath};
    }
    const std::string folder = drivePathOf(workingFolder(), roots);
    return folder.empty() ? MappedPath{} : mapDrivePath(folder + '\\' + drivePath, roots);
}

std::string hostPathOf(const std::string& drivePath, const std::vector<DriveRoot>& roots) {
    return mapDrivePath(drivePath, roots).onHost;
}

}  // namespace velmora::linuxhost
