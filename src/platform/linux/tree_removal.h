// Removing everything in a folder and nothing else: no symbolic link is followed, no other mount is
// entered, and nothing is reached by a path that somebody could exchange meanwhile.
#pragma once

#include <functional>
#include <string>

namespace velmora::linuxhost {

/// An open folder, closed with this object.
class OpenFolder {
  public:
    /// Opens the path; with a folder to begin at, the name in it. The last name may be no link.
    explicit OpenFolder(const std::string& path);
    OpenFolder(const OpenFolder& parent, const std::string& name);
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

/// Whether an entry of the folder is to go, by its name.
using Goes = std::function<bool(const std::string& name)>;

/// Removes the entries of the folder with all that is in them, as deep as they go, and goes on with
/// the others where one can't be removed. 0, or the errno of the first failure: EXDEV for a mount
/// in it.
int removeEntries(const OpenFolder& folder, const Goes& goes);

}  // namespace velmora::linuxhost
