#include "platform/linux/entries/own_entry.h"

#include <fcntl.h>
#include <unistd.h>

namespace velmora::linuxhost {

EntryIdentity identityOf(const struct stat& status) {
    return {status.st_dev, status.st_ino};
}

void removeOwn(int folder, const std::string& name, const EntryIdentity& own, bool isFolder) {
    struct stat status {};
    if (fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return;
    if (identityOf(status) == own) unlinkat(folder, name.c_str(), isFolder ? AT_REMOVEDIR : 0);
}

}  // namespace velmora::linuxhost
