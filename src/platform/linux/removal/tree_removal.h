// Removing everything in a folder and nothing else: no symbolic link is followed, no other mount is
// entered, and nothing is reached by a path that somebody could exchange meanwhile.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>

#include "platform/linux/entries/open_folder.h"

namespace velmora::linuxhost {

/// Gives the owner the rights to list and change a folder, where one is missing.
class TemporaryRights {
  public:
    explicit TemporaryRights(const OpenFolder& folder);
    /// For a folder that stays after all: sets its old mode again.
    void restore() const;

  private:
    const OpenFolder& folder_;
    mode_t mode_ = 0;
    bool areGiven_ = false;
};

/// Whether to remove an entry of the folder, by its name.
using EntryFilter = std::function<bool(const std::string& name)>;

/// Removes the entries that the filter accepts, folders with their contents at any depth, and
/// continues with the others where one can't be removed. 0, or the errno of the first failure:
/// EXDEV for a mount in it, ESTALE when folders were moved meanwhile. With `force` folders in it
/// that their owner may not write are removed too. What stays keeps its place and its name.
int removeEntries(const OpenFolder& folder, const EntryFilter& filter, bool force = true);

/// The filter that takes every entry.
bool everyEntry(const std::string& name);

}  // namespace velmora::linuxhost
