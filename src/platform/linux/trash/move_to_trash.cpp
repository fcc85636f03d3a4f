#include "platform/linux/trash/move_to_trash.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <random>

#include "base/text.h"
#include "platform/linux/entries/open_folder.h"
#include "platform/linux/entries/rename_entry.h"
#include "platform/linux/entries/replace_file.h"
#include "platform/linux/paths/file_uri.h"
#include "platform/linux/system/linux_clock.h"
#include "platform/linux/system/unique_fd.h"
#include "platform/linux/system/write_all.h"
#include "platform/linux/trash/trash.h"

namespace velmora::linuxhost {

namespace {

constexpr std::size_t longestName = 255;

// What is moved, and the path that its note names.
struct Entry {
    const OpenedParent& parent;
    std::string notedPath;
};

// Makes the folder if it isn't there. 0, or the errno.
int makeFolder(int parent, const std::string& name) {
    return mkdirat(parent, name.c_str(), S_IRWXU) == 0 || errno == EEXIST ? 0 : errno;
}

int writeNote(int info, const std::string& name, const std::string& note) {
    UniqueFd file(
        openat(info, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!file.isOpen()) return errno;
    std::string_view rest = note;
    int failure = writeAll(file.get(), rest);
    if (const int failureToClose = file.close(); failure == 0) failure = failureToClose;
    if (failure != 0) unlinkat(info, name.c_str(), 0);
    return failure;
}

// The note is written first: an entry without one could not be put back.
int moveUnderNote(const Entry& entry, const OpenFolder& files, const OpenFolder& info,
                  const std::string& note) {
    int failure = EEXIST;
    for (unsigned tries = 1; failure == EEXIST && tries <= 1000; ++tries) {
        // After so many of that name a random number is found sooner.
        const unsigned number = tries <= 20 ? tries : std::random_device{}();
        const std::string name = nameInTrash(entry.parent.name(), number);
        const std::string noteName = name + std::string(noteEnding);
        failure = writeNote(info.fd(), noteName, note);
        if (failure != 0) continue;
        failure = renameInto(entry.parent.fd(), entry.parent.name(), files.fd(), name);
        if (failure != 0) unlinkat(info.fd(), noteName.c_str(), 0);
    }
    return failure;
}

int moveInto(const OpenFolder& trash, const Entry& entry) {
    if (!trash.isOpen()) return EXDEV;
    if (makeFolder(trash.fd(), "files") != 0 || makeFolder(trash.fd(), "info") != 0) return EXDEV;
    const OpenFolder files(trash, "files");
    const OpenFolder info(trash, "info");
    // A link instead of a folder is no trash.
    if (!files.isOpen() || !info.isOpen()) return EXDEV;
    return moveUnderNote(entry, files, info,
                         trashNote(entry.notedPath, LinuxClock::localTime(std::time(nullptr))));
}

bool isOwn(const OpenFolder& folder) {
    struct stat status {};
    return folder.isOpen() && fstat(folder.fd(), &status) == 0 && status.st_uid == getuid();
}

// EXDEV when this trash can't take it, and another one may.
int moveToHomeTrash(const OpenedParent& parent, const std::string& hostPath,
                    const std::string& mountPoint, const std::vector<DriveRoot>& roots) {
    const std::string home = homeTrash();
    if (mountPointOf(home, roots) != mountPoint) return EXDEV;
    const auto slash = home.rfind('/');
    if (makeFolders(home.substr(0, slash)) != 0) return EXDEV;
    if (mkdir(home.c_str(), S_IRWXU) != 0 && errno != EEXIST) return EXDEV;
    return moveInto(OpenFolder(home), {parent, hostPath});
}

int moveToSharedTrash(const OpenFolder& top, const Entry& entry, const std::string& user) {
    const OpenFolder shared(top, ".Trash");
    if (!shared.isOpen() || !isSticky(shared)) return EXDEV;
    if (makeFolder(shared.fd(), user) != 0) return EXDEV;
    const OpenFolder trash(shared, user);
    return isOwn(trash) ? moveInto(trash, entry) : EXDEV;
}

int moveToTopFolder(const OpenedParent& parent, const std::string& hostPath,
                    const std::string& mountPoint) {
    const OpenFolder top(mountPoint);
    if (mountPoint.empty() || !top.isOpen()) return EXDEV;
    const Entry entry{parent, hostPath.substr(mountPoint == "/" ? 1 : mountPoint.size() + 1)};
    const std::string user = std::to_string(getuid());
    if (const int failure = moveToSharedTrash(top, entry, user); failure != EXDEV) return failure;
    const std::string own = ".Trash-" + user;
    if (makeFolder(top.fd(), own) != 0) return EXDEV;
    const OpenFolder trash(top, own);
    return isOwn(trash) ? moveInto(trash, entry) : EXDEV;
}

}  // namespace

std::string trashNote(std::string_view path, const DateTime& when) {
    return "[Trash Info]\nPath=" + escapedPath(path) +
           "\nDeletionDate=" + Format(when, "yyyy-mm-dd") + 'T' + Format(when, "hh:nn:ss") + '\n';
}

std::string nameInTrash(const std::string& name, unsigned number) {
    const std::size_t room = longestName - noteEnding.size();
    const auto point = name.rfind('.');
    const bool hasExtension =
        point != std::string::npos && point > 0 && name.size() - point < room / 2;
    std::string ending = hasExtension ? name.substr(point) : std::string{};
    const std::string start = name.substr(0, name.size() - ending.size());
    if (number > 1) ending = '.' + std::to_string(number) + ending;
    std::size_t size = 0;
    while (size < start.size()) {
        const std::size_t next = size + characterSize(start, size);
        if (next + ending.size() > room) break;
        size = next;
    }
    return start.substr(0, size) + ending;
}

int moveToTrash(const OpenedParent& parent, const std::string& hostPath,
                const std::vector<DriveRoot>& roots) {
    const std::string mountPoint = mountPointOf(hostPath, roots);
    int failure = moveToHomeTrash(parent, hostPath, mountPoint, roots);
    if (failure == EXDEV) failure = moveToTopFolder(parent, hostPath, mountPoint);
    return failure == EXDEV || failure == EEXIST ? EACCES : failure;
}

}  // namespace velmora::linuxhost
