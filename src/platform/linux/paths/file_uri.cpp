#include "platform/linux/paths/file_uri.h"

namespace velmora::linuxhost {

std::string escapedPath(std::string_view hostPath) {
    constexpr std::string_view plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string escaped;
    for (const char c : hostPath) {
        if (plain.find(c) != std::string_view::npos) {
            escaped += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            escaped += {'%', digits[byte >> 4], digits[byte & 15]};
        }
    }
    return escaped;
}

std::string fileUri(const std::string& hostPath) {
    return "file://" + escapedPath(hostPath);
}

}  // namespace velmora::linuxhost
