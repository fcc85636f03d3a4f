#include "platform/linux/removal/tree_removal.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <utility>
#include <vector>

#include "platform/linux/entries/folder_stack.h"
#include "platform/work_steps.h"

namespace velmora::linuxhost {

namespace {

// A folder that is being emptied.
struct Level {
    std::string name;                     // in the folder above
    std::vector<std::string> names = {};  // that are still to be removed
    // Where they can't be given, the removal reports it.
    std::optional<TemporaryRights> rights = {};
};

class Removal {
  public:
    Removal(const OpenFolder& top, bool force) : top_(top), force_(force), folders_(top) {
        note(mountIdOf(top.fd(), mount_));
    }

    int failure() const { return failure_; }

    void removeAll(const EntryFilter& filter) {
        std::vector<std::string> names;
        note(namesIn(top_, names));
        for (const std::string& name : names) {
            if (!filter(name)) continue;
            remove(name);
            while (!levels_.empty()) goOn();
        }
    }

  private:
    void note(int failure) {
        if (failure_ == 0) failure_ = failure;
    }

    void goOn() {
        std::vector<std::string>& names = levels_.back().names;
        if (names.empty()) return leave();
        const std::string name = std::move(names.back());
        names.pop_back();
        remove(name);
    }

    // In the innermost folder. One with something in it becomes the innermost.
    void remove(const std::string& name) {
        noteWorkStep();
        const OpenFolder& parent = folders_.innermost();
        if (unlinkat(parent.fd(), name.c_str(), 0) == 0) return;
        const int failure = errno;
        struct statx status {};
        if (const int unseen = statEntry(parent.fd(), name, status); unseen != 0)
            return note(unseen == ENOENT ? 0 : unseen);
        if (!S_ISDIR(status.stx_mode)) return note(failure);
        if (!mayBeOn(status, mount_)) return note(EXDEV);
        enter(name);
    }

    void enter(const std::string& name) {
        const OpenFolder& parent = folders_.innermost();
        OpenFolder folder(parent, name);
        if (!folder.isOpen()) {
            // One that may not be read may still be empty.
            const bool isGone = unlinkat(parent.fd(), name.c_str(), AT_REMOVEDIR) == 0;
            return note(isGone ? 0 : folder.failure());
        }
        MountId mount;
        if (const int failure = mountIdOf(folder.fd(), mount); failure != 0) return note(failure);
        if (!(mount == mount_)) return note(EXDEV);
        struct stat status {};
        if (fstat(folder.fd(), &status) != 0) return note(errno);
        const OpenFolder& entered = folders_.enter(std::move(folder), identityOf(status));
        Level& level = levels_.emplace_back(Level{.name = name});
        if (force_) level.rights.emplace(entered);
        note(namesIn(entered, level.names));
    }

    void leave() {
        if (const int failure = folders_.openAbove(); failure != 0) {
            // The folder was moved away: what is above it isn't known any more.
            note(failure);
            while (!levels_.empty()) keep();
            return;
        }
        // Where something in it has stayed, its failure was noted before this one.
        if (unlinkat(folders_.above().fd(), levels_.back().name.c_str(), AT_REMOVEDIR) != 0) {
            note(errno);
            keep();
            return;
        }
        levels_.pop_back();
        folders_.leave();
    }

    void keep() {
        const auto& rights = levels_.back().rights;
        if (rights && folders_.innermost().isOpen()) rights->restore();
        levels_.pop_back();
        folders_.leave();
    }

    const OpenFolder& top_;
    const bool force_;
    MountId mount_;
    FolderStack folders_;
    std::vector<Level> levels_;  // of the entered folders
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
    removal.removeAll(filter);
    return removal.failure();
}

}  // namespace velmora::linuxhost
