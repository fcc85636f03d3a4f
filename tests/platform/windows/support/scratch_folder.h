// A folder for one test, removed with all that is in it.
#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/windows/system/utf16.h"

namespace velmora::windows {

class ScratchFolder {
  public:
    ScratchFolder() {
        static int count = 0;
        path_ =
            std::filesystem::temp_directory_path() /
            ("velmora-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(count++));
        std::filesystem::create_directories(path_);
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::string path() const { return toUtf8(path_.wstring()); }
    /// The full path of a name in the folder.
    std::string operator/(const std::string& name) const { return path() + '\\' + name; }

  private:
    std::filesystem::path path_;
};

/// All bytes of a file; empty when there is none.
inline std::string contentsOf(const std::string& path) {
    std::ifstream file(std::filesystem::path(systemPath(path)), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace velmora::windows
