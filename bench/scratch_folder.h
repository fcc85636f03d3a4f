// A folder for one benchmark, removed after it.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace velmora::bench {

class ScratchFolder {
  public:
    ScratchFolder() {
        char path[] = "/tmp/velmora-bench-XXXXXX";
        if (mkdtemp(path) == nullptr) {
            std::perror("mkdtemp");
            std::exit(1);
        }
        path_ = path;
    }
    ~ScratchFolder() { std::filesystem::remove_all(path_); }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::string& path() const { return path_; }
    std::string at(const std::string& name) const { return path_ + "/" + name; }

    /// Empty files with the given folder in front of their names, numbered from `first`.
    void fill(const std::string& folder, int first, int count) const {
        for (int i = first; i < first + count; ++i) {
            const std::string name = folder + "/some file of a log " + std::to_string(i) + ".txt";
            const int file = open(name.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644);
            if (file < 0) {
                std::perror(name.c_str());
                std::exit(1);
            }
            close(file);
        }
    }

  private:
    std::string path_;
};

}  // namespace velmora::bench
