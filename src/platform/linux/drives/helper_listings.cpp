#include "platform/linux/drives/helper_listings.h"

#include <fcntl.h>
#include <time.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <iterator>
#include <utility>

#include "platform/linux/drives/entry_counts.h"

namespace velmora::linuxhost {

namespace {

// A slow drive shows what it has long before it would miss the deadline.
constexpr std::int64_t longestAtOnce = 200'000'000;  // nanoseconds

struct BegunListing {
    std::uint64_t number = 0;  // 0 for none
    FolderReader reader;
    // An entry that found no room in a block.
    ListedEntry kept;
    bool hasKept = false;
};

// Of this process alone; the program's own is never touched.
BegunListing begun[8];
std::size_t lastBegun = 0;

std::int64_t steadyTime() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

BegunListing* begunOf(std::uint64_t number) {
    const auto found = std::find_if(std::begin(begun), std::end(begun),
                                    [number](const auto& each) { return each.number == number; });
    return found == std::end(begun) ? nullptr : found;
}

// Takes the place of the one begun the longest ago, which breaks off then.
BegunListing* beginOne(const HelperRequest& request, int& failure) {
    lastBegun = (lastBegun + 1) % std::size(begun);
    BegunListing& listing = begun[lastBegun];
    listing.reader.end();
    listing.number = 0;
    listing.hasKept = false;
    UniqueFd folder = openFolder(request.path);
    failure =
        folder.isOpen() ? listing.reader.begin(std::move(folder), request.hasDots, true) : errno;
    if (failure != 0) return nullptr;
    listing.number = request.listing;
    return &listing;
}

BegunListing* listingOf(const HelperRequest& request, int& failure) {
    if (BegunListing* listing = begunOf(request.listing)) return listing;
    failure = EBADF;  // it was pushed out, or this process isn't the one that began it
    return request.isFirst ? beginOne(request, failure) : nullptr;
}

int nextOf(BegunListing& listing, ListedEntry& entry) {
    if (!listing.hasKept) return listing.reader.next(entry);
    listing.hasKept = false;
    entry = listing.kept;
    return 0;
}

}  // namespace

void readListing(const HelperRequest& request, ListingBlock& block) {
    block.clear();
    int failure = 0;
    BegunListing* listing = listingOf(request, failure);
    if (!listing) return block.setEnd(failure);
    const std::int64_t latest = steadyTime() + longestAtOnce;
    ListedEntry entry;
    do {
        failure = nextOf(*listing, entry);
        if (failure != 0) {
            listing->number = 0;
            return block.setEnd(failure);
        }
        if (!block.add(entry)) {
            // Its name stays in the reader's buffer until that is asked on.
            listing->kept = entry;
            listing->hasKept = true;
            return;
        }
    } while (steadyTime() < latest);
}

void endListing(const HelperRequest& request) {
    BegunListing* listing = begunOf(request.listing);
    if (!listing) return;
    listing->reader.end();
    listing->number = 0;
}

}  // namespace velmora::linuxhost
