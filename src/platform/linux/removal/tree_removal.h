// Removing everything in a folder and nothing else: no symbolic link is followed, no other mount is
// entered, and nothing is reached by a path that somebody could exchange meanwhile.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <functional>
#include <optional>
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

/// Where a folder lies. The mount's number tells a second view of the same filesystem apart too.
struct Place {
    unsigned major = 0;
    unsigned minor = 0;
    std::uint64_t mount = 0;
    bool operator==(const Place&) const = default;
};

/// 0, or the errno: EXDEV where the system doesn't tell the folder's mount, since then nobody knows
/// what lies in another one.
int placeOf(int folder, Place& place);
/// The number of an open file's mount, as kernels tell it that tell none when looking; nothing
/// where that can't be read.
std::optional<std::uint64_t> mountOfOpened(int file);
/// Whether what `lookAt` has seen can lie at the place. Kernels that tell no mount of what isn't
/// open leave a second view of the same filesystem to be told by `placeOf` once it is.
bool mayLieIn(const struct statx& status, const Place& place);

/// Looks at an entry of the folder, a link as itself, without waiting for a server: a mount that
/// doesn't answer is told apart by its place. 0, or the errno.
int lookAt(int folder, const std::string& name, struct statx& status);

/// The owner's rights to list and change a folder, given where one is missing.
class LentRights {
  public:
    explicit LentRights(const OpenFolder& folder);
    /// For a folder that stays after all: its mode is the old one again.
    void takeBack() const;

  private:
    const OpenFolder& folder_;
    mode_t mode_ = 0;
    bool areLent_ = false;
};

/// All names in the folder but "." and "..", added to what is there. 0, or the errno.
int namesIn(const OpenFolder& folder, std::vector<std::string>& names);

/// Whether an entry of the folder is to go, by its name.
using Goes = std::function<bool(const std::string& name)>;

/// Removes the entries of the folder with all that is in them, as deep as they go, and goes on with
/// the others where one can't be removed. 0, or the errno of the first failure: EXDEV for a mount
/// in it. With `force` folders in it that their owner may not write go too.
int removeEntries(const OpenFolder& folder, const Goes& goes, bool force = true);

}  // namespace velmora::linuxhost
