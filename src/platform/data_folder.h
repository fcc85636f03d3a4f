// Where the files lie that the program writes for its user: the settings, the log, what it hands to
// the cleaner and its script for the system's journal.
#pragma once

#include <string>

namespace velmora {

/// A file of this name beside the executable says that the program was installed for all users of
/// the machine, so that its own folder isn't its user's to write.
inline constexpr const char* installedMarker = "velmora.installed";

/// The folders that come into question, as the host writes them, without a separator at the end.
struct DataFolders {
    std::string program;       ///< of the executable
    std::string chosen = {};   ///< by "--settings"; empty without it
    bool isUnknown = false;    ///< one was chosen that is no folder of this machine
    std::string ofUser = {};   ///< the user's own for such files; empty when the user has none
    bool isInstalled = false;  ///< the marker lies beside the executable
};

/// The chosen one; else the user's own for an installed program, empty for a user who has none;
/// else that of the program.
std::string chooseDataFolder(const DataFolders& folders);

enum class DataFolderState {
    ready,
    notMade,    ///< the folder isn't there and can't be made, or it is none
    notFilled,  ///< the settings to begin with can't be laid into it
};

}  // namespace velmora
