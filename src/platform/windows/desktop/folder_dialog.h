// The system's dialog for choosing a folder.
#pragma once

#include "platform/shell32.h"
// After the one above: the system's headers give the names in it to their wide versions.
#include "platform/windows/desktop/unique_items.h"

namespace velmora::windows {

/// Shows the dialog over the program's active window. The chosen place, or null. What
/// `whileOpen` throws is thrown here once the dialog has closed.
UniqueItems showFolderDialog(const BrowseInfo& info);

}  // namespace velmora::windows
