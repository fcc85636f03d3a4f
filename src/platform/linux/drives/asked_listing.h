// A listing that is read by the helper of the folder's drive, in blocks. Each block has the drive's
// deadline, so that a drive which stops answering in the middle of a folder keeps nobody waiting.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/linux/drives/folder_reader.h"
#include "platform/linux/drives/listing_block.h"
#include "platform/linux/drives/volumes.h"

namespace velmora::linuxhost {

class AskedListing {
  public:
    /// What stands for an errno when the drive doesn't answer in time.
    static constexpr int noAnswer = -2;

    AskedListing(Volumes& volumes, std::string hostPath, bool hasDots);
    ~AskedListing();
    AskedListing(const AskedListing&) = delete;
    AskedListing& operator=(const AskedListing&) = delete;

    /// 0 with the next entry; the errno or what stands for one, once, when the listing breaks off;
    /// FolderReader::noMoreEntries at the end and from then on.
    int next(ListedEntry& entry);

  private:
    bool readMore();

    Volumes& volumes_;
    ListingQuestion question_;
    std::unique_ptr<ListingBlock> block_;
    std::size_t at_ = 0;
    bool isOver_ = false;
};

}  // namespace velmora::linuxhost
