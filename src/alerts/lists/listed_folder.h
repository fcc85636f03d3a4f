// Folders among the specified files, which are deleted with all that is in them.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/file_system_object.h"

namespace velmora {

/// The listed folder that is to be deleted. Error 70 when it is the root of a drive, before
/// anything in it is looked at; error 76 when there is no such folder.
std::unique_ptr<Folder> folderToDelete(FileSystemObject& fso, const std::string& path);

/// The bytes that deleting the folder frees; nothing for an empty one, which stays.
std::optional<double> contentToDelete(Folder& folder);

}  // namespace velmora
