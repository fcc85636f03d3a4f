#include "platform/linux/drives/cached_path.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "platform/linux/entries/opened_parent.h"
#include "platform/linux/support/child_process.h"
#include "platform/linux/support/mounting.h"
#include "platform/linux/support/scratch_tree.h"

namespace velmora::linuxhost {
namespace {

class KnownPaths : public ScratchTree {
  protected:
    void SetUp() override {
        look(at("work/a.txt"));
        look(at("work/deep"));
        if (!isKnown(at("work/a.txt"))) {
            std::cout << "skipped: this kernel doesn't say what it has in memory\n";
            GTEST_SKIP() << "this kernel doesn't say what it has in memory";
        }
    }
    /// Whether something is known to lie there without asking a helper.
    static bool isKnown(const std::string& path) {
        Volumes fresh;
        return fresh.statusOf(path) && fresh.helpers().empty();
    }
    /// So that the kernel has it in memory.
    static void look(const std::string& path) {
        struct stat status {};
        stat(path.c_str(), &status);
    }
};

TEST_F(KnownPaths, WhatWasLookedAtIsKnownWithoutAHelper) {
    struct stat expected {};
    stat(at("work/a.txt").c_str(), &expected);
    const auto known = volumes_.statusOf(at("work/a.txt"));
    ASSERT_TRUE(known);
    EXPECT_EQ(known->stx_ino, expected.st_ino);
    EXPECT_EQ(static_cast<off_t>(known->stx_size), expected.st_size);
    EXPECT_EQ(known->stx_mtime.tv_sec, expected.st_mtim.tv_sec);
    EXPECT_NE(known->stx_mask & STATX_BTIME, 0u);
    EXPECT_EQ(volumes_.kindOf(at("work/a.txt")), FileKind::file);
    EXPECT_EQ(volumes_.kindOf(at("work/deep")), FileKind::folder);
    EXPECT_TRUE(OpenedParent(volumes_, at("work/a.txt")).isOpen());
    EXPECT_TRUE(volumes_.helpers().empty());
}

TEST_F(KnownPaths, WhatNobodyLookedAtIsAskedOfItsDrive) {
    EXPECT_EQ(volumes_.kindOf(at("work/never looked at")), FileKind::none);
    EXPECT_FALSE(volumes_.helpers().empty());
}

TEST_F(KnownPaths, WhatIsGoneIsNoLongerThere) {
    std::filesystem::remove(at("work/a.txt"));
    EXPECT_FALSE(isKnown(at("work/a.txt")));
    EXPECT_EQ(volumes_.kindOf(at("work/a.txt")), FileKind::none);
    make("work/a.txt");
    EXPECT_EQ(volumes_.kindOf(at("work/a.txt")), FileKind::file);
}

TEST_F(KnownPaths, ALinkStandsForWhatItPointsTo) {
    look(at("work/to a file"));
    EXPECT_EQ(volumes_.kindOf(at("work/to a file")), FileKind::file);
    EXPECT_EQ(volumes_.kindOf(at("work/to inside")), FileKind::folder);
    EXPECT_EQ(volumes_.kindOf(at("work/dangling")), FileKind::none);
}

TEST_F(KnownPaths, NothingIsKnownOfAnotherFilesystem) {
    std::filesystem::create_symlink("/proc/self/status", at("work/away"));
    look(at("work/away"));
    look("/proc/meminfo");
    EXPECT_FALSE(isKnown(at("work/away")));
    EXPECT_FALSE(isKnown("/proc/meminfo"));
    EXPECT_FALSE(volumes_.openWithoutLinks("/proc").isOpen());
    EXPECT_EQ(volumes_.kindOf(at("work/away")), FileKind::file);
}

TEST_F(KnownPaths, NoPathIsTakenForAShorterOne) {
    EXPECT_FALSE(isKnown(at("work/a.txt") + std::string("\0x", 2)));
    EXPECT_FALSE(volumes_.openQuick(at("work") + std::string("\0x", 2)).isOpen());
    EXPECT_FALSE(openCachedWithoutLinks(at("work") + std::string("\0x", 2)).isOpen());
    EXPECT_FALSE(isKnown(""));
    EXPECT_FALSE(isKnown(at(std::string(5000, 'x'))));
}

TEST_F(KnownPaths, AFolderIsOpenedByAPathWithoutLinksOnly) {
    look(at("way/deep/deeper"));
    EXPECT_TRUE(volumes_.openWithoutLinks(at("work/deep")).isOpen());
    EXPECT_TRUE(volumes_.openWithoutLinks("/").isOpen());
    for (const char* name : {"way", "way/deep", "work/to inside", "work/a.txt", "work/dangling"}) {
        EXPECT_FALSE(volumes_.openWithoutLinks(at(name)).isOpen()) << name;
        EXPECT_FALSE(openCachedWithoutLinks(at(name)).isOpen()) << name;
    }
    EXPECT_TRUE(openCachedWithoutLinks(at("work/deep")).isOpen());
}

TEST_F(KnownPaths, AFolderThatIsExchangedForALinkLeadsNowhere) {
    make("work/deep/next.txt");
    make("outside/precious/next.txt");
    files_.remove(in("work/deep/b.txt"));
    std::filesystem::rename(at("work/deep"), at("work/taken away"));
    std::filesystem::create_directory_symlink(at("outside/precious"), at("work/deep"));
    look(at("work/deep/next.txt"));
    const TreeListing before = tree();
    EXPECT_TRUE(fso_.FileExists(in("work/deep") + "\\next.txt"));
    EXPECT_ANY_THROW(files_.remove(in("work/deep") + "\\next.txt"));
    EXPECT_FALSE(move(in("work/deep") + "\\next.txt", in("target") + "\\next.txt"));
    EXPECT_FALSE(move(in("work/a.txt"), in("work/deep") + "\\a.txt"));
    EXPECT_EQ(tree(), before);
}

TEST_F(KnownPaths, AKernelWithoutTheCallAsksTheDrive) {
    for (const int failure : {ENOSYS, EPERM, EINVAL}) {
        const int result = withoutCall(SYS_openat2, failure, [&] {
            Volumes volumes;
            if (isKnown(at("work/a.txt"))) return 1;
            if (volumes.openWithoutLinks(at("work")).isOpen()) return 2;
            if (openCachedWithoutLinks(at("work")).isOpen()) return 3;
            if (volumes.kindOf(at("work/a.txt")) != FileKind::file) return 4;
            if (volumes.kindOf(at("work/missing")) != FileKind::none) return 5;
            return 0;
        });
        EXPECT_EQ(result, 0) << failure;
    }
}

class KnownMounts : public KnownPaths {
  protected:
    void SetUp() override {
        KnownPaths::SetUp();
        if (IsSkipped()) return;
        if (const std::string reason = whyNoMounting(); !reason.empty()) {
            std::cout << "skipped: " << reason << '\n';
            GTEST_SKIP() << reason;
        }
    }
};

TEST_F(KnownMounts, AMountInMemoryThatIsNoDriveIsKnownToo) {
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=0"));
    std::ofstream(mount.path() + "/file") << "x";
    look(mount.path() + "/file");
    EXPECT_TRUE(isKnown(mount.path() + "/file"));
    EXPECT_TRUE(volumes_.openWithoutLinks(mount.path()).isOpen());
    EXPECT_EQ(volumes_.kindOf(mount.path() + "/file"), FileKind::file);
}

TEST_F(KnownMounts, ADriveInMemoryIsKnownByItsOwnMount) {
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=1m"));
    std::ofstream(mount.path() + "/file") << "x";
    EXPECT_TRUE(isKnown(mount.path() + "/file"));
    mount.unmount();
    EXPECT_FALSE(isKnown(mount.path() + "/file"));
}

}  // namespace
}  // namespace velmora::linuxhost
