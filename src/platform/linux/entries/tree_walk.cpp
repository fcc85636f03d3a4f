#include "platform/linux/entries/tree_walk.h"

#include <dirent.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/drives/mount_table.h"
#include "platform/linux/entries/folder_stack.h"
#include "platform/linux/paths/path_names.h"
#include "platform/linux/system/read_whole.h"
#include "platform/work_steps.h"

namespace velmora::linuxhost {

namespace {

// The last names of all mount points; nothing where they can't be read. A folder of another name
// holds no mount, and is opened without a look at it.
std::optional<std::set<std::string>> namesOfMounts() {
    const std::string table = contentOfFile("/proc/self/mountinfo");
    if (table.empty()) return std::nullopt;
    std::set<std::string> names;
    for (const Mount& mount : parseMountTable(table))
        names.insert(mount.mountPoint.substr(mount.mountPoint.rfind('/') + 1));
    return names;
}

class Walk {
  public:
    Walk(const OpenFolder& top, const EntryVisitor& visit, Visited which)
        : visit_(visit), isForFiles_(which == Visited::files), top_(top, "."), folders_(top_) {
        failure_ = top_.isOpen() ? mountIdOf(top_.fd(), mount_) : top_.failure();
        if (isForFiles_) mountNames_ = namesOfMounts();
    }

    int run() {
        if (isGoing()) read(top_);
        while (isGoing() && !subfolders_.empty()) {
            std::vector<std::string>& names = subfolders_.back();
            if (names.empty()) {
                goUp();
            } else {
                const std::string name = std::move(names.back());
                names.pop_back();
                goDown(name);
            }
        }
        return failure_;
    }

  private:
    bool isGoing() const { return failure_ == 0 && !isEnded_; }

    // Reads a folder that has just been opened.
    void read(const OpenFolder& folder) {
        subfolders_.emplace_back();
        while (isGoing()) {
            const ssize_t size = getdents64(folder.fd(), buffer_.data(), buffer_.size());
            if (size < 0 && errno == EINTR) continue;
            if (size < 0) failure_ = errno;
            if (size <= 0) return;
            noteWorkStep();
            for (ssize_t at = 0; isGoing() && at < size;) {
                const auto& entry = *reinterpret_cast<const dirent64*>(buffer_.data() + at);
                at += entry.d_reclen;
                if (!isDots(entry.d_name)) look(folder, entry.d_name, entry.d_type);
            }
        }
    }

    // Some filesystems leave the kinds out of their listings.
    void look(const OpenFolder& folder, const std::string& name, unsigned char kind) {
        const bool isKnown = isForFiles_ && mountNames_ && kind != DT_UNKNOWN;
        if (isKnown && kind == DT_DIR && !mountNames_->contains(name)) {
            subfolders_.back().push_back(name);
        } else if (!isKnown || kind == DT_DIR || kind == DT_REG) {
            visit(folder, name);
        }
    }

    void visit(const OpenFolder& folder, const std::string& name) {
        struct statx status {};
        failure_ = statEntry(folder.fd(), name, status);
        if (failure_ == ENOENT) failure_ = 0;  // gone since the names were read
        if (failure_ != 0 || status.stx_mask == 0) return;
        const bool isFolder = S_ISDIR(status.stx_mode);
        if (!isForFiles_ || !isFolder) isEnded_ = !visit_(status);
        if (isFolder && mayBeOn(status, mount_)) subfolders_.back().push_back(name);
    }

    void goDown(const std::string& name) {
        OpenFolder below(folders_.innermost(), name);
        if (below.failure() == ENOENT) return;
        // Something else has come to its name, as a link.
        const bool isNone = below.failure() == ENOTDIR || below.failure() == ELOOP;
        if (isForFiles_ && isNone) return;
        MountId mount;
        EntryIdentity identity;
        failure_ = below.isOpen() ? mountIdOf(below.fd(), mount, &identity) : below.failure();
        if (failure_ != 0 || !(mount == mount_)) return;
        read(folders_.enter(std::move(below), identity));
    }

    void goUp() {
        subfolders_.pop_back();
        if (folders_.isAtTop()) return;
        failure_ = folders_.openAbove();
        folders_.leave();
    }

    const EntryVisitor& visit_;
    const bool isForFiles_;
    const OpenFolder top_;  // opened anew, since it is read
    FolderStack folders_;
    MountId mount_;
    std::optional<std::set<std::string>> mountNames_;
    std::vector<std::vector<std::string>> subfolders_;  // still to be looked into, for each level
    alignas(dirent64) std::array<char, 32 * 1024> buffer_{};
    bool isEnded_ = false;
    int failure_ = 0;
};

}  // namespace

int walkTree(const OpenFolder& top, const EntryVisitor& visit, Visited which) {
    return Walk(top, visit, which).run();
}

}  // namespace velmora::linuxhost
