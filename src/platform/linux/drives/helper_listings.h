// The listings that a drive's helper process has begun. Safe in a forked child.
#pragma once

#include "platform/linux/drives/helper_messages.h"
#include "platform/linux/drives/listing_block.h"

namespace velmora::linuxhost {

/// Fills the block with the next entries of the listing that the request names, and begins it when
/// there is none of that number. What takes long is given in small blocks.
void readListing(const HelperRequest& request, ListingBlock& block);

/// Ends that listing, if it is there.
void endListing(const HelperRequest& request);

}  // namespace velmora::linuxhost
