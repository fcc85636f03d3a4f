#include "platform/linux/files/linux_entries.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/errors.h"
#include "platform/linux/support/child_process.h"
#include "platform/linux/support/mounting.h"
#include "platform/linux/support/scratch_tree.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;

class LinuxEntries : public ScratchTree {
  protected:
    std::unique_ptr<File> file(const std::string& name) { return fso_.GetFile(in(name)); }
    std::unique_ptr<Folder> folder(const std::string& name) { return fso_.GetFolder(in(name)); }
};

TEST_F(LinuxEntries, AFileIsDescribedByItsPath) {
    EXPECT_EQ(file("work/two words ö.txt")->Path(), in("work/two words ö.txt"));
    EXPECT_EQ(file("work/a.txt")->ParentFolder(), in("work"));
    EXPECT_EQ(file("work/a.txt")->Size(), 21);
    EXPECT_EQ(files_.FileLen(in("work/a.txt")), 21);
    EXPECT_EQ(folder("work")->Path(), in("work"));
    EXPECT_EQ(folder("work")->ParentFolder(), in(""));
}

TEST_F(LinuxEntries, WhatIsNotThereOrNoFileIsError53) {
    for (const std::string& path :
         {in("work/missing"), in("missing/x"), in("work"), in("work/dangling"), std::string(),
          std::string("Q:\\x"), in("work/a.txt") + '\\'}) {
        EXPECT_EQ(errorOf([&] { fso_.GetFile(path); }), error::fileNotFound) << path;
    }
    for (const char* name : {"work/missing", "missing/x", "work", "work/dangling"})
        EXPECT_EQ(errorOf([&] { files_.FileLen(in(name)); }), error::fileNotFound) << name;
}

