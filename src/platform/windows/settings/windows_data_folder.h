// The folder with what the program saves, on this host. Paths have no back-slash at the end.
#pragma once

#include <string>

#include "platform/data_folder.h"

namespace velmora::windows {

/// The folders that come into question for a program in the folder `program`; `chosen` is the one
/// that was typed, empty for none.
DataFolders dataFoldersOf(const std::string& program, const std::string& chosen);

/// Makes the folder, and the settings in it, where they are missing.
DataFolderState prepareDataFolder(const DataFolders& folders);

}  // namespace velmora::windows
