// Pipes, sockets and devices are no files: nothing of the program deletes, recycles or opens one.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>

#include "base/errors.h"
#include "platform/linux/support/scratch_tree.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;

class SpecialFiles : public ScratchTree {
  protected:
    SpecialFiles() {
        EXPECT_EQ(mkfifo(at("work/pipe").c_str(), 0600), 0);
        makeSocket(at("work/socket"));
    }

    // Bound from its folder, since the path may be longer than an address can be.
    void makeSocket(const std::string& path) {
        const UniqueFd made(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const fs::path before = fs::current_path();
        fs::current_path(fs::path(path).parent_path());
        std::strcpy(address.sun_path, fs::path(path).filename().c_str());
        EXPECT_EQ(bind(made.get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        fs::current_path(before);
    }

    void expectNoFile(const std::string& name) {
        const std::string path = in(name);
        EXPECT_FALSE(fso_.FileExists(path)) << name;
        EXPECT_FALSE(fso_.FolderExists(path)) << name;
        EXPECT_EQ(errorOf([&] { fso_.GetFile(path); }), error::fileNotFound) << name;
        EXPECT_EQ(errorOf([&] { files_.FileLen(path); }), error::fileNotFound) << name;
    }
    void expectLeftAlone(const std::string& name) {
        const TreeListing before = tree();
        EXPECT_EQ(errorOf([&] { files_.remove(in(name)); }), error::permissionDenied) << name;
        EXPECT_EQ(operate(in(name), 0), 5) << name;
        EXPECT_EQ(recycle(in(name)), 5) << name;
        EXPECT_EQ(shell_.ShellExecuteA("", "open", in(name), "0", "", 1), 2) << name;
        EXPECT_EQ(tree(), before) << name;
    }
};

TEST_F(SpecialFiles, PipesAndSocketsAreNoFilesAndStay) {
    for (const char* name : {"work/pipe", "work/socket"}) {
        expectNoFile(name);
        expectLeftAlone(name);
    }
}

TEST_F(SpecialFiles, ALinkToAPipeIsNoFileButGoesAsTheLinkThatItIs) {
    fs::create_symlink("pipe", at("work/to a pipe"));
    expectNoFile("work/to a pipe");
    const TreeListing before = tree();
    files_.remove(in("work/to a pipe"));
    EXPECT_EQ(tree(), without(before, {"work/to a pipe"}));
}

TEST_F(SpecialFiles, DevicesAreNoFilesAndStay) {
    if (mknod(at("work/null").c_str(), S_IFCHR | 0666, makedev(1, 3)) != 0)
        GTEST_SKIP() << "no device can be made here: " << std::strerror(errno);
    ASSERT_EQ(mknod(at("work/loop").c_str(), S_IFBLK | 0600, makedev(7, 255)), 0);
    for (const char* name : {"work/null", "work/loop"}) {
        expectNoFile(name);
        expectLeftAlone(name);
    }
}

TEST_F(SpecialFiles, TheSystemsOwnDevicesAreNoFilesWhoeverAsks) {
    for (const char* path : {"/dev/null", "/dev/zero", "/dev/tty"}) {
        EXPECT_FALSE(fso_.FileExists(drivePath(path))) << path;
        EXPECT_EQ(errorOf([&] { fso_.GetFile(drivePath(path)); }), error::fileNotFound) << path;
    }
}

TEST_F(SpecialFiles, TheyAreNotAmongTheFilesOfAFolderAndGoWithIt) {
    const auto folder = fso_.GetFolder(in("work"));
    const double files = folder->FilesCount();
    fs::remove(at("work/pipe"));
    fs::remove(at("work/socket"));
    EXPECT_EQ(fso_.GetFolder(in("work"))->FilesCount(), files);
    EXPECT_EQ(mkfifo(at("target/pipe").c_str(), 0600), 0);
    fso_.GetFolder(in("target"))->Delete(true);
    EXPECT_FALSE(fs::exists(at("target")));
}

}  // namespace
}  // namespace velmora::linuxhost
