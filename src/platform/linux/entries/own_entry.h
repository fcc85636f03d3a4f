// Recognizing an entry that was made here, so that nothing is removed that somebody else has put at
// its name meanwhile.
#pragma once

#include <sys/stat.h>

#include <string>

namespace velmora::linuxhost {

/// Identifies an entry independently of its name.
struct EntryIdentity {
    dev_t device = 0;
    ino_t inode = 0;
    bool operator==(const EntryIdentity&) const = default;
};

EntryIdentity identityOf(const struct stat& status);

/// Removes the file or link, or with `isFolder` the empty folder, at the name if it is that entry;
/// anything else stays.
void removeOwn(int folder, const std::string& name, const EntryIdentity& own,
               bool isFolder = false);

}  // namespace velmora::linuxhost
