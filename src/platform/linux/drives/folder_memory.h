// What folders were found to contain, for as long as it is certain that they still do. So a folder
// that is counted at every check isn't listed while nothing changes in it.
//
// Only folders of filesystems that date every change are known here, and only once their last
// change lies so far back that a further one must get a later time. What their links lead to is
// looked at each time. Nothing here waits for a device or a server.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "platform/linux/drives/entry_counts.h"
#include "platform/linux/drives/folder_mark.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

class FolderMemory {
  public:
    /// Nanoseconds since 1970, by the clock that changes are dated by.
    using Clock = std::int64_t (*)();

    explicit FolderMemory(Clock now = changeClock) : now_(now) {}

    std::int64_t moment() const { return now_(); }
    /// The folder at an absolute path, opened as a mere place, if it is as it was kept.
    UniqueFd open(const std::string& path) const;
    /// What is in the opened folder, if it still is what was kept for that path.
    std::optional<EntryCounts> countsOf(const std::string& path, int folder) const;
    /// Keeps what was counted after the moment `asked`, if that is certain enough.
    void keep(const std::string& path, const CountedFolder& counted, std::int64_t asked);
    void clear() { known_.clear(); }

  private:
    struct Known {
        EntryCounts counts;
        FolderMark mark;
        std::string links;
        std::int64_t asked = 0;
    };

    /// Null when nothing is kept, or the clock was set back since.
    const Known* find(const std::string& path) const;

    Clock now_;
    std::unordered_map<std::string, Known> known_;
};

}  // namespace velmora::linuxhost
