#include "platform/linux/entries/folder_stack.h"

#include <sys/stat.h>

#include <cerrno>
#include <utility>

namespace velmora::linuxhost {

namespace {

constexpr std::size_t mostOpen = 64;

}  // namespace

const OpenFolder& FolderStack::enter(OpenFolder folder, const EntryIdentity& identity) {
    if (entered_.size() >= mostOpen) entered_[entered_.size() - mostOpen].folder.close();
    entered_.push_back({std::move(folder), identity});
    return entered_.back().folder;
}

int FolderStack::openAbove() {
    if (entered_.size() < 2) return 0;
    Entered& above = entered_[entered_.size() - 2];
    if (above.folder.isOpen()) return 0;
    OpenFolder opened(innermost(), "..");
    struct stat status {};
    if (!opened.isOpen()) return opened.failure();
    if (fstat(opened.fd(), &status) != 0) return errno;
    if (!(identityOf(status) == above.identity)) return ESTALE;
    above.folder = std::move(opened);
    return 0;
}

const OpenFolder& FolderStack::above() const {
    return entered_.size() < 2 ? top_ : entered_[entered_.size() - 2].folder;
}

}  // namespace velmora::linuxhost
