#include "platform/linux/files/linux_find.h"

#include <fcntl.h>

#include <cerrno>
#include <utility>

#include "base/text.h"
#include "platform/linux/paths/path_names.h"
#include "platform/linux/system/system_errors.h"

namespace velmora::linuxhost {

namespace {

// A listing reports only these failures apart.
std::uint32_t listingCodeOf(int failure) {
    const std::uint32_t result = codeWithoutLoops(failure);
    const bool isApart = result == code::pathNotFound || result == code::accessDenied;
    return isApart ? result : code::generalFailure;
}

// Of the names that come as they are: plain ones and most others.
bool isSameInDrivePath(std::string_view name) {
    bool isPlain = true;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\\' || c == '"') return false;
        if (byte >= 0x80) isPlain = false;
        // The first byte of every stand-in.
        if (byte == 0xEF) return false;
    }
    return isPlain || isValidUtf8(name);
}

}  // namespace

void setDriveName(std::string& text, std::string_view name) {
    if (isSameInDrivePath(name)) {
        text.assign(name);
    } else {
        text = toDriveNames(name);
    }
}

FolderListing::FolderListing(const UniqueFd& place, bool hasDots)
    : reader_(std::make_unique_for_overwrite<FolderReader>()) {
    UniqueFd folder(openat(place.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    failure_ = folder.isOpen() ? reader_->begin(std::move(folder), hasDots, false) : errno;
}

FolderListing::FolderListing(Volumes& volumes, std::string hostPath, bool hasDots)
    : asked_(std::make_unique<AskedListing>(volumes, std::move(hostPath), hasDots)) {}

int FolderListing::readNext(ListedEntry& entry) {
    if (failure_ != 0) return std::exchange(failure_, 0);
    return reader_ ? reader_->next(entry) : asked_->next(entry);
}

std::uint32_t FolderListing::next(FindData& entry) {
    ListedEntry found;
    const int failure = readNext(found);
    if (failure == FolderReader::noMoreEntries) return noMoreFiles;
    if (failure == AskedListing::noAnswer) return code::notReady;
    if (failure != 0) return listingCodeOf(failure);
    entry.dwFileAttributes = found.attributes;
    entry.ftCreationTime = found.created;
    entry.ftLastAccessTime = found.accessed;
    entry.ftLastWriteTime = found.written;
    entry.nFileSize = found.size;
    setDriveName(entry.cFileName, found.name);
    return 0;
}

}  // namespace velmora::linuxhost
