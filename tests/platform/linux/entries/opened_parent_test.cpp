#include "platform/linux/entries/opened_parent.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <functional>

#include "platform/linux/support/child_process.h"
#include "platform/linux/support/scratch_tree.h"
#include "platform/platform.h"

namespace velmora::linuxhost {
namespace {

class OpenedParentTest : public ScratchTree {
  protected:
    int failureAt(const std::string& name) { return OpenedParent(volumes_, at(name)).failure(); }
};

TEST_F(OpenedParentTest, TheFolderOfAPathIsOpenedAndTheNameKept) {
    for (const char* name : {"work/a.txt", "work/dangling", "work/not there", "work/to outside"}) {
        const OpenedParent parent(volumes_, at(name));
        ASSERT_TRUE(parent.isOpen()) << name;
        EXPECT_EQ(parent.name(), std::string(name).substr(5));
    }
    struct stat status {};
    EXPECT_EQ(OpenedParent(volumes_, at("work/a.txt")).readStatus(status), 0);
    EXPECT_TRUE(S_ISREG(status.st_mode));
    EXPECT_EQ(OpenedParent(volumes_, at("work/to outside")).readStatus(status), 0);
    EXPECT_TRUE(S_ISLNK(status.st_mode));
    EXPECT_EQ(OpenedParent(volumes_, at("work/not there")).readStatus(status), ENOENT);
}

TEST_F(OpenedParentTest, ALinkAnywhereOnTheWayIsRefused) {
    EXPECT_EQ(failureAt("work/to outside/jewel"), ELOOP);
    EXPECT_EQ(failureAt("way/a.txt"), ELOOP);
    EXPECT_EQ(failureAt("way/deep/deeper/c.txt"), ELOOP);
}

TEST_F(OpenedParentTest, WhatIsMissingOrNoFolderIsReported) {
    EXPECT_EQ(failureAt("missing/a.txt"), ENOENT);
    EXPECT_EQ(failureAt("work/a.txt/b"), ENOENT);
    EXPECT_EQ(failureAt("work/dangling/b"), ENOENT);
}

TEST_F(OpenedParentTest, TheRootOfADriveLiesInNoFolder) {
    EXPECT_EQ(OpenedParent(volumes_, "/").failure(), EBUSY);
    EXPECT_EQ(OpenedParent(volumes_, "/tmp").failure() == EBUSY, drivePath("/tmp").size() == 3);
}

TEST_F(OpenedParentTest, AKernelWithoutTheCallIsWalkedNameByName) {
    for (const int failure : {ENOSYS, EPERM}) {
        const int result = withoutCall(SYS_openat2, failure, [&] {
            Volumes volumes;
            struct stat status {};
            if (OpenedParent(volumes, at("work/deep/deeper/c.txt")).readStatus(status) != 0)
                return 1;
            if (OpenedParent(volumes, at("way/a.txt")).failure() != ELOOP) return 2;
            if (OpenedParent(volumes, at("way/deep/deeper/c.txt")).failure() != ELOOP) return 3;
            if (OpenedParent(volumes, at("work/to outside/jewel")).failure() != ELOOP) return 4;
            if (!OpenedParent(volumes, "/etc").isOpen()) return 5;
            return 0;
        });
        EXPECT_EQ(result, 0);
    }
    int failure = 0;
    EXPECT_FALSE(walkWithoutLinks(at("missing/x"), failure).isOpen());
    EXPECT_EQ(failure, ENOENT);
    EXPECT_FALSE(walkWithoutLinks(at("work/a.txt"), failure).isOpen());
    EXPECT_EQ(failure, ENOTDIR);
}

TEST_F(OpenedParentTest, AHostPathIsMappedToWhereItReallyLies) {
    const auto machine = openMachine();
    const auto mapped = [&](const std::string& path) { return machine->toDrivePath(path); };
    EXPECT_EQ(mapped(at("way/a.txt")), in("work/a.txt"));
    EXPECT_EQ(mapped(at("way/to inside/deeper")), in("work/deep/deeper"));
    EXPECT_EQ(mapped(at("work/to outside/jewel")), in("outside/precious/jewel"));
    EXPECT_EQ(mapped(at("way/deep/../a.txt")), in("work/a.txt"));
    EXPECT_EQ(mapped(at("way/new file")), in("work/new file"));
}

TEST_F(OpenedParentTest, ATypedDrivePathIsMappedToWhereItReallyLies) {
    const auto machine = openMachine();
    for (const auto& typed :
         {std::function([&](const std::string& path) { return fso_.WithoutLinks(path); }),
          std::function([&](const std::string& path) { return machine->toDrivePath(path); })}) {
        EXPECT_EQ(typed(in("way") + "\\a.txt"), in("work/a.txt"));
        EXPECT_EQ(typed(in("way") + "/to inside\\deeper"), in("work/deep/deeper"));
        EXPECT_EQ(typed(in("work/to outside") + "\\new"), in("outside/precious/new"));
    }
    // A path of this machine can be typed too.
    EXPECT_EQ(fso_.WithoutLinks(at("way/a.txt")), in("work/a.txt"));
}

TEST_F(OpenedParentTest, ATypedPathWithoutLinksStaysAsItIsWritten) {
    for (const std::string& path :
         {in("work") + "\\\\deep/./b.txt", in("work/to outside"), in("work/dangling"),
          in("missing") + "\\x\\", std::string("Q:\\x"), std::string("c:\\"), std::string()})
        EXPECT_EQ(fso_.WithoutLinks(path), path);
}

TEST_F(OpenedParentTest, ALinkItselfKeepsItsPath) {
    const auto machine = openMachine();
    for (const char* name : {"way", "work/to outside", "work/to a file", "work/dangling"})
        EXPECT_EQ(machine->toDrivePath(at(name)), in(name));
    EXPECT_EQ(machine->toDrivePath(at("way/")), in("way"));
    EXPECT_EQ(machine->toDrivePath(at("missing/file")), in("missing/file"));
    EXPECT_EQ(machine->toDrivePath("/"), "C:\\");
}

}  // namespace
}  // namespace velmora::linuxhost
