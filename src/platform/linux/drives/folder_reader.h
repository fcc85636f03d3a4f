// The entries of an opened folder, one after the other, with what each is itself. Made for folders
// of a million entries: the kernel is asked for many names at once, and nothing is allocated. All
// of it is safe in a forked child.
#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <cstdint>

#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

/// An entry as a listing of the other system gives it. Times are in units of 100 ns since
/// 1601-01-01 UTC.
struct ListedEntry {
    std::uint32_t attributes = 0;
    std::uint64_t created = 0;
    std::uint64_t accessed = 0;
    std::uint64_t written = 0;
    std::uint64_t size = 0;      ///< bytes
    const char* name = nullptr;  ///< of the host; until the next entry
};

class FolderReader {
  public:
    /// What stands for an errno at the end.
    static constexpr int noMoreEntries = -1;

    /// Begins with an opened folder. `hasDots`: whether "." and ".." come first. `asksServer`:
    /// whether times and sizes are those of this moment even where a server has to be asked for
    /// them. 0 or the errno.
    int begin(UniqueFd folder, bool hasDots, bool asksServer);
    /// 0 with the next entry, the errno when the listing breaks off, or noMoreEntries.
    int next(ListedEntry& entry);
    /// Whether it was begun and not ended yet.
    bool isOpen() const { return folder_.isOpen(); }
    void end() { folder_.reset(); }

  private:
    bool nextDots(ListedEntry& entry);
    bool fill(int& failure);
    bool look(const char* name, struct statx& status) const;
    bool describe(const char* name, unsigned char kind, ListedEntry& entry) const;

    UniqueFd folder_;
    std::size_t listedDots_ = 0;  // how many of "." and ".." were listed
    bool asksServer_ = false;
    unsigned major_ = 0;  // of the folder's filesystem
    unsigned minor_ = 0;
    std::size_t at_ = 0;
    std::size_t size_ = 0;
    alignas(8) char buffer_[32 * 1024];
};

}  // namespace velmora::linuxhost