TEST_F(LinuxEntries, TimesAreLocal) {
    const Environment zone("TZ", "EST5EDT,M3.2.0,M11.1.0");
    // 2001-09-09 01:46:40 and 2000-01-01 00:00:00 in UTC; four and five hours earlier there.
    const timespec times[] = {{1'000'000'000, 999'999'999}, {946'684'800, 0}};
    for (const char* name : {"work/a.txt", "work/deep"})
        ASSERT_EQ(utimensat(AT_FDCWD, at(name).c_str(), times, 0), 0);
    for (PathEntry* entry : {static_cast<PathEntry*>(file("work/a.txt").release()),
                             static_cast<PathEntry*>(folder("work/deep").release())}) {
        const std::unique_ptr<PathEntry> owner(entry);
        EXPECT_EQ(entry->DateLastAccessed(), (DateTime{2001, 9, 8, 21, 46, 40}));
        EXPECT_EQ(entry->DateLastModified(), (DateTime{1999, 12, 31, 19, 0, 0}));
        EXPECT_GE(entry->DateCreated(), entry->DateLastModified());
    }
}

TEST_F(LinuxEntries, PropertiesAreReadAtTheFirstQuestion) {
    const auto before = file("work/a.txt");
    std::ofstream(at("work/a.txt"), std::ios::app) << "1234";
    EXPECT_EQ(before->Size(), 25);
    std::ofstream(at("work/a.txt"), std::ios::app) << "1234";
    EXPECT_EQ(before->Size(), 25);
    EXPECT_EQ(file("work/a.txt")->Size(), 29);
    const auto gone = file("work/a.txt");
    fs::remove(at("work/a.txt"));
    EXPECT_EQ(errorOf([&] { gone->Size(); }), error::fileNotFound);
    EXPECT_EQ(errorOf([&] { gone->Type(); }), error::fileNotFound);
    EXPECT_EQ(errorOf([&] { gone->DateCreated(); }), error::fileNotFound);
    const auto goneFolder = folder("target");
    fs::remove(at("target"));
    EXPECT_EQ(errorOf([&] { goneFolder->Size(); }), error::pathNotFound);
    EXPECT_EQ(errorOf([&] { goneFolder->Type(); }), error::pathNotFound);
    EXPECT_EQ(errorOf([&] { goneFolder->DateLastModified(); }), error::pathNotFound);
    EXPECT_EQ(errorOf([&] { goneFolder->Delete(true); }), error::pathNotFound);
}

TEST_F(LinuxEntries, TypesFollowFromTheExtension) {
    EXPECT_EQ(folder("work")->Type(), "File Folder");
    EXPECT_EQ(file("work/a.txt")->Type(), "TXT File");
    EXPECT_EQ(typeOfName("archive.tar.gz"), "GZ File");
    EXPECT_EQ(typeOfName("README"), "File");
    EXPECT_EQ(typeOfName("ends with a point."), "File");
    EXPECT_EQ(typeOfName("x.Mp3"), "MP3 File");
}

TEST_F(LinuxEntries, TheSizeOfAFolderIsThatOfAllFilesBelowAndNoLinkLeadsAnywhere) {
    double expected = 0;
    for (const auto& entry : fs::recursive_directory_iterator(at("work"))) {
        if (!entry.is_symlink() && entry.is_regular_file())
            expected += static_cast<double>(entry.file_size());
    }
    EXPECT_GT(expected, 100);
    EXPECT_EQ(folder("work")->Size(), expected);
    EXPECT_EQ(folder("target")->Size(), 0);
    // The path of the folder itself may end in a link.
    EXPECT_EQ(folder("way")->Size(), expected);
}

TEST_F(LinuxEntries, FoldersAsDeepAsTheyGoAreSummed) {
    int deep = open(at("target").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (int level = 0; level < 1500; ++level) {
        ASSERT_EQ(mkdirat(deep, "deeper", 0700), 0);
        const int each = openat(deep, "file", O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        ASSERT_EQ(write(each, "xyz", 3), 3);
        close(each);
        const int next = openat(deep, "deeper", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        close(deep);
        deep = next;
    }
    close(deep);
    EXPECT_EQ(folder("target")->Size(), 4500);
    folder("target")->Delete(true);
    EXPECT_FALSE(fs::exists(at("target")));
}

TEST_F(LinuxEntries, AFolderWithSomethingUnreadableIsError70) {
    if (const std::string reason = whyNotNobody(); !reason.empty()) GTEST_SKIP() << reason;
    giveToNobody(root_.path());
    ASSERT_EQ(chmod(at("work/deep/deeper").c_str(), 0), 0);
    const auto errorOfSize = [&](const std::string& name) {
        return asNobody([&, name] {
            Volumes volumes;
            LinuxFileSystemObject fso(volumes);
            return errorOf([&] { fso.GetFolder(in(name))->Size(); });
        });
    };
    EXPECT_EQ(errorOfSize("work"), error::permissionDenied);
    EXPECT_EQ(errorOfSize("work/deep/deeper"), error::permissionDenied);
    EXPECT_EQ(errorOfSize("outside"), 0);
    chmod(at("work/deep/deeper").c_str(), 0700);
}

class EntriesWithMounts : public MountingTest {};

TEST_F(EntriesWithMounts, AMountInAFolderIsNotSummedAndNotRemoved) {
    TestFolder scratch;
    fs::create_directories(scratch / "folder/mount");
    std::ofstream(scratch / "folder/file") << "12345";
    ASSERT_EQ(::mount("tmpfs", (scratch / "folder/mount").c_str(), "tmpfs", 0, "size=64k"), 0);
    std::ofstream(scratch / "folder/mount/other") << "123";
    const std::string path = machine_->toDrivePath(scratch / "folder");
    EXPECT_EQ(fso().GetFolder(path)->Size(), 5);
    const std::string mount = machine_->toDrivePath(scratch / "folder/mount");
    EXPECT_EQ(fso().GetFolder(mount)->Size(), 3);
    // The mount is a drive, whose root is not removed; nor is it as a folder of the other drive.
    EXPECT_EQ(errorOf([&] { fso().GetFolder(mount)->Delete(true); }), error::permissionDenied);
    const std::string byRoot = "C:" + (scratch / "folder/mount");
    EXPECT_EQ(errorOf([&] { fso().GetFolder(byRoot)->Delete(true); }), error::permissionDenied);
    EXPECT_EQ(errorOf([&] { fso().GetFolder(path)->Delete(true); }), error::permissionDenied);
    EXPECT_EQ(listTree(scratch.path()), (TreeListing{{"folder", "folder"},
                                                     {"folder/mount", "folder"},
                                                     {"folder/mount/other", "file 3 bytes: 123"}}));
    umount2((scratch / "folder/mount").c_str(), MNT_DETACH);
}

TEST_F(EntriesWithMounts, AnotherViewOfTheSameFilesystemIsNotEnteredEither) {
    TestFolder scratch;
    fs::create_directories(scratch / "folder/view");
    fs::create_directories(scratch / "precious");
    std::ofstream(scratch / "precious/jewel") << "1234567";
    ASSERT_EQ(::mount((scratch / "precious").c_str(), (scratch / "folder/view").c_str(), "",
                      MS_BIND, nullptr),
              0);
    const std::string path = machine_->toDrivePath(scratch / "folder");
    EXPECT_EQ(fso().GetFolder(path)->Size(), 0);
    EXPECT_EQ(errorOf([&] { fso().GetFolder(path)->Delete(true); }), error::permissionDenied);
    EXPECT_EQ(errorOf([&] { fso().GetFolder(path + "\\view")->Delete(true); }),
              error::permissionDenied);
    umount2((scratch / "folder/view").c_str(), MNT_DETACH);
    EXPECT_EQ(contentsOf(scratch / "precious/jewel"), "1234567");
}

}  // namespace
}  // namespace velmora::linuxhost
