#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>

#include "platform/linux/entries/rename_entry.h"
#include "platform/linux/moving/move_elsewhere.h"
#include "platform/linux/support/child_process.h"
#include "platform/linux/support/mounting.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;

TEST_F(LinuxMove, AFileGoesToItsNewPathAndNothingElseChanges) {
    expectMoved("work/a.txt", "target/a.txt");
    expectMoved("work/two words ö.txt", "work/Zwei Wörter 日本/neu ß.txt");
    expectMoved("work/protected.txt", "target/protected.txt");
}

TEST_F(LinuxMove, AFolderGoesWithAllThatIsInIt) {
    expectMoved("work/deep", "target/deep");
    expectMoved("work/Zwei Wörter 日本", "target/deep/x y");
    EXPECT_TRUE(move(in("target/deep") + '\\', in("work/deep") + '\\'));
}

TEST_F(LinuxMove, ALinkGoesAsTheLinkThatItIs) {
    for (const char* link : {"to a file", "to outside", "dangling"})
        expectMoved(std::string("work/") + link, std::string("target/") + link);
}

TEST_F(LinuxMove, NothingIsReplaced) {
    for (const char* there : {"outside/a.txt", "target", "work/to outside", "work/dangling",
                              "work/protected.txt", "work/a.txt"}) {
        expectRefused(in("work/a.txt"), in(there), 183);
        expectRefused(in("work/to a file"), in(there), 183);
        expectRefused(in("work/deep"), in(there), 183);
    }
    expectRefused(in("work/deep"), in("work/deep"), 183);
}

TEST_F(LinuxMove, TheRootOfADriveIsAlwaysThere) {
    expectRefused(in("work/a.txt"), "C:\\", 183);
    expectRefused(in("work/a.txt"), "C:", 183);
    expectRefused(in("work/deep"), "c:\\", 183);
}

TEST_F(LinuxMove, WhatIsMissingIsReported) {
    expectRefused(in("work/missing"), in("target/x"), 2);
    expectRefused(in("missing/a.txt"), in("target/x"), 2);
    expectRefused("Q:\\a.txt", in("target/x"), 2);
    expectRefused("", in("target/x"), 2);
    expectRefused(in("work/a.txt"), in("missing/x"), 3);
    expectRefused(in("work/a.txt"), in("outside/a.txt") + "\\x", 3);
    expectRefused(in("work/a.txt"), "Q:\\x", 3);
    expectRefused(in("work/a.txt"), "", 3);
}

TEST_F(LinuxMove, OnlyAFoldersPathMayEndInASeparator) {
    expectRefused(in("work/a.txt") + '\\', in("target/x"), 2);
    expectRefused(in("work/a.txt"), in("target/x") + '\\', 3);
    expectRefused(in("work/a.txt"), in("target") + '\\', 183);
}

TEST_F(LinuxMove, NoLinkIsFollowedOnTheWayToEitherPath) {
    expectRefused(in("way/a.txt"), in("target/x"), 5);
    expectRefused(in("work/to outside/jewel"), in("target/x"), 5);
    expectRefused(in("work/a.txt"), in("work/to outside/x"), 5);
    expectRefused(in("work/a.txt"), in("way/x"), 5);
}

TEST_F(LinuxMove, AFolderDoesNotGoIntoItself) {
    expectRefused(in("work/deep"), in("work/deep/deeper/x"), 87);
}

TEST_F(LinuxMove, TheRootOfADriveDoesNotGo) {
    expectRefused("C:\\", in("target/x"), 5);
}

TEST_F(LinuxMove, ANameThatIsTooLongIsRefused) {
    expectRefused(in("work/a.txt"), in("target/" + std::string(256, 'n')), 206);
}

TEST_F(LinuxMove, WithoutTheRightToItNothingMoves) {
    if (const std::string reason = whyNotNobody(); !reason.empty()) GTEST_SKIP() << reason;
    giveToNobody(root_.path());
    const auto tryMove = [&](const std::string& from, const std::string& to) {
        return asNobody([&] {
            Volumes volumes;
            LinuxKernel32 kernel32(volumes);
            if (kernel32.MoveFileA(in(from), in(to)) != 0) return 90;
            return static_cast<int>(kernel32.GetLastError());
        });
    };
    for (const char* folder : {"work", "target"}) {
        ASSERT_EQ(chmod(at(folder).c_str(), 0555), 0);
        const TreeListing before = tree();
        EXPECT_EQ(tryMove("work/a.txt", "target/x"), 5) << folder;
        EXPECT_EQ(tryMove("work/deep", "target/x"), 5) << folder;
        EXPECT_EQ(tree(), before) << folder;
        ASSERT_EQ(chmod(at(folder).c_str(), 0755), 0);
    }
    EXPECT_EQ(tryMove("work/a.txt", "target/x"), 90);
}

