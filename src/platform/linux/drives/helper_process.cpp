#include "platform/linux/drives/helper_process.h"

#include <cstring>

namespace velmora::linuxhost {

std::optional<HelperReply> HelperProcess::ask(HelperQuestion question, const std::string& path) {
    if (path.size() >= PATH_MAX || path.find('\0') != std::string::npos) return std::nullopt;
    HelperRequest request;
    request.question = question;
    std::memcpy(request.path, path.c_str(), path.size() + 1);
    const auto size = HelperRequest::headSize() + path.size() + 1;
    HelperReply reply;
    if (!process_.ask(&request, size, &reply, sizeof reply, deadline_)) return std::nullopt;
    return reply;
}

}  // namespace velmora::linuxhost
