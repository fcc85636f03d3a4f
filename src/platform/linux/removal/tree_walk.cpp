#include "platform/linux/removal/tree_walk.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
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
    Walk(const OpenFolder& top, const Seen& seen) : seen_(seen) {
        failure_ = placeOf(top.file(), place_);
        current_ = std::make_unique<OpenFolder>(top.file(), ".");
    }

    int run() {
        look();
        while (goesOn() && !levels_.empty()) {
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
    bool goesOn() const { return failure_ == 0 && !isEnded_; }

    // Reads the current folder, which becomes the innermost level.
    void look() {
        struct stat status {};
        if (!current_->isOpen()) failure_ = current_->failure();
        if (failure_ == 0 && fstat(current_->file(), &status) != 0) failure_ = errno;
        if (failure_ != 0) return;
        levels_.push_back({status.st_dev, status.st_ino, {}});
        std::vector<std::string> names;
        failure_ = namesIn(*current_, names);
        for (const std::string& name : names) {
            if (goesOn()) look(name);
        }
    }
    void look(const std::string& name) {
        struct statx status {};
        failure_ = lookAt(current_->file(), name, status);
        if (failure_ == ENOENT) failure_ = 0;  // gone since the names were read
        if (failure_ != 0 || status.stx_mask == 0) return;
        isEnded_ = !seen_(status);
        const bool isFolder = S_ISDIR(status.stx_mode);
        if (isFolder && mayLieIn(status, place_)) levels_.back().subfolders.push_back(name);
    }

    void goDown(const std::string& name) {
        auto below = std::make_unique<OpenFolder>(current_->file(), name);
        if (below->failure() == ENOENT) return;
        Place place;
        failure_ = below->isOpen() ? placeOf(below->file(), place) : below->failure();
        if (failure_ != 0 || !(place == place_)) return;
        current_ = std::move(below);
        look();
    }
    void goUp() {
        auto above = std::make_unique<OpenFolder>(current_->file(), "..");
        struct stat status {};
        const bool isRead = above->isOpen() && fstat(above->file(), &status) == 0;
        const Level& level = levels_.back();
        if (!isRead || status.st_dev != level.device || status.st_ino != level.inode) {
            failure_ = ESTALE;
            return;
        }
        current_ = std::move(above);
    }

    const Seen& seen_;
    Place place_;
    std::unique_ptr<OpenFolder> current_;
    std::vector<Level> levels_;
    bool isEnded_ = false;
    int failure_ = 0;
};

}  // namespace

int walkTree(const OpenFolder& top, const Seen& seen) {
    return Walk(top, seen).run();
}

}  // namespace velmora::linuxhost