TEST_F(LinuxMove, AFilesystemThatAlwaysReplacesIsHeldOffByAnEntryOfOnesOwn) {
    for (const int failure : {EINVAL, ENOSYS}) {
        const int result = withoutCall(SYS_renameat2, failure, [&] {
            Volumes volumes;
            LinuxKernel32 kernel32(volumes);
            const auto code = [&](const std::string& from, const std::string& to) {
                return kernel32.MoveFileA(in(from), in(to)) != 0
                           ? 90
                           : static_cast<int>(kernel32.GetLastError());
            };
            const TreeListing before = tree();
            if (code("work/a.txt", "outside/a.txt") != 183) return 1;
            if (code("work/deep", "neighbour") != 183) return 2;
            if (code("work/deep", "work/deep/deeper/x") != 87) return 3;
            if (code("work/missing", "target/x") != 2) return 4;
            if (tree() != before) return 5;
            if (code("work/a.txt", "target/a.txt") != 90) return 6;
            if (code("work/deep", "target/deep") != 90) return 7;
            if (code("work/to outside", "target/link") != 90) return 8;
            const TreeListing expected = moved(
                moved(moved(before, "work/a.txt", "target/a.txt"), "work/deep", "target/deep"),
                "work/to outside", "target/link");
            if (tree() != expected) return 9;
            // Back, for the next failure.
            if (code("target/a.txt", "work/a.txt") != 90) return 10;
            if (code("target/deep", "work/deep") != 90) return 11;
            return code("target/link", "work/to outside") == 90 ? 0 : 12;
        });
        EXPECT_EQ(result, 0) << failure;
    }
}

