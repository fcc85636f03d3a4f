#include "platform/linux/removal/tree_removal.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "platform/linux/removal/folder_removal.h"
#include "platform/linux/support/child_process.h"
#include "platform/linux/support/mounting.h"
#include "platform/linux/support/test_folder.h"
#include "platform/linux/support/tree_listing.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;
using Listing = std::set<std::string>;

class TreeRemoval : public testing::Test {
  protected:
    TreeRemoval() {
        fs::create_directories(scratch_ / "outside/folder");
        fs::create_directory(scratch_ / "in");
        makeFile("outside/file");
        makeFile("outside/folder/file");
        outside_ = listingOf(scratch_ / "outside");
    }

    void makeFile(const std::string& name) { std::ofstream(scratch_ / name) << "x"; }
    int removeAll(const EntryFilter& filter = everyEntry) {
        return removeEntries(OpenFolder(scratch_ / "in"), filter);
    }
    Listing left() { return listingOf(scratch_ / "in"); }
    Listing outside() { return listingOf(scratch_ / "outside"); }

    TestFolder scratch_;
    Listing outside_;
};

TEST_F(TreeRemoval, RemovesWhatIsInTheFolderAndKeepsTheFolder) {
    fs::create_directories(scratch_ / "in/a/b/empty");
    makeFile("in/file");
    makeFile("in/.hidden");
    makeFile("in/a/b/two words ö\n");
    ASSERT_EQ(mkfifo((scratch_ / "in/a/pipe").c_str(), 0600), 0);
    EXPECT_EQ(removeAll(), 0);
    EXPECT_EQ(left(), Listing{});
    EXPECT_TRUE(fs::is_directory(scratch_ / "in"));
}

TEST_F(TreeRemoval, LinksGoAndWhatTheyPointToStays) {
    fs::create_directory(scratch_ / "in/a");
    fs::create_directory_symlink(scratch_ / "outside", scratch_ / "in/link");
    fs::create_directory_symlink("../../outside/folder", scratch_ / "in/a/link");
    fs::create_symlink(scratch_ / "outside/file", scratch_ / "in/a/to file");
    fs::create_symlink("nowhere", scratch_ / "in/broken");
    EXPECT_EQ(removeAll(), 0);
    EXPECT_EQ(left(), Listing{});
    EXPECT_EQ(outside(), outside_);
}

TEST_F(TreeRemoval, AFolderIsNotOpenedThroughALink) {
    fs::create_directory_symlink(scratch_ / "outside", scratch_ / "link");
    EXPECT_FALSE(OpenFolder(scratch_ / "link").isOpen());
    EXPECT_NE(OpenFolder(scratch_ / "link").failure(), 0);
    const OpenFolder top(scratch_.path());
    EXPECT_FALSE(OpenFolder(top, "link").isOpen());
    EXPECT_FALSE(OpenFolder(top, "outside/file").isOpen());
    EXPECT_TRUE(OpenFolder(top, "outside").isOpen());
    EXPECT_EQ(OpenFolder(top, "missing").failure(), ENOENT);
}

TEST_F(TreeRemoval, OnlyWhatIsToGoGoes) {
    makeFile("in/a");
    makeFile("in/b");
    fs::create_directory(scratch_ / "in/c");
    makeFile("in/c/b");
    EXPECT_EQ(removeAll([](const std::string& name) { return name != "b"; }), 0);
    EXPECT_EQ(left(), Listing{"b"});
}

TEST_F(TreeRemoval, WhatIsGoneBeforeItsTurnIsNoFailure) {
    for (const char* name : {"in/a", "in/b", "in/c"}) makeFile(name);
    EXPECT_EQ(removeAll([this](const std::string&) {
                  fs::remove(scratch_ / "in/b");
                  return true;
              }),
              0);
    EXPECT_EQ(left(), Listing{});
}

// The limit on open files, while this object is there.
class OpenFilesLimit {
  public:
    explicit OpenFilesLimit(rlim_t most) {
        getrlimit(RLIMIT_NOFILE, &before_);
        const rlimit lower{most, before_.rlim_max};
        setrlimit(RLIMIT_NOFILE, &lower);
    }
    ~OpenFilesLimit() { setrlimit(RLIMIT_NOFILE, &before_); }
    OpenFilesLimit(const OpenFilesLimit&) = delete;
    OpenFilesLimit& operator=(const OpenFilesLimit&) = delete;

  private:
    rlimit before_{};
};

