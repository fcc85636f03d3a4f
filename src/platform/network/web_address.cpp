#include "platform/network/web_address.h"

#include <algorithm>

#include "base/text.h"

namespace velmora::network {

bool isWebAddress(const std::string& url) {
    const std::string scheme = lowerCase(url.substr(0, url.find(':')));
    const bool isClean = std::none_of(url.begin(), url.end(), [](char letter) {
        return static_cast<unsigned char>(letter) <= ' ' || letter == '\x7f';
    });
    return isClean && (scheme == "http" || scheme == "https") &&
           url.compare(scheme.size(), 3, "://") == 0;
}

}  // namespace velmora::network