TEST_F(MoveElsewhere, AFileGoesAsACopyWithItsTimesAndMode) {
    std::ofstream(at("work/big"), std::ios::binary) << std::string(3'000'000, 'b') << "end";
    chmod(at("work/big").c_str(), 0640);
    const timespec times[] = {{1'000'000'000, 500'000'000}, {946'684'800, 123'456'700}};
    ASSERT_EQ(utimensat(AT_FDCWD, at("work/big").c_str(), times, 0), 0);
    const bool hasAttribute = setxattr(at("work/big").c_str(), "user.note", "kept", 4, 0) == 0;
    const TreeListing before = tree();
    const std::string content = contentsOf(at("work/big"));
    ASSERT_TRUE(move(in("work/big"), there("größer"))) << kernel32_.GetLastError();
    EXPECT_EQ(tree(), without(before, {"work/big"}));
    EXPECT_EQ(contentsOf(elsewhere_ + "/größer"), content);
    EXPECT_EQ(listTree(elsewhere_).size(), 2u);
    struct stat status {};
    ASSERT_EQ(stat((elsewhere_ + "/größer").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
    EXPECT_EQ(status.st_mtim.tv_sec, 946'684'800);
    EXPECT_EQ(status.st_mtim.tv_nsec, 123'456'700);
    char note[5] = {};
    const auto size = getxattr((elsewhere_ + "/größer").c_str(), "user.note", note, 4);
    EXPECT_TRUE(!hasAttribute || size < 0 || std::string(note) == "kept");
}

TEST_F(MoveElsewhere, AReadOnlyAnEmptyAndAHiddenFileGoToo) {
    std::ofstream(at("work/empty")).flush();
    for (const char* name : {"protected.txt", ".hidden", "two words ö.txt", "empty"}) {
        const TreeListing before = tree();
        const std::string path = std::string("work/") + name;
        EXPECT_TRUE(move(in(path), there(name))) << kernel32_.GetLastError();
        EXPECT_EQ(listTree(elsewhere_)[name], before.at(path));
        EXPECT_EQ(tree(), without(before, {path}));
    }
}

TEST_F(MoveElsewhere, HolesOfAFileStayHoles) {
    const std::string path = at("work/sparse");
    std::ofstream(path) << "start";
    ASSERT_EQ(truncate(path.c_str(), 8 << 20), 0);
    {
        std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(4 << 20);
        file << "middle";
    }
    const std::string content = contentsOf(path);
    ASSERT_TRUE(move(in("work/sparse"), there("sparse")));
    EXPECT_EQ(contentsOf(elsewhere_ + "/sparse") == content, true);
    struct stat status {};
    ASSERT_EQ(stat((elsewhere_ + "/sparse").c_str(), &status), 0);
    EXPECT_LT(status.st_blocks * 512, 128 << 10);
}

TEST_F(MoveElsewhere, ALinkGoesAsALinkAndWhatItPointsToStays) {
    for (const char* link : {"to a file", "to outside", "to inside", "dangling"}) {
        const TreeListing before = tree();
        const std::string path = std::string("work/") + link;
        EXPECT_TRUE(move(in(path), there(link)));
        EXPECT_EQ(listTree(elsewhere_)[link], before.at(path));
        EXPECT_EQ(tree(), without(before, {path}));
    }
}

TEST_F(MoveElsewhere, AFolderStaysWhereItIs) {
    expectRefusedThere(in("work/deep"), there("deep"), 17);
    expectRefusedThere(in("target"), there("target"), 17);
}

TEST_F(MoveElsewhere, APipeStaysWhereItIs) {
    ASSERT_EQ(mkfifo(at("work/pipe").c_str(), 0600), 0);
    expectRefusedThere(in("work/pipe"), there("pipe"), 17);
}

TEST_F(MoveElsewhere, AFileThatSomebodyStillWritesStays) {
    std::ofstream writer(at("work/a.txt"), std::ios::app);
    writer << "more" << std::flush;
    expectRefusedThere(in("work/a.txt"), there("x"), 32);
    writer.close();
    EXPECT_TRUE(move(in("work/a.txt"), there("x")));
    EXPECT_EQ(contentsOf(elsewhere_ + "/x"), "content of work/a.txtmore");
}

TEST_F(MoveElsewhere, NothingThereIsReplaced) {
    fs::create_directory(elsewhere_ + "/folder");
    fs::create_symlink("nowhere", elsewhere_ + "/link");
    for (const char* name : {"there already", "folder", "link"}) {
        expectRefusedThere(in("work/a.txt"), there(name), 183);
        expectRefusedThere(in("work/to a file"), there(name), 183);
        expectRefusedThere(in("work/deep"), there(name), 183);
    }
}

TEST_F(MoveElsewhere, WhereACallFailsEverythingStaysAsItWas) {
    const std::pair<long, int> failures[] = {
        {SYS_read, EIO},         {SYS_write, ENOSPC},    {SYS_write, EIO},
        {SYS_ftruncate, ENOSPC}, {SYS_fchmod, EIO},      {SYS_utimensat, EIO},
        {SYS_fsync, EIO},        {SYS_fsync, ENOSPC},    {SYS_renameat2, EIO},
        {SYS_renameat2, EACCES}, {SYS_renameat2, ENOSPC}};
    for (const auto& [call, failure] : failures) expectLeftAlone(call, failure, "work/a.txt");
    expectLeftAlone(SYS_symlinkat, ENOSPC, "work/to a file");
    expectLeftAlone(SYS_symlinkat, EPERM, "work/to a file");
    expectLeftAlone(SYS_readlinkat, EIO, "work/to outside");
    expectLeftAlone(SYS_close, EIO, "work/a.txt");
    const std::string path = at("work/a.txt");
    if (setxattr(path.c_str(), "user.note", "kept", 4, 0) != 0) return;
    for (const int failure : {ENOSPC, EDQUOT, EIO})
        expectLeftAlone(SYS_fsetxattr, failure, "work/a.txt");
}

TEST_F(MoveElsewhere, WhereTheSourceMayNotBeRemovedNoCopyStays) {
    if (const std::string reason = whyNotNobody(); !reason.empty()) GTEST_SKIP() << reason;
    giveToNobody(root_.path());
    giveToNobody(elsewhere_);
    const auto tryMove = [&] {
        return asNobody([&] {
            Volumes volumes;
            LinuxKernel32 kernel32(volumes);
            if (kernel32.MoveFileA(in("work/a.txt"), there("x")) != 0) return 90;
            return static_cast<int>(kernel32.GetLastError());
        });
    };
    const TreeListing beforeThere = listTree(elsewhere_);
    // A folder that may not be written, and one where only a file's owner may remove it.
    ASSERT_EQ(chmod(at("work").c_str(), 0555), 0);
    TreeListing before = tree();
    EXPECT_EQ(tryMove(), 5);
    EXPECT_EQ(tree(), before);
    EXPECT_EQ(listTree(elsewhere_), beforeThere);
    ASSERT_EQ(chown(at("work").c_str(), 0, 0), 0);
    ASSERT_EQ(chown(at("work/a.txt").c_str(), 0, 0), 0);
    ASSERT_EQ(chmod(at("work").c_str(), 01777), 0);
    before = tree();
    EXPECT_EQ(tryMove(), 5);
    EXPECT_EQ(tree(), before);
    EXPECT_EQ(listTree(elsewhere_), beforeThere);
    // A target that may not be written.
    ASSERT_EQ(chown(at("work/a.txt").c_str(), 65534, 65534), 0);
    ASSERT_EQ(chmod(elsewhere_.c_str(), 0555), 0);
    EXPECT_EQ(tryMove(), 5);
    EXPECT_EQ(tree(), before);
    EXPECT_EQ(listTree(elsewhere_), beforeThere);
    ASSERT_EQ(chmod(elsewhere_.c_str(), 0755), 0);
    EXPECT_EQ(tryMove(), 90);
}

class MoveToADrive : public MountingTest {
  protected:
    TestFolder here_;
};

TEST_F(MoveToADrive, AFullDriveTakesNothingAndKeepsNothingOfIt) {
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=64k"));
    const std::string drive = newDrive();
    Kernel32& kernel32 = machine_->platform().kernel32;
    std::ofstream(here_ / "big") << std::string(100'000, 'b');
    std::ofstream(here_ / "small") << "small";
    const TreeListing before = listTree(here_.path());
    const std::string big = machine_->toDrivePath(here_ / "big");
    EXPECT_EQ(kernel32.MoveFileA(big, drive + "\\big"), 0);
    EXPECT_EQ(kernel32.GetLastError(), 112u);
    EXPECT_EQ(listTree(here_.path()), before);
    EXPECT_EQ(listTree(mount.path()), TreeListing{});
    struct statvfs space {};
    ASSERT_EQ(statvfs(mount.path().c_str(), &space), 0);
    EXPECT_EQ(space.f_bfree, space.f_blocks);
    const std::string small = machine_->toDrivePath(here_ / "small");
    EXPECT_EQ(kernel32.MoveFileA(small, drive + '\\'), 0);
    EXPECT_EQ(kernel32.GetLastError(), 183u);
    EXPECT_EQ(kernel32.MoveFileA(small, drive + "\\small"), 1);
    EXPECT_EQ(listTree(mount.path()), (TreeListing{{"small", "file 5 bytes: small"}}));
    EXPECT_EQ(listTree(here_.path()), without(before, {"small"}));
}

TEST_F(MoveToADrive, AReadOnlyDriveTakesNothing) {
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=64k"));
    const std::string drive = newDrive();
    ASSERT_EQ(::mount("tmpfs", mount.path().c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, "size=64k"),
              0);
    std::ofstream(here_ / "file") << "x";
    const std::string file = machine_->toDrivePath(here_ / "file");
    Kernel32& kernel32 = machine_->platform().kernel32;
    EXPECT_EQ(kernel32.MoveFileA(file, machine_->toDrivePath(mount.path() + "/file")), 0);
    EXPECT_EQ(kernel32.GetLastError(), 5u);
    EXPECT_TRUE(fs::exists(here_ / "file"));
}

TEST_F(MoveToADrive, AMountPointStaysWhereItIs) {
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=64k"));
    Kernel32& kernel32 = machine_->platform().kernel32;
    const std::string to = machine_->toDrivePath(here_ / "x");
    EXPECT_EQ(kernel32.MoveFileA(newDrive() + '\\', to), 0);
    EXPECT_EQ(kernel32.GetLastError(), 5u);
}

}  // namespace
}  // namespace velmora::linuxhost
