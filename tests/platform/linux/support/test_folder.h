// A folder for one test, removed with all that is in it.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace velmora::linuxhost {

class TestFolder {
  public:
    TestFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "velmora-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) throw std::filesystem::filesystem_error("mkdtemp", {});
        path_ = name;
    }
    ~TestFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    const std::string& path() const { return path_; }
    std::string operator/(const std::string& name) const { return path_ + '/' + name; }

  private:
    std::string path_;
};

inline std::string contentsOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace velmora::linuxhost
