#include "platform/linux/entries/tree_walk.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <vector>

namespace velmora::linuxhost {

namespace {

// A folder whose subfolders are still to be visited.
struct Level {
    dev_t device = 0;
    ino_t inode = 0;
    std::vector<std::string> subfolders;
};

class Walk {
  public:
    Walk(const OpenFolder& top, const EntryVisitor& visit) : visit_(visit), current_(top, ".") {
        failure_ = mountIdOf(top.fd(), mount_);
    }

    int run() {
        read();
        while (isGoing() && !levels_.empty()) {
            if (levels_.back().subfolders.empty()) {
                levels_.pop_back();
                if (!levels_.empty()) goUp();
            } else {
                const std::string name = std::move(levels_.back().subfolders.back());
                levels_.back().subfolders.pop_back();
                goDown(name);
            }
        }
        return failure_;
    }

  private:
    bool isGoing() const { return failure_ == 0 && !isEnded_; }

    // Reads the current folder, which becomes the innermost level.
    void read() {
        struct stat status {};
        if (!current_.isOpen()) failure_ = current_.failure();
        if (failure_ == 0 && fstat(current_.fd(), &status) != 0) failure_ = errno;
        if (failure_ != 0) return;
        levels_.push_back({status.st_dev, status.st_ino, {}});
        std::vector<std::string> names;
        failure_ = namesIn(current_, names);
        for (const std::string& name : names) {
            if (isGoing()) visit(name);
        }
    }
    void visit(const std::string& name) {
        struct statx status {};
        failure_ = statEntry(current_.fd(), name, status);
        if (failure_ == ENOENT) failure_ = 0;  // gone since the names were read
        if (failure_ != 0 || status.stx_mask == 0) return;
        isEnded_ = !visit_(status);
        const bool isFolder = S_ISDIR(status.stx_mode);
        if (isFolder && mayBeOn(status, mount_)) levels_.back().subfolders.push_back(name);
    }

    void goDown(const std::string& name) {
        OpenFolder below(current_, name);
        if (below.failure() == ENOENT) return;
        MountId mount;
        failure_ = below.isOpen() ? mountIdOf(below.fd(), mount) : below.failure();
        if (failure_ != 0 || !(mount == mount_)) return;
        current_ = std::move(below);
        read();
    }
    void goUp() {
        OpenFolder above(current_, "..");
        struct stat status {};
        const bool isRead = above.isOpen() && fstat(above.fd(), &status) == 0;
        const Level& level = levels_.back();
        if (!isRead || status.st_dev != level.device || status.st_ino != level.inode) {
            failure_ = ESTALE;
            return;
        }
        current_ = std::move(above);
    }

    const EntryVisitor& visit_;
    MountId mount_;
    OpenFolder current_;
    std::vector<Level> levels_;
    bool isEnded_ = false;
    int failure_ = 0;
};

}  // namespace

int walkTree(const OpenFolder& top, const EntryVisitor& visit) {
    return Walk(top, visit).run();
}

}  // namespace velmora::linuxhost
