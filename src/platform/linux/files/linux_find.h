// The listing of a folder, entry by entry, with what each entry is itself. Made for folders of a
// million entries: the kernel is asked for many names at once, and nothing is allocated for an
// entry but what its name needs.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/kernel32.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

class FolderListing {
  public:
    /// `hasDots`: whether "." and ".." come first. `asksServer`: whether times and
    /// sizes are those of this moment even where a server has to be asked for them.
    FolderListing(const std::string& hostPath, bool hasDots, bool asksServer = false);

    /// 0 with the next entry, or else the system's code: 18 at the end; another code, once, when
    /// the listing breaks off.
    std::uint32_t next(FindData& entry);

  private:
    bool nextDots(FindData& entry);
    bool fill(int& failure);
    bool look(const char* name, struct statx& status) const;
    bool describe(const char* name, unsigned char kind, FindData& entry) const;

    UniqueFd folder_;
    int failure_;             // why it can't be listed; 0 once that was reported
    std::size_t listedDots_;  // how many of "." and ".." were listed
    bool asksServer_;
    unsigned major_ = 0;  // of the folder's filesystem
    unsigned minor_ = 0;
    std::unique_ptr<char[]> buffer_;
    std::size_t at_ = 0;
    std::size_t size_ = 0;
};

/// A time in units of 100 ns since 1601-01-01 UTC; 0 for an earlier one.
std::uint64_t fileTimeOf(const struct statx_timestamp& time);

/// Sets `text` to a name of the host in the form for drive paths.
void setDriveName(std::string& text, std::string_view name);

}  // namespace velmora::linuxhost
