#include "platform/linux/drives/helper_process.h"

#include <cstddef>
#include <cstring>

namespace velmora::linuxhost {

namespace {

// The bytes to send; 0 for a path that the host can't take.
std::size_t setPath(HelperRequest& request, const std::string& path) {
    if (path.size() >= PATH_MAX || path.find('\0') != std::string::npos) return 0;
    std::memcpy(request.path, path.c_str(), path.size() + 1);
    return HelperRequest::headSize() + path.size() + 1;
}

}  // namespace

std::optional<HelperReply> HelperProcess::ask(HelperQuestion question, const std::string& path) {
    HelperRequest request;
    request.question = question;
    const auto size = setPath(request, path);
    HelperReply reply;
    if (size == 0 || process_.ask(&request, size, &reply, sizeof reply, deadline_) != sizeof reply)
        return std::nullopt;
    return reply;
}

bool HelperProcess::readListing(ListingQuestion& question, ListingBlock& block) {
    HelperRequest request;
    request.question = HelperQuestion::listing;
    request.isFirst = question.isFirst;
    request.hasDots = question.hasDots;
    request.listing = question.number;
    const auto size = setPath(request, question.path);
    if (size == 0) return false;
    const std::uint64_t sent = process_.sent();
    const auto answer = process_.ask(&request, size, &block, sizeof block, deadline_);
    if (process_.sent() != sent) question.isSent = true;
    return block.isWhole(answer);
}

void HelperProcess::endListing(const ListingQuestion& question) {
    HelperRequest request;
    request.question = HelperQuestion::endOfListing;
    request.listing = question.number;
    if (const auto size = setPath(request, question.path)) process_.tell(&request, size);
}

}  // namespace velmora::linuxhost
