// What can be watched of the paths that the user drops on the watch list.
#pragma once

#include <string>
#include <vector>

#include "alerts/ports.h"
#include "platform/file_system_object.h"
#include "platform/host.h"

namespace velmora {

class DroppedFolders {
  public:
    DroppedFolders(FileSystemObject& fso, Host& host, StayOnTop& stayOnTop)
        : fso_(fso), host_(host), stayOnTop_(stayOnTop) {}

    /// The dropped paths in their order, each once. Of files, which can't be watched, one question
    /// offers the folders, and No leaves them out.
    std::vector<std::string> toWatch(const std::vector<std::string>& paths);

  private:
    bool mayTake(const std::vector<std::string>& foldersOfFiles);

    FileSystemObject& fso_;
    Host& host_;
    StayOnTop& stayOnTop_;
};

}  // namespace velmora
