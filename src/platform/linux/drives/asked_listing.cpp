#include "platform/linux/drives/asked_listing.h"

#include <utility>

namespace velmora::linuxhost {

namespace {

std::uint64_t lastNumber = 0;

}  // namespace

AskedListing::AskedListing(Volumes& volumes, std::string hostPath, bool hasDots)
    : volumes_(volumes),
      question_{.path = std::move(hostPath), .number = ++lastNumber, .hasDots = hasDots},
      block_(std::make_unique_for_overwrite<ListingBlock>()) {
    block_->clear();
}

AskedListing::~AskedListing() {
    if (question_.isSent && block_->end() == 0) volumes_.endListing(question_);
}

bool AskedListing::readMore() {
    at_ = 0;
    const bool isAnswered = volumes_.readListing(question_, *block_);
    question_.isFirst = false;
    // A late answer to another question may be in it.
    if (!isAnswered) block_->clear();
    return isAnswered;
}

int AskedListing::next(ListedEntry& entry) {
    while (!isOver_) {
        if (block_->take(at_, entry)) return 0;
        if (block_->end() != 0) {
            isOver_ = true;
            return block_->end();
        }
        if (!readMore()) {
            isOver_ = true;
            return noAnswer;
        }
    }
    return FolderReader::noMoreEntries;
}

}  // namespace velmora::linuxhost
