// The folder with what the program saves, on this host. Paths are those of the host, without a
// slash at the end.
#pragma once

#include <string>

#include "platform/data_folder.h"

namespace velmora::linuxhost {

/// The folders that come into question for a program in the folder `program`; `chosen` is the one
/// that was typed, as a path of the host, empty for none. Links in it are resolved as far as it is
/// there.
DataFolders dataFoldersOf(const std::string& program, const std::string& chosen);

/// Makes the folder, and the settings in it, where they are missing.
DataFolderState prepareDataFolder(const DataFolders& folders);

}  // namespace velmora::linuxhost
