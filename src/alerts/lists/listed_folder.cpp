#include "alerts/lists/listed_folder.h"

#include "base/runtime_error.h"

namespace velmora {

std::unique_ptr<Folder> folderToDelete(FileSystemObject& fso, const std::string& path) {
    auto folder = fso.GetFolder(path);
    // A whole drive must not be deleted to free space, even if it is in the list.
    if (folder->ParentFolder().empty()) throw RuntimeError(error::permissionDenied);
    return folder;
}

std::optional<double> contentToDelete(Folder& folder) {
    const double bytes = folder.Size();
    if (bytes <= 0 || folder.FilesCount() <= 0) return std::nullopt;
    return bytes;
}

}  // namespace velmora
