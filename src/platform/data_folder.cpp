#include "platform/data_folder.h"

namespace velmora {

std::string chooseDataFolder(const DataFolders& folders) {
    if (!folders.chosen.empty()) return folders.chosen;
    const bool isOfUser = folders.isInstalled && !folders.ofUser.empty();
    return isOfUser ? folders.ofUser : folders.program;
}

}  // namespace velmora
