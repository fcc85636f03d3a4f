#include "platform/linux/removal/tree_removal.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <deque>
#include <optional>
#include <utility>
#include <vector>

#include "platform/linux/entries/own_entry.h"

namespace velmora::linuxhost {

namespace {

// The most folders open at once. One that is closed meanwhile is opened again from the folder in
// it.
constexpr std::size_t mostOpen = 64;

// A folder that is being emptied.
struct Level {
    Level(OpenFolder opened, std::string nameThere, bool force)
        : folder(std::move(opened)), name(std::move(nameThere)) {
        struct stat status {};
        if (fstat(folder.fd(), &status) == 0) identity = identityOf(status);
        // The folder may be write-protected; where this fails, the removal reports it.
        if (force) rights.emplace(folder);
    }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

    OpenFolder folder;
    std::string name;  // in the folder above
    EntryIdentity identity;
    std::optional<TemporaryRights> rights;
    std::vector<std::string> names = {};  // that are still to be removed
};

class Removal {
  public:
    Removal(const OpenFolder& top, bool force) : top_(top), force_(force) {
        note(mountIdOf(top.fd(), mount_));
    }

    int failure() const { return failure_; }

    void removeAll(const EntryFilter& filter) {
        std::vector<std::string> names;
        note(namesIn(top_, names));
        for (const std::string& name : names) {
            if (!filter(name)) continue;
            remove(top_, name);
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
        remove(levels_.back().folder, name);
    }

    // A folder with something in it becomes the innermost level.
    void remove(const OpenFolder& parent, const std::string& name) {
        if (unlinkat(parent.fd(), name.c_str(), 0) == 0) return;
        const int failure = errno;
        struct statx status {};
        if (const int unseen = statEntry(parent.fd(), name, status); unseen != 0)
            return note(unseen == ENOENT ? 0 : unseen);
        if (!S_ISDIR(status.stx_mode)) return note(failure);
        if (!mayBeOn(status, mount_)) return note(EXDEV);
        enter(parent, name);
    }

    void enter(const OpenFolder& parent, const std::string& name) {
        OpenFolder folder(parent, name);
        if (!folder.isOpen()) {
            // One that may not be read may still be empty.
            const bool isGone = unlinkat(parent.fd(), name.c_str(), AT_REMOVEDIR) == 0;
            return note(isGone ? 0 : folder.failure());
        }
        MountId mount;
        if (const int failure = mountIdOf(folder.fd(), mount); failure != 0) return note(failure);
        if (!(mount == mount_)) return note(EXDEV);
        if (levels_.size() >= mostOpen) levels_[levels_.size() - mostOpen].folder.close();
        Level& level = levels_.emplace_back(std::move(folder), name, force_);
        note(namesIn(level.folder, level.names));
    }

    void leave() {
        const Level& done = levels_.back();
        const int failure = openAbove();
        if (failure != 0) {
            // The folder was moved away: what is above it isn't known any more.
            note(failure);
            while (!levels_.empty()) keep();
            return;
        }
        const OpenFolder& above = levels_.size() > 1 ? levels_[levels_.size() - 2].folder : top_;
        // Where something in it has stayed, its failure was noted before this one.
        if (unlinkat(above.fd(), done.name.c_str(), AT_REMOVEDIR) == 0) {
            levels_.pop_back();
        } else {
            note(errno);
            keep();
        }
    }

    // The folder above the innermost one, if it was closed meanwhile. 0, or the errno.
    int openAbove() {
        if (levels_.size() < 2) return 0;
        Level& above = levels_[levels_.size() - 2];
        if (above.folder.isOpen()) return 0;
        OpenFolder opened(levels_.back().folder, "..");
        struct stat status {};
        if (!opened.isOpen()) return opened.failure();
        if (fstat(opened.fd(), &status) != 0) return errno;
        if (!(identityOf(status) == above.identity)) return ESTALE;
        above.folder = std::move(opened);
        return 0;
    }

    void keep() {
        const Level& kept = levels_.back();
        if (kept.rights && kept.folder.isOpen()) kept.rights->restore();
        levels_.pop_back();
    }

    const OpenFolder& top_;
    const bool force_;
    MountId mount_;
    std::deque<Level> levels_;  // their addresses stay
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
