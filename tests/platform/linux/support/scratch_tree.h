// A tree with all that removing and moving can meet, and the machine's operations by paths in it.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/linux/desktop/linux_shell32.h"
#include "platform/linux/files/linux_file_system_object.h"
#include "platform/linux/files/linux_kernel32.h"
#include "platform/linux/files/linux_text_files.h"
#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"
#include "support/tree_listing.h"

namespace velmora::linuxhost {

/// In "tree": "work" with files (plain, with blanks and other letters, read-only), a deep folder,
/// and links to a file, to a folder outside, to a folder inside and to nothing; "neighbour" and
/// "outside" that no step should touch; "target", an empty folder; "way", a link to "work".
class ScratchTree : public testing::Test {
  protected:
    ScratchTree() {
        namespace fs = std::filesystem;
        for (const char* folder : {"work/deep/deeper", "work/Zwei Wörter 日本", "neighbour/work",
                                   "outside/precious", "target"})
            fs::create_directories(at(folder));
        for (const char* file :
             {"work/a.txt", "work/two words ö.txt", "work/protected.txt", "work/.hidden",
              "work/deep/b.txt", "work/deep/deeper/c.txt", "work/Zwei Wörter 日本/ü.dat",
              "work/a.txt2", "neighbour/work/a.txt", "outside/precious/jewel", "outside/a.txt"})
            make(file);
        chmod(at("work/protected.txt").c_str(), 0444);
        fs::create_symlink(at("outside/a.txt"), at("work/to a file"));
        fs::create_directory_symlink(at("outside/precious"), at("work/to outside"));
        fs::create_directory_symlink("deep", at("work/to inside"));
        fs::create_symlink("nowhere at all", at("work/dangling"));
        fs::create_directory_symlink("work", at("way"));
    }

    std::string at(const std::string& name) const { return root_ / ("tree/" + name); }
    void make(const std::string& name) { std::ofstream(at(name)) << "content of " << name; }
    TreeListing tree() const { return listTree(root_ / "tree"); }
    std::string drivePath(const std::string& hostPath) {
        return drivePathOf(hostPath, volumes_.roots());
    }
    std::string in(const std::string& name) { return drivePath(at(name)); }

    std::int32_t recycle(const std::string& path) {
        return operate(path, file_operation::allowUndo);
    }
    std::int32_t operate(const std::string& path, std::uint16_t flags) {
        return shell_.SHFileOperationA(
            {.owner = "", .wFunc = file_operation::remove, .pFrom = path + '\0', .fFlags = flags});
    }
    bool move(const std::string& from, const std::string& to) {
        return kernel32_.MoveFileA(from, to) != 0;
    }

    TestFolder root_;
    TestFolder userFolder_;
    OtherUser user_{userFolder_.path()};
    Volumes volumes_;
    LinuxFileSystemObject fso_{volumes_};
    LinuxKernel32 kernel32_{volumes_};
    LinuxTextFiles files_{volumes_};
    LinuxShell32 shell_{volumes_};
};

}  // namespace velmora::linuxhost
