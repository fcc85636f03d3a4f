// The listing of a folder, entry by entry, with what each entry is itself.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/kernel32.h"
#include "platform/linux/drives/asked_listing.h"
#include "platform/linux/drives/folder_reader.h"
#include "platform/linux/drives/volumes.h"
#include "platform/linux/system/file_time.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

class FolderListing {
  public:
    /// Of a folder that waits for no server, opened as a mere place. `hasDots`: whether "." and
    /// ".." come first.
    FolderListing(const UniqueFd& place, bool hasDots);
    /// Of a folder that may keep its reader waiting: its drive's helper reads it. The volumes must
    /// outlive it.
    FolderListing(Volumes& volumes, std::string hostPath, bool hasDots);

    /// 0 with the next entry, or else the system's code: 18 at the end; another code, once, when
    /// the listing breaks off: 21 when the drive has missed the deadline.
    std::uint32_t next(FindData& entry);

  private:
    int readNext(ListedEntry& entry);

    std::unique_ptr<FolderReader> reader_;
    std::unique_ptr<AskedListing> asked_;
    int failure_ = 0;  // why it can't be listed, until that is reported
};

/// Sets `text` to a name of the host in the form for drive paths.
void setDriveName(std::string& text, std::string_view name);

}  // namespace velmora::linuxhost
