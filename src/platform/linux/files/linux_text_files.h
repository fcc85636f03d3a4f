// Text files on this host's drives.
#pragma once

#include <string>
#include <string_view>

#include "platform/linux/drives/volumes.h"
#include "platform/text_files.h"

namespace velmora::linuxhost {

class LinuxTextFiles final : public TextFiles {
  public:
    explicit LinuxTextFiles(Volumes& volumes) : volumes_(volumes) {}
    void appendLine(const std::string& path, std::string_view text) override;
    std::string readAll(const std::string& path) override;
    using TextFiles::writeOver;
    void writeOver(const std::string& path, std::string_view content, Overwriting how) override;
    double FileLen(const std::string& path) override;
    /// A file that its owner may not write is read-only.
    void remove(const std::string& path) override;

  private:
    /// Error 76 for a path that leads nowhere.
    std::string hostPathOrError(const std::string& path);

    Volumes& volumes_;
};

}  // namespace velmora::linuxhost
