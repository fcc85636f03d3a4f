// Text files of this machine.
#pragma once

#include <string>
#include <string_view>

#include "platform/text_files.h"

namespace velmora::windows {

class WindowsTextFiles final : public TextFiles {
  public:
    void appendLine(const std::string& path, std::string_view text) override;
    std::string readAll(const std::string& path) override;
    using TextFiles::writeOver;
    void writeOver(const std::string& path, std::string_view content, Overwriting how) override;
    double FileLen(const std::string& path) override;
    void remove(const std::string& path) override;
};

}  // namespace velmora::windows
