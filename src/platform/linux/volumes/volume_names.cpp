#include "platform/linux/volumes/volume_names.h"

#include <string_view>

#include "base/text.h"

namespace velmora::linuxhost {

namespace {

std::string_view withoutFuse(std::string_view type) {
    for (const std::string_view prefix : {"fuse.", "fuseblk."}) {
        if (type.starts_with(prefix)) return type.substr(prefix.size());
    }
    return type;
}

}  // namespace

std::string fileSystemNameOf(const FileSystemNames& names) {
    const std::string_view version = names.version;
    const bool isFat = std::string_view(names.type) == "vfat" && version.starts_with("FAT");
    return isFat ? std::string(version) : asciiUpperCase(names.type);
}

std::string fileSystemNameOf(const std::string& mountType) {
    const std::string_view type = withoutFuse(mountType);
    if (type == "ntfs-3g" || type == "ntfs3") return "NTFS";
    if (type == "exfat-fuse") return "EXFAT";
    return asciiUpperCase(type);
}

bool putInFront(std::string& buffer, const std::string& text) {
    if (buffer.empty()) return false;
    std::size_t size = 0;
    while (size < text.size()) {
        const std::size_t next = size + characterSize(text, size);
        if (next >= buffer.size()) break;
        size = next;
    }
    buffer.replace(0, size + 1, text.substr(0, size) + '\0');
    return true;
}

}  // namespace velmora::linuxhost
