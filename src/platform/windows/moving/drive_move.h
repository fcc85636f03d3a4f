// Moving a file to another drive: copied as a whole first, and only then removed.
#pragma once

#include <windows.h>

#include <string>

#include "platform/windows/entries/opened_entry.h"
#include "platform/windows/paths/exact_path.h"

namespace velmora::windows {

/// A path whose folder is held open.
struct HeldPath {
    ExactPath path;
    OpenedEntry folder;

    const std::wstring& name() const { return path.names.back(); }
};

/// Moves a plain file to a place on another drive at which nothing lies. No program can write to it
/// meanwhile: a file that is open for writing is refused. Only the whole file ever appears under
/// the target's name; until it is whole the copy has a name of its own beside it
/// ("velmora-....part"), left there only by a crash, or when another program holds it open for more
/// than some seconds. The system's error code, 0 for success, also when another program has removed
/// the original by then. After a failure the file is where it was and no copy remains; where that
/// isn't known, the copy remains too.
DWORD moveToOtherDrive(const HeldPath& source, const HeldPath& target,
                       const OpenedEntry::Facts& original);

}  // namespace velmora::windows
