#include "platform/linux/drives/folder_memory.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/linux/drives/cached_path.h"

namespace velmora::linuxhost {

namespace {

// As many as a large list of watched paths has.
constexpr std::size_t mostFolders = 20'000;

bool isStill(const FolderMark& mark, int folder) {
    FolderMark now;
    return readMark(folder, now) && now == mark;
}

bool leadsTo(int folder, const char* link, unsigned char kind) {
    const UniqueFd target = openCached(folder, link, kind == DT_DIR ? O_DIRECTORY : 0);
    if (!target.isOpen()) return kind == DT_UNKNOWN && errno != EAGAIN;
    if (kind == DT_DIR) return true;
    struct statx status {};
    constexpr int flags = AT_EMPTY_PATH | AT_STATX_DONT_SYNC;
    return statx(target.get(), "", flags, STATX_TYPE, &status) == 0 &&
           (status.stx_mask & STATX_TYPE) != 0 && IFTODT(status.stx_mode) == kind;
}

}  // namespace

const FolderMemory::Known* FolderMemory::find(const std::string& path) const {
    const auto found = known_.find(path);
    if (found == known_.end() || now_() < found->second.asked) return nullptr;
    return &found->second;
}

UniqueFd FolderMemory::open(const std::string& path) const {
    const Known* known = find(path);
    if (!known) return {};
    UniqueFd folder = openCached(path, O_DIRECTORY);
    if (!folder.isOpen() || !isStill(known->mark, folder.get())) return {};
    return folder;
}

std::optional<EntryCounts> FolderMemory::countsOf(const std::string& path, int folder) const {
    const Known* known = find(path);
    if (!known || !isStill(known->mark, folder)) return std::nullopt;
    const bool linksHold = LinkNotes::all(
        known->links,
        [folder](const char* link, unsigned char kind) { return leadsTo(folder, link, kind); });
    if (!linksHold) return std::nullopt;
    return known->counts;
}

void FolderMemory::keep(const std::string& path, const CountedFolder& counted, std::int64_t asked) {
    if (!counted.standsWithMark || !isSettled(counted.mark, asked)) {
        known_.erase(path);
        return;
    }
    if (known_.size() >= mostFolders) known_.clear();
    known_.insert_or_assign(path, Known{.counts = counted.counts,
                                        .mark = counted.mark,
                                        .links = std::string(counted.links.text()),
                                        .asked = asked});
}

}  // namespace velmora::linuxhost
