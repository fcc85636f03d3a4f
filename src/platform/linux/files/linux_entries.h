// Properties of files and folders of this host, and the removal of folders.
#pragma once

#include <memory>
#include <string>

#include "platform/file_system_object.h"
#include "platform/linux/drives/volumes.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

/// The paths are the same one, of a drive and of the host; something was there a moment ago. The
/// volumes must outlive the entries. `known` is what they gave for the folder as one that is known.
std::unique_ptr<File> makeFile(Volumes& volumes, std::string path, std::string hostPath);
std::unique_ptr<Folder> makeFolder(Volumes& volumes, std::string path, std::string hostPath,
                                   UniqueFd known = {});

/// What the shell would call a file of that name: "TXT File", "File" without an extension.
std::string typeOfName(const std::string& name);

}  // namespace velmora::linuxhost
