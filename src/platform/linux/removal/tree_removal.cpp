#include "platform/linux/removal/tree_removal.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <vector>

#include "platform/linux/entries/rename_entry.h"

namespace velmora::linuxhost {

namespace {

// The most folders open at once; what lies deeper is moved up first.
constexpr int deepest = 64;

class Removal {
  public:
    Removal(const OpenFolder& top, bool force) : top_(top), force_(force) {
        note(mountIdOf(top.fd(), mount_));
    }

    int failure() const { return failure_; }

    void removeIn(const OpenFolder& folder, int depth, const EntryFilter& filter) {
        std::vector<std::string> names;
        note(namesIn(folder, names));
        for (const std::string& name : names) {
            if (filter(name)) remove(folder, name, depth);
        }
    }
    // Folders that were too deep are entries of the top folder by now; removing them may move up
    // more of the same.
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
        if (unlinkat(parent.fd(), name.c_str(), 0) == 0) return;
        const int failure = errno;
        struct statx status {};
        if (const int unseen = statEntry(parent.fd(), name, status); unseen != 0)
            return note(unseen == ENOENT ? 0 : unseen);
        if (!S_ISDIR(status.stx_mode)) return note(failure);
        if (!mayBeOn(status, mount_)) return note(EXDEV);
        if (depth >= deepest) return moveUp(parent, name);
        removeFolder(parent, name, depth);
    }

    void removeFolder(const OpenFolder& parent, const std::string& name, int depth) {
        const OpenFolder folder(parent, name);
        if (!folder.isOpen()) {
            // One that may not be read may still be empty.
            const bool isGone = unlinkat(parent.fd(), name.c_str(), AT_REMOVEDIR) == 0;
            return note(isGone ? 0 : folder.failure());
        }
        MountId mount;
        if (const int failure = mountIdOf(folder.fd(), mount); failure != 0) return note(failure);
        if (!(mount == mount_)) return note(EXDEV);
        // The folder may be write-protected; where this fails, the removal reports it.
        std::optional<TemporaryRights> rights;
        if (force_) rights.emplace(folder);
        removeIn(folder, depth + 1, everyEntry);
        // Where something in it has stayed, its failure was noted before this one.
        if (unlinkat(parent.fd(), name.c_str(), AT_REMOVEDIR) == 0) return;
        note(errno);
        if (rights) rights->restore();
    }

    void moveUp(const OpenFolder& parent, const std::string& name) {
        int failure = EEXIST;
        for (int tries = 0; failure == EEXIST && tries < 1000; ++tries) {
            const std::string upper = ".velmora-" + std::to_string(++number_);
            failure = renameInto(parent.fd(), name, top_.fd(), upper);
            if (failure == 0) moved_.push_back(upper);
        }
        note(failure);
    }

    const OpenFolder& top_;
    const bool force_;
    MountId mount_;
    std::vector<std::string> moved_;
    int number_ = 0;
    int failure_ = 0;
};

}  // namespace

TemporaryRights::TemporaryRights(const OpenFolder& folder) : folder_(folder) {
    struct stat status {};
    if (fstat(folder.fd(), &status) != 0 || (status.st_mode & S_IRWXU) == S_IRWXU) return;
    mode_ = status.st_mode & 07777;
    areGiven_ = fchmod(folder.fd(), mode_ | S_IRWXU) == 0;
}

void TemporaryRights::restore() const {
    if (areGiven_) fchmod(folder_.fd(), mode_);
}

bool everyEntry(const std::string&) {
    return true;
}

int removeEntries(const OpenFolder& folder, const EntryFilter& filter, bool force) {
    Removal removal(folder, force);
    if (removal.failure() != 0) return removal.failure();
    removal.removeIn(folder, 0, filter);
    removal.removeMoved();
    return removal.failure();
}

}  // namespace velmora::linuxhost
