#include "platform/linux/trash/trash.h"

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "platform/linux/support/environment.h"
#include "platform/linux/support/mounting.h"
#include "platform/linux/support/test_folder.h"
#include "platform/linux/support/tree_listing.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;
using Listing = std::set<std::string>;

void makeFile(const std::string& path) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path) << "x";
}

// A trash with a file and a folder in it, as desktops leave it.
void fillTrash(const std::string& trash) {
    makeFile(trash + "/files/letter.txt");
    makeFile(trash + "/info/letter.txt.trashinfo");
    makeFile(trash + "/files/photos/2026/one.jpg");
    makeFile(trash + "/info/photos.trashinfo");
    makeFile(trash + "/directorysizes");
}

// Two drives of the scratch folder; nothing is mounted, since only their paths count.
class TrashTest : public testing::Test {
  protected:
    TrashTest() {
        for (const DriveRoot& each : roots_) fs::create_directories(each.mountPoint);
        makeFile(scratch_ / "outside/folder/precious");
        makeFile(scratch_ / "home/document");
    }

    std::int32_t empty(const std::string& root) {
        return emptyTrash(drivesToEmpty(root, roots_), roots_);
    }
    Listing all() { return listingOf(scratch_.path()); }
    // Empties, and what went is expected to be just these and what lies in them.
    void expectGone(const std::string& root, const std::vector<std::string>& emptied) {
        Listing expected;
        for (const std::string& line : all()) {
            const auto isIn = [&line](const std::string& folder) {
                return line.starts_with(folder) && line != folder;
            };
            const bool goes = std::any_of(emptied.begin(), emptied.end(), [&](const auto& trash) {
                return isIn(trash + "/files/") || isIn(trash + "/info/") ||
                       line == trash + "/directorysizes";
            });
            if (!goes) expected.insert(line);
        }
        EXPECT_EQ(empty(root), 0);
        EXPECT_EQ(all(), expected);
    }

    TestFolder scratch_;
    std::vector<DriveRoot> roots_{{"H:", scratch_ / "home"}, {"M:", scratch_ / "mnt"}};
    OtherUser user_{scratch_ / "home"};
};

TEST_F(TrashTest, TheTrashOfTheHomeBelongsToItsDrive) {
    fillTrash(scratch_ / "home/.local/share/Trash");
    expectGone("M:\\", {});
    expectGone("H:\\", {"home/.local/share/Trash"});
}

TEST_F(TrashTest, TheDataFolderMayLieOnAnotherDrive) {
    const Environment data("XDG_DATA_HOME", scratch_ / "mnt/data");
    fillTrash(scratch_ / "mnt/data/Trash");
    fillTrash(scratch_ / "home/.local/share/Trash");
    expectGone("H:\\", {});
    expectGone("m:\\", {"mnt/data/Trash"});
}

TEST_F(TrashTest, TheDriveIsTheOneThatTheDataFolderReallyLiesOn) {
    fs::create_directories(scratch_ / "mnt/data");
    fs::create_directory_symlink(scratch_ / "mnt/data", scratch_ / "home/data");
    const Environment data("XDG_DATA_HOME", scratch_ / "home/data");
    fillTrash(scratch_ / "mnt/data/Trash");
    expectGone("H:\\", {});
    expectGone("M:\\", {"mnt/data/Trash"});
}

TEST_F(TrashTest, OtherDrivesHaveTheUsersOwnFolders) {
    fillTrash(scratch_ / ("mnt/.Trash-" + uid()));
    fillTrash(scratch_ / ("mnt/.Trash/" + uid()));
    fillTrash(scratch_ / "mnt/.Trash-12345");
    fillTrash(scratch_ / "mnt/.Trash/12345");
    ASSERT_EQ(chmod((scratch_ / "mnt/.Trash").c_str(), 01777), 0);
    expectGone("H:\\", {});
    expectGone("M:\\", {"mnt/.Trash-" + uid(), "mnt/.Trash/" + uid()});
}

TEST_F(TrashTest, ASharedFolderThatAnybodyCouldHaveMadeIsPassedOver) {
    fillTrash(scratch_ / ("mnt/.Trash/" + uid()));
    expectGone("M:\\", {});
    fs::rename(scratch_ / "mnt/.Trash", scratch_ / "mnt/real");
    ASSERT_EQ(chmod((scratch_ / "mnt/real").c_str(), 01777), 0);
    fs::create_directory_symlink("real", scratch_ / "mnt/.Trash");
    expectGone("M:\\", {});
}

TEST_F(TrashTest, AllDrivesAreEmptiedWithoutARoot) {
    fillTrash(scratch_ / "home/.local/share/Trash");
    fillTrash(scratch_ / ("mnt/.Trash-" + uid()));
    expectGone("", {"home/.local/share/Trash", "mnt/.Trash-" + uid()});
}

TEST_F(TrashTest, WithoutATrashThereIsNothingToDo) {
    const Listing before = all();
    EXPECT_EQ(empty(""), 0);
    EXPECT_EQ(all(), before);
    fs::create_directories(scratch_ / ("mnt/.Trash-" + uid()));
    expectGone("", {});
}

TEST_F(TrashTest, ADeletedLinkGoesAndTheFolderItPointsToStays) {
    const std::string trash = scratch_ / ("mnt/.Trash-" + uid());
    fillTrash(trash);
    fs::create_directory_symlink(scratch_ / "outside", trash + "/files/link");
    fs::create_directory_symlink("../../../../outside", trash + "/files/photos/link");
    fs::create_directory_symlink(scratch_ / "outside", trash + "/info/link");
    expectGone("M:\\", {"mnt/.Trash-" + uid()});
    EXPECT_TRUE(fs::exists(scratch_ / "outside/folder/precious"));
}

