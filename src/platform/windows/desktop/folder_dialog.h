// The system's dialog for choosing a folder.
#pragma once

#include "platform/shell32.h"
// After the one above: the system's headers give the names in it to their wide versions.
#include <windows.h>
// After the one above, which it needs.
#include <shtypes.h>

namespace velmora::windows {

/// Shows the dialog over the program's active window. The chosen place, for the caller to free, or
/// null. What `whileOpen` throws is thrown here once the dialog has closed.
PIDLIST_ABSOLUTE showFolderDialog(const BrowseInfo& info);

}  // namespace velmora::windows
