// A folder that belongs to its user alone.
#pragma once

#include "platform/windows/entries/opened_entry.h"
#include "platform/windows/paths/exact_path.h"

namespace velmora::windows {

enum class WhenMissing { fail, make };

/// Opens the folder, after nobody but the user and the system may look into it any more. While it
/// is open, no other program can rename or remove it. The folder above must be there. The system's
/// error code, 0 for success: `ledThroughLink` for a link in its place, ERROR_INVALID_OWNER for a
/// folder of another user, ERROR_ACCESS_DENIED where the filesystem keeps no permissions.
DWORD openPrivateFolder(const ExactPath& path, WhenMissing whenMissing, OpenedEntry& folder);

}  // namespace velmora::windows
