#include "platform/data_folder.h"

namespace velmora {

std::string chooseDataFolder(const DataFolders& folders) {
    if (!folders.chosen.empty()) return folders.chosen;
    return folders.isInstalled ? folders.ofUser : folders.program;
}

}  // namespace velmora
