#include "platform/linux/removal/tree_removal.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <vector>

#include "platform/linux/entries/rename_entry.h"

namespace velmora::linuxhost {

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

// So many folders are open at once; what lies deeper is moved up first.
constexpr int deepest = 64;

class Removal {
  public:
    Removal(const OpenFolder& top, bool force) : top_(top), force_(force) {
        note(placeOf(top.file(), place_));
    }

    int failure() const { return failure_; }

    void removeIn(const OpenFolder& folder, int depth, const Goes& goes) {
        std::vector<std::string> names;
        note(namesIn(folder, names));
        for (const std::string& name : names) {
            if (goes(name)) remove(folder, name, depth);
        }
    }
    // Folders that lay too deep are entries of the top now, and may move up more of them.
    void removeMoved() {
        while (!moved_.empty()) {
            const std::string name = moved_.back();
            moved_.pop_back();
            remove(top_, name, 0);
        }
    }

  private:
    void note(int failure) {
        if (failure_ == 0) failure_ = failure;
    }

    void remove(const OpenFolder& parent, const std::string& name, int depth) {
        if (unlinkat(parent.file(), name.c_str(), 0) == 0) return;
        const int failure = errno;
        struct statx status {};
        if (const int unseen = lookAt(parent.file(), name, status); unseen != 0)
            return note(unseen == ENOENT ? 0 : unseen);
        if (!S_ISDIR(status.stx_mode)) return note(failure);
        if (!mayLieIn(status, place_)) return note(EXDEV);
        if (depth >= deepest) return moveUp(parent, name);
        removeFolder(parent, name, depth);
    }

    void removeFolder(const OpenFolder& parent, const std::string& name, int depth) {
        const OpenFolder folder(parent, name);
        if (!folder.isOpen()) {
            // One that may not be read may still be empty.
            const bool isGone = unlinkat(parent.file(), name.c_str(), AT_REMOVEDIR) == 0;
            return note(isGone ? 0 : folder.failure());
        }
        Place place;
        if (const int failure = placeOf(folder.file(), place); failure != 0) return note(failure);
        if (!(place == place_)) return note(EXDEV);
        // A folder that was deleted write-protected; where this fails, removing tells.
        std::optional<LentRights> rights;
        if (force_) rights.emplace(folder);
        removeIn(folder, depth + 1, [](const std::string&) { return true; });
        // When something in it has stayed, that was noted first.
        if (unlinkat(parent.file(), name.c_str(), AT_REMOVEDIR) == 0) return;
        note(errno);
        if (rights) rights->takeBack();
    }

    void moveUp(const OpenFolder& parent, const std::string& name) {
        int failure = EEXIST;
        for (int tries = 0; failure == EEXIST && tries < 1000; ++tries) {
            const std::string upper = ".velmora-" + std::to_string(++number_);
            failure = renameInto(parent.file(), name, top_.file(), upper);
            if (failure == 0) moved_.push_back(upper);
        }
        note(failure);
    }

    const OpenFolder& top_;
    const bool force_;
    Place place_;
    std::vector<std::string> moved_;
    int number_ = 0;
    int failure_ = 0;
};

}  // namespace

LentRights::LentRights(const OpenFolder& folder) : folder_(folder) {
    struct stat status {};
    if (fstat(folder.file(), &status) != 0 || (status.st_mode & S_IRWXU) == S_IRWXU) return;
    mode_ = status.st_mode & 07777;
    areLent_ = fchmod(folder.file(), mode_ | S_IRWXU) == 0;
}

void LentRights::takeBack() const {
    if (areLent_) fchmod(folder_.file(), mode_);
}

int namesIn(const OpenFolder& folder, std::vector<std::string>& names) {
    // The listing takes its file along when it is closed.
    const int file = openat(folder.file(), ".", folderFlags);
    if (file < 0) return errno;
    DIR* listing = fdopendir(file);
    if (!listing) {
        const int failure = errno;
        close(file);
        return failure;
    }
    errno = 0;
    while (const dirent* entry = readdir(listing)) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..") names.push_back(name);
    }
    const int failure = errno;
    closedir(listing);
    return failure;
}

std::optional<std::uint64_t> mountOfOpened(int file) {
    std::ifstream told("/proc/self/fdinfo/" + std::to_string(file));
    for (std::string name; told >> name;) {
        std::uint64_t mount = 0;
        if (name == "mnt_id:" && told >> mount) return mount;
    }
    return std::nullopt;
}

bool mayLieIn(const struct statx& status, const Place& place) {
    if (status.stx_dev_major != place.major || status.stx_dev_minor != place.minor) return false;
    return (status.stx_mask & STATX_MNT_ID) == 0 || status.stx_mnt_id == place.mount;
}

int lookAt(int folder, const std::string& name, struct statx& status) {
    constexpr int flags =
        AT_SYMLINK_NOFOLLOW | AT_EMPTY_PATH | AT_NO_AUTOMOUNT | AT_STATX_DONT_SYNC;
    constexpr unsigned wanted = STATX_BASIC_STATS | STATX_MNT_ID;
    return statx(folder, name.c_str(), flags, wanted, &status) == 0 ? 0 : errno;
}

int placeOf(int folder, Place& place) {
    struct statx status {};
    if (const int failure = lookAt(folder, "", status); failure != 0) return failure;
    const bool hasMount = (status.stx_mask & STATX_MNT_ID) != 0;
    const auto mount =
        hasMount ? std::optional<std::uint64_t>(status.stx_mnt_id) : mountOfOpened(folder);
    if (!mount) return EXDEV;
    place = {status.stx_dev_major, status.stx_dev_minor, *mount};
    return 0;
}

OpenFolder::OpenFolder(const std::string& path)
    : file_(open(path.c_str(), folderFlags)), failure_(file_ < 0 ? errno : 0) {}

OpenFolder::OpenFolder(const OpenFolder& parent, const std::string& name)
    : OpenFolder(parent.file(), name) {}

OpenFolder::OpenFolder(int parentFile, const std::string& name)
    : file_(openat(parentFile, name.c_str(), folderFlags)), failure_(file_ < 0 ? errno : 0) {}

OpenFolder::~OpenFolder() {
    if (isOpen()) close(file_);
}

int removeEntries(const OpenFolder& folder, const Goes& goes, bool force) {
    Removal removal(folder, force);
    if (removal.failure() != 0) return removal.failure();
    removal.removeIn(folder, 0, goes);
    removal.removeMoved();
    return removal.failure();
}

}  // namespace velmora::linuxhost
