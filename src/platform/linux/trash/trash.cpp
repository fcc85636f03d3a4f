#include "platform/linux/trash/trash.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <set>
#include <string_view>
#include <system_error>

#include "base/text.h"
#include "platform/file_system_object.h"
#include "platform/linux/paths/user_folders.h"
#include "platform/linux/removal/tree_removal.h"
#include "platform/linux/system/system_errors.h"

namespace velmora::linuxhost {

namespace {

// The path without links on the way; as it is when it can't be followed.
std::string resolved(const std::string& path) {
    std::error_code failure;
    const auto resolved = std::filesystem::weakly_canonical(path, failure);
    return failure ? path : resolved.string();
}

int firstOf(int failure, int next) {
    return failure != 0 ? failure : next;
}

bool isThere(const OpenFolder& folder, const std::string& name) {
    struct stat status {};
    return fstatat(folder.fd(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

// Whether the note's file has stayed.
bool isNeeded(const std::string& note, const OpenFolder& files) {
    return files.isOpen() && note.ends_with(noteEnding) &&
           isThere(files, note.substr(0, note.size() - noteEnding.size()));
}

// A folder that isn't there has nothing in it.
int failureToOpen(const OpenFolder& folder) {
    return folder.failure() == ENOENT ? 0 : folder.failure();
}

// A link or a file instead of the folder is no trash.
int failureToOpenTrash(const OpenFolder& trash) {
    const int failure = trash.failure();
    return failure == ENOTDIR || failure == ELOOP ? 0 : failureToOpen(trash);
}

int emptyFolder(const OpenFolder& trash) {
    if (!trash.isOpen()) return failureToOpenTrash(trash);
    const OpenFolder files(trash, "files");
    int failure = failureToOpen(files);
    if (files.isOpen()) failure = removeEntries(files, everyEntry);
    const OpenFolder info(trash, "info");
    failure = firstOf(failure, failureToOpen(info));
    const auto isOrphan = [&](const std::string& note) { return !isNeeded(note, files); };
    if (info.isOpen()) failure = firstOf(failure, removeEntries(info, isOrphan));
    // Only a cache of sizes, which is made again when it is missing.
    unlinkat(trash.fd(), "directorysizes", 0);
    return failure;
}

// The two places in the top folder of a filesystem.
int emptyTopFolders(const std::string& top) {
    const std::string user = std::to_string(getuid());
    int failure = 0;
    const OpenFolder shared(top + "/.Trash");
    if (shared.isOpen() && isSticky(shared)) failure = emptyFolder(OpenFolder(shared, user));
    return firstOf(failure, emptyFolder(OpenFolder(top + "/.Trash-" + user)));
}

}  // namespace

std::string homeTrash() {
    return resolved(dataFolder()) + "/Trash";
}

bool isSticky(const OpenFolder& folder) {
    struct stat status {};
    return fstat(folder.fd(), &status) == 0 && (status.st_mode & S_ISVTX) != 0;
}

std::vector<DriveRoot> drivesToEmpty(const std::string& root, const std::vector<DriveRoot>& roots) {
    const std::string drive = lowerCase(driveNameOf(root));
    std::vector<DriveRoot> chosen;
    std::set<std::string> mountPoints;
    for (const DriveRoot& each : roots) {
        const bool isMeant = root.empty() || lowerCase(each.drive) == drive;
        if (isMeant && mountPoints.insert(each.mountPoint).second) chosen.push_back(each);
    }
    return chosen;
}

std::int32_t emptyTrash(const std::vector<DriveRoot>& drives, const std::vector<DriveRoot>& roots) {
    const std::string home = homeTrash();
    int failure = 0;
    const std::string homeMount = mountPointOf(home, roots);
    for (const DriveRoot& drive : drives) {
        if (homeMount == drive.mountPoint)
            failure = firstOf(failure, emptyFolder(OpenFolder(home)));
        failure =
            firstOf(failure, emptyTopFolders(drive.mountPoint == "/" ? "" : drive.mountPoint));
    }
    const std::uint32_t result = codeWithoutLoops(failure);
    const bool isOwnCode = result == code::success || result == code::accessDenied;
    return static_cast<std::int32_t>(isOwnCode ? result : code::generalFailure);
}

}  // namespace velmora::linuxhost
