// Removing everything in a folder and nothing else: no symbolic link is followed, no other mount is
// entered, and nothing is reached by a path that somebody could exchange meanwhile.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace velmora::linuxhost {

/// An open folder, closed with this object.
class OpenFolder {
  public:
    /// Opens the path; with a folder to begin at, the name in it. The last name may be no link.
    explicit OpenFolder(const std::string& path);
    OpenFolder(const OpenFolder& parent, const std::string& name);
    OpenFolder(int parentFile, const std::string& name);
    ~OpenFolder();
    OpenFolder(const OpenFolder&) = delete;
    OpenFolder& operator=(const OpenFolder&) = delete;

    int file() const { return file_; }
    bool isOpen() const { return file_ >= 0; }
    /// Why it isn't open, an errno.
    int failure() const { return failure_; }

  private:
    int file_;
    int failure_;
};

/// Where a folder lies. The mount's number tells a second view of the same filesystem apart too;
/// kernels without it give the filesystem alone.
struct Place {
    unsigned major = 0;
    unsigned minor = 0;
    std::uint64_t mount = 0;
    bool operator==(const Place&) const = default;
};

/// 0, or the errno.
int placeOf(int folder, Place& place);
/// The place of what `lookAt` has seen.
Place placeIn(const struct statx& status);

/// Looks at an entry of the folder, a link as itself, without waiting for a server: a mount that
/// doesn't answer is told apart by its place. 0, or the errno.
int lookAt(int folder, const std::string& name, struct statx& status);

/// All names in the folder but "." and "..", added to what is there. 0, or the errno.
int namesIn(const OpenFolder& folder, std::vector<std::string>& names);

/// Whether an entry of the folder is to go, by its name.
using Goes = std::function<bool(const std::string& name)>;

/// Removes the entries of the folder with all that is in them, as deep as they go, and goes on with
/// the others where one can't be removed. 0, or the errno of the first failure: EXDEV for a mount
/// in it.
int removeEntries(const OpenFolder& folder, const Goes& goes);

}  // namespace velmora::linuxhost