// Folders in one another, each with a file.
void makeDeep(const std::string& top, int levels) {
    int folder = open(top.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (int level = 0; level < levels; ++level) {
        ASSERT_EQ(mkdirat(folder, "deeper", 0700), 0);
        const int file = openat(folder, "file", O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        close(file);
        const int next = openat(folder, "deeper", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        close(folder);
        folder = next;
    }
    close(folder);
}

TEST_F(TreeRemoval, ItGoesAsDeepAsTheFoldersDo) {
    makeDeep(scratch_ / "in", 500);
    const OpenFilesLimit limit(200);
    EXPECT_EQ(removeAll(), 0);
    EXPECT_EQ(left(), Listing{});
}

TEST_F(TreeRemoval, NothingIsRenamedOnTheWay) {
    makeDeep(scratch_ / "in", 200);
    for (const long call : {SYS_renameat2, SYS_renameat})
        EXPECT_EQ(withoutCall(call, EIO, [&] { return removeAll(); }), 0);
    EXPECT_EQ(left(), Listing{});
}

TEST_F(TreeRemoval, WhatStaysFarDownKeepsItsPlace) {
    if (const std::string reason = whyNoMounting(); !reason.empty()) GTEST_SKIP() << reason;
    constexpr int levels = 150;
    makeDeep(scratch_ / "in", levels);
    std::string deepest = scratch_ / "in";
    for (int level = 0; level < levels; ++level) deepest += "/deeper";
    fs::create_directory(deepest + "/mount");
    fs::create_directory(deepest + "/gone");
    ASSERT_EQ(chmod((scratch_ / "in/deeper").c_str(), 0555), 0);
    ASSERT_EQ(
        mount((scratch_ / "outside").c_str(), (deepest + "/mount").c_str(), "", MS_BIND, nullptr),
        0);
    const int failure = removeAll();
    umount2((deepest + "/mount").c_str(), MNT_DETACH);
    EXPECT_EQ(failure, EXDEV);
    Listing expected;
    std::string path;
    for (int level = 0; level < levels; ++level) expected.insert(path += "deeper/");
    expected.insert(path + "mount/");
    EXPECT_EQ(left(), expected);
    EXPECT_EQ(outside(), outside_);
    struct stat status {};
    ASSERT_EQ(stat((scratch_ / "in/deeper").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0555U);
}

TEST_F(TreeRemoval, AMountIsNotEnteredAndTheRestGoes) {
    if (const std::string reason = whyNoMounting(); !reason.empty()) GTEST_SKIP() << reason;
    fs::create_directories(scratch_ / "in/a/mount");
    fs::create_directories(scratch_ / "in/z");
    makeFile("in/a/file");
    const std::string mountPoint = scratch_ / "in/a/mount";
    // Another view of the same filesystem.
    ASSERT_EQ(mount((scratch_ / "outside").c_str(), mountPoint.c_str(), "", MS_BIND, nullptr), 0);
    const int failure = removeAll();
    umount2(mountPoint.c_str(), MNT_DETACH);
    EXPECT_EQ(failure, EXDEV);
    EXPECT_EQ(outside(), outside_);
    EXPECT_EQ(left(), (Listing{"a/", "a/mount/"}));
}

// A second view of a folder beside the tree, in the tree.
class BoundView {
  public:
    BoundView(const std::string& folder, std::string mountPoint)
        : mountPoint_(std::move(mountPoint)),
          isMounted_(mount(folder.c_str(), mountPoint_.c_str(), "", MS_BIND, nullptr) == 0) {}
    ~BoundView() { umount2(mountPoint_.c_str(), MNT_DETACH); }
    BoundView(const BoundView&) = delete;
    BoundView& operator=(const BoundView&) = delete;

    bool isMounted() const { return isMounted_; }

  private:
    std::string mountPoint_;
    bool isMounted_;
};

TEST_F(TreeRemoval, AFolderThatStaysKeepsItsMode) {
    if (const std::string reason = whyNoMounting(); !reason.empty()) GTEST_SKIP() << reason;
    fs::create_directories(scratch_ / "in/a/mount");
    const std::string kept = scratch_ / "in/a";
    for (const mode_t mode : {02775U, 0555U, 01500U, 0300U}) {
        ASSERT_EQ(chmod(kept.c_str(), mode), 0);
        {
            const BoundView view(scratch_ / "outside", scratch_ / "in/a/mount");
            ASSERT_TRUE(view.isMounted());
            EXPECT_EQ(removeAll(), EXDEV);
        }
        struct stat status {};
        ASSERT_EQ(stat(kept.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, mode);
    }
    EXPECT_EQ(outside(), outside_);
}

TEST_F(TreeRemoval, AFolderToDeleteThatStaysKeepsItsMode) {
    if (const std::string reason = whyNoMounting(); !reason.empty()) GTEST_SKIP() << reason;
    fs::create_directories(scratch_ / "in/mount");
    const std::string kept = scratch_ / "in";
    Volumes volumes;
    for (const bool force : {false, true}) {
        for (const mode_t mode : {02775U, 0755U, 0555U}) {
            ASSERT_EQ(chmod(kept.c_str(), mode), 0);
            const BoundView view(scratch_ / "outside", scratch_ / "in/mount");
            ASSERT_TRUE(view.isMounted());
            EXPECT_NE(removeFolder(volumes, kept, force), 0);
            struct stat status {};
            ASSERT_EQ(stat(kept.c_str(), &status), 0);
            EXPECT_EQ(status.st_mode & 07777, mode);
        }
    }
    EXPECT_EQ(outside(), outside_);
}

// As older kernels leave it.
TEST_F(TreeRemoval, AMountIsKnownOnceItIsOpenWhereStatxDoesNotReportIt) {
    if (const std::string reason = whyNoMounting(); !reason.empty()) GTEST_SKIP() << reason;
    fs::create_directory(scratch_ / "in/mount");
    fs::create_directory(scratch_ / "in/folder");
    const BoundView view(scratch_ / "outside", scratch_ / "in/mount");
    ASSERT_TRUE(view.isMounted());
    const OpenFolder in(scratch_ / "in");
    MountId mount;
    ASSERT_EQ(mountIdOf(in.fd(), mount), 0);
    EXPECT_EQ(mountNumberOf(in.fd()), mount.number);
    EXPECT_EQ(mountNumberOf(OpenFolder(in, "folder").fd()), mount.number);
    const auto mounted = mountNumberOf(OpenFolder(in, "mount").fd());
    ASSERT_TRUE(mounted.has_value());
    EXPECT_NE(*mounted, mount.number);
    EXPECT_EQ(mountNumberOf(-1), std::nullopt);

    struct statx status {};
    ASSERT_EQ(statEntry(in.fd(), "mount", status), 0);
    EXPECT_FALSE(mayBeOn(status, mount));
    status.stx_mask &= ~static_cast<unsigned>(STATX_MNT_ID);
    EXPECT_TRUE(mayBeOn(status, mount));
    ++status.stx_dev_minor;
    EXPECT_FALSE(mayBeOn(status, mount));
}

// Gives its result by the exit status, since there is no way back to root.
[[noreturn]] void removeAsNobody(const std::string& folder) {
    constexpr uid_t nobody = 65534;
    if (setuid(nobody) != 0) _exit(99);
    _exit(removeEntries(OpenFolder(folder), everyEntry));
}

TEST_F(TreeRemoval, AWriteProtectedFolderGoesAndOneOfOthersStays) {
    if (geteuid() != 0) GTEST_SKIP() << "needs root, to be somebody else";
    fs::create_directories(scratch_ / "in/own/folder");
    makeFile("in/own/folder/file");
    for (const char* name : {"", "in", "in/own", "in/own/folder"})
        ASSERT_EQ(chown((scratch_ / name).c_str(), 65534, 65534), 0);
    ASSERT_EQ(chmod((scratch_ / "in/own").c_str(), 0555), 0);
    ASSERT_EQ(chmod((scratch_ / "in/own/folder").c_str(), 0500), 0);
    fs::create_directories(scratch_ / "in/roots");
    makeFile("in/roots/file");
    EXPECT_EXIT(removeAsNobody(scratch_ / "in"), testing::ExitedWithCode(EACCES), "");
    EXPECT_EQ(left(), (Listing{"roots/", "roots/file"}));
}

TEST_F(TreeRemoval, AnEmptyFolderThatMayNotBeReadGoes) {
    if (geteuid() != 0) GTEST_SKIP() << "needs root, to be somebody else";
    fs::create_directory(scratch_ / "in/closed");
    ASSERT_EQ(chmod((scratch_ / "in/closed").c_str(), 0), 0);
    for (const char* name : {"", "in"})
        ASSERT_EQ(chown((scratch_ / name).c_str(), 65534, 65534), 0);
    EXPECT_EXIT(removeAsNobody(scratch_ / "in"), testing::ExitedWithCode(0), "");
    EXPECT_EQ(left(), Listing{});
}

}  // namespace
}  // namespace velmora::linuxhost
