#include "monitor/dropped_folders.h"

#include <algorithm>

#include "alerts/system/question_in_front.h"

namespace velmora {

namespace {

using Paths = std::vector<std::string>;

// As many as a box shows well.
constexpr std::size_t mostNamed = 10;

void addOnce(Paths& paths, const std::string& path) {
    if (std::find(paths.begin(), paths.end(), path) == paths.end()) paths.push_back(path);
}

std::string named(const Paths& folders) {
    std::string lines;
    const std::size_t count = std::min(folders.size(), mostNamed);
    for (std::size_t i = 0; i < count; ++i) lines += "\r\n" + folders[i];
    const std::size_t rest = folders.size() - count;
    if (rest > 0) lines += "\r\nand " + std::to_string(rest) + " more";
    return lines;
}

}  // namespace

bool DroppedFolders::mayTake(const Paths& foldersOfFiles) {
    if (foldersOfFiles.empty()) return false;
    const bool several = foldersOfFiles.size() > 1;
    return askInFront(stayOnTop_, host_,
                      {.text = "Only drives and folders can be watched, not files.\r\nAdd the " +
                               std::string(several ? "folders" : "folder") +
                               " of what was dropped instead?\r\n" + named(foldersOfFiles),
                       .icon = BoxIcon::question,
                       .buttons = BoxButtons::yesNo}) == BoxAnswer::yes;
}

std::vector<std::string> DroppedFolders::toWatch(const Paths& paths) {
    Paths asDropped;
    Paths withFolders;
    Paths foldersOfFiles;
    for (const std::string& path : paths) {
        const bool isFile = fso_.FileExists(path);
        const std::string folder = isFile ? parentFolderOf(path) : path;
        if (isFile) {
            addOnce(foldersOfFiles, folder);
        } else {
            addOnce(asDropped, path);
        }
        addOnce(withFolders, folder);
    }
    return mayTake(foldersOfFiles) ? withFolders : asDropped;
}

}  // namespace velmora