TEST_F(TrashTest, LinksInPlaceOfTheTrashesOwnFoldersAreNotFollowed) {
    fillTrash(scratch_ / "outside");
    fs::create_directories(scratch_ / "home/.local/share");
    fs::create_directory_symlink(scratch_ / "outside", scratch_ / ("mnt/.Trash-" + uid()));
    fs::create_directory_symlink(scratch_ / "outside", scratch_ / "home/.local/share/Trash");
    expectGone("", {});
    fs::remove(scratch_ / ("mnt/.Trash-" + uid()));
    fs::create_directory(scratch_ / ("mnt/.Trash-" + uid()));
    for (const char* name : {"files", "info"})
        fs::create_directory_symlink(scratch_ / "outside",
                                     scratch_ / ("mnt/.Trash-" + uid() + '/' + name));
    const Listing before = all();
    EXPECT_EQ(empty("M:\\"), 31);
    EXPECT_EQ(all(), before);
}

TEST_F(TrashTest, ALinkInTheSharedFolderIsNotFollowed) {
    fillTrash(scratch_ / "outside");
    fs::create_directory(scratch_ / "mnt/.Trash");
    ASSERT_EQ(chmod((scratch_ / "mnt/.Trash").c_str(), 01777), 0);
    fs::create_directory_symlink(scratch_ / "outside", scratch_ / ("mnt/.Trash/" + uid()));
    expectGone("M:\\", {});
}

TEST_F(TrashTest, WhatCanNotBeRemovedStaysWithItsNote) {
    if (const std::string reason = whyNoMounting(); !reason.empty()) GTEST_SKIP() << reason;
    const std::string trash = scratch_ / ("mnt/.Trash-" + uid());
    fillTrash(trash);
    const std::string mountPoint = trash + "/files/photos/2026";
    ASSERT_EQ(mount((scratch_ / "outside").c_str(), mountPoint.c_str(), "", MS_BIND, nullptr), 0);
    const std::int32_t code = empty("M:\\");
    umount2(mountPoint.c_str(), MNT_DETACH);
    EXPECT_EQ(code, 31);
    EXPECT_EQ(listingOf(trash),
              (Listing{"files/", "files/photos/", "files/photos/2026/", "files/photos/2026/one.jpg",
                       "info/", "info/photos.trashinfo"}));
    EXPECT_TRUE(fs::exists(scratch_ / "outside/folder/precious"));
}

TEST(DrivesToEmpty, AreAllOrTheOneOfThePath) {
    const std::vector<DriveRoot> roots{
        {"C:", "/"}, {"N:", "/mnt/net"}, {"\\\\host\\share", "/mnt/net"}};
    const auto mountPoints = [&](const std::string& root) {
        std::vector<std::string> found;
        for (const DriveRoot& each : drivesToEmpty(root, roots)) found.push_back(each.mountPoint);
        return found;
    };
    using MountPoints = std::vector<std::string>;
    EXPECT_EQ(mountPoints(""), (MountPoints{"/", "/mnt/net"}));
    EXPECT_EQ(mountPoints("C:\\"), MountPoints{"/"});
    EXPECT_EQ(mountPoints("c:"), MountPoints{"/"});
    EXPECT_EQ(mountPoints("n:\\folder"), MountPoints{"/mnt/net"});
    EXPECT_EQ(mountPoints("\\\\HOST\\share\\"), MountPoints{"/mnt/net"});
    for (const char* none : {"D:\\", "folder", "\\", "\\\\host\\other"})
        EXPECT_EQ(mountPoints(none), MountPoints{}) << none;
}

// A drive of its own, through the shell's call: nothing else of the machine is touched.
class TrashOfADrive : public MountingTest {};

TEST_F(TrashOfADrive, IsEmptiedByItsRoot) {
    TestMount drive;
    ASSERT_TRUE(drive.mountTmpfs("size=8M"));
    TestMount other;
    ASSERT_TRUE(other.mountTmpfs("size=8M"));
    const OtherUser user(other.path());
    fillTrash(other.path() + "/.local/share/Trash");
    const Listing otherBefore = listingOf(other.path());
    fillTrash(drive.path() + "/.Trash-0");
    fillTrash(drive.path() + "/.Trash/0");
    ASSERT_EQ(chmod((drive.path() + "/.Trash").c_str(), 01777), 0);
    makeFile(drive.path() + "/document");
    const std::string root = machine_->toDrivePath(drive.path());
    ASSERT_EQ(root.size(), 3u);
    EXPECT_EQ(machine_->platform().shell32.SHEmptyRecycleBinA("Form1", root, 7), 0);
    EXPECT_EQ(listingOf(drive.path()),
              (Listing{".Trash-0/", ".Trash-0/files/", ".Trash-0/info/", ".Trash/", ".Trash/0/",
                       ".Trash/0/files/", ".Trash/0/info/", "document"}));
    EXPECT_EQ(listingOf(other.path()), otherBefore);
    EXPECT_EQ(machine_->platform().shell32.SHEmptyRecycleBinA(
                  "Form1", machine_->toDrivePath(other.path()), 7),
              0);
    EXPECT_EQ(listingOf(other.path()),
              (Listing{".local/", ".local/share/", ".local/share/Trash/",
                       ".local/share/Trash/files/", ".local/share/Trash/info/"}));
}

}  // namespace
}  // namespace velmora::linuxhost
