#include "platform/linux/files/linux_find.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/linux/support/child_process.h"
#include "platform/linux/support/mounting.h"
#include "platform/linux/support/scratch_tree.h"

namespace velmora::linuxhost {
namespace {

class LinuxFind : public ScratchTree {
  protected:
    /// All entries by their names; the error that ended it goes to its own place.
    std::map<std::string, FindData> list(const std::string& folder) {
        order_.clear();
        std::map<std::string, FindData> found;
        FindData entry;
        const FindHandle listing = kernel32_.FindFirstFileA(folder + "\\*.*", entry);
        if (listing == 0) return found;
        do {
            order_.push_back(entry.cFileName);
            EXPECT_TRUE(found.emplace(entry.cFileName, entry).second) << entry.cFileName;
        } while (kernel32_.FindNextFileA(listing, entry));
        EXPECT_EQ(kernel32_.GetLastError(), noMoreFiles);
        EXPECT_FALSE(kernel32_.FindNextFileA(listing, entry));
        EXPECT_EQ(kernel32_.GetLastError(), noMoreFiles);
        kernel32_.FindClose(listing);
        EXPECT_FALSE(kernel32_.FindNextFileA(listing, entry));
        EXPECT_EQ(kernel32_.GetLastError(), 6u);
        return found;
    }

    std::vector<std::string> order_;
};

TEST_F(LinuxFind, EveryEntryComesOnceWithTheDotsInFront) {
    const auto found = list(in("work"));
    std::set<std::string> names;
    for (const auto& [name, entry] : found) names.insert(name);
    EXPECT_EQ(names, (std::set<std::string>{".", "..", "a.txt", "a.txt2", "two words ö.txt",
                                            "protected.txt", ".hidden", "deep", "Zwei Wörter 日本",
                                            "to a file", "to outside", "to inside", "dangling"}));
    ASSERT_GE(order_.size(), 2u);
    EXPECT_EQ(order_[0], ".");
    EXPECT_EQ(order_[1], "..");
}

TEST_F(LinuxFind, AttributesTellReadOnlyHiddenFolderAndLink) {
    auto found = list(in("work"));
    EXPECT_EQ(found["a.txt"].dwFileAttributes, 32u);
    EXPECT_EQ(found["protected.txt"].dwFileAttributes, 33u);
    EXPECT_EQ(found[".hidden"].dwFileAttributes, 34u);
    EXPECT_EQ(found["deep"].dwFileAttributes, 16u);
    EXPECT_EQ(found["."].dwFileAttributes, 16u);
    EXPECT_EQ(found[".."].dwFileAttributes, 16u);
    // A link is no folder, even when it leads to one.
    for (const char* link : {"to a file", "to outside", "dangling"})
        EXPECT_EQ(found[link].dwFileAttributes, 32u + 1024) << link;
}

TEST_F(LinuxFind, SizesAndTimesAreTheEntrysOwn) {
    // 2001-09-09T01:46:40Z and half a second; then 2000-01-01T00:00:00Z.
    const timespec times[] = {{1'000'000'000, 500'000'000}, {946'684'800, 700}};
    ASSERT_EQ(utimensat(AT_FDCWD, at("work/a.txt").c_str(), times, 0), 0);
    auto found = list(in("work"));
    const FindData& file = found["a.txt"];
    EXPECT_EQ(file.nFileSize, 21u);  // "content of work/a.txt"
    EXPECT_EQ(file.ftLastAccessTime, 126'444'736'005'000'000u);
    EXPECT_EQ(file.ftLastWriteTime, 125'911'584'000'000'007u);
    // It came into being just now, where the drive keeps that.
    EXPECT_GE(file.ftCreationTime, file.ftLastWriteTime);
    EXPECT_EQ(found["deep"].nFileSize, 0u);
    EXPECT_EQ(found["to a file"].nFileSize, 0u);
    EXPECT_GT(found["to a file"].ftLastWriteTime, file.ftLastWriteTime);
}

TEST_F(LinuxFind, TimesBeforeTheFirstOneAreNone) {
    EXPECT_EQ(fileTimeOf({-11'644'473'600, 0, {}}), 0u);
    EXPECT_EQ(fileTimeOf({-11'644'473'601, 0, {}}), 0u);
    EXPECT_EQ(fileTimeOf({0, 100, {}}), 116'444'736'000'000'001u);
}

TEST_F(LinuxFind, NamesComeAsTheyAreInDrivePaths) {
    for (const char* name : {"a\\b", "the \"one\"", "caf\xe9", "\uF05C", "日本 ｦ"}) make(name);
    std::filesystem::create_directory(at("odd"));
    for (const char* name : {"a\\b", "the \"one\"", "caf\xe9", "\uF05C", "日本 ｦ"})
        std::filesystem::rename(at(name), at("odd/") + name);
    const auto found = list(in("odd"));
    EXPECT_EQ(found.size(), 7u);
    for (const auto& [name, entry] : found) {
        if (name == "." || name == "..") continue;
        EXPECT_TRUE(fso_.FileExists(in("odd") + '\\' + name)) << name;
    }
    EXPECT_EQ(found.count("a\uF05Cb"), 1u);
    EXPECT_EQ(found.count("the \uF022one\uF022"), 1u);
    EXPECT_EQ(found.count("日本 ｦ"), 1u);
}

TEST_F(LinuxFind, ManyEntriesComeOverManyReadings) {
    std::filesystem::create_directory(at("many"));
    const std::string ending(100, 'n');
    for (int i = 0; i < 5000; ++i) {
        const int file = open((at("many/") + std::to_string(i) + ending).c_str(),
                              O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        close(file);
    }
    EXPECT_EQ(list(in("many")).size(), 5002u);
}

// Older kernels have no way to open only what they know by heart: helpers list everything then.
TEST_F(LinuxFind, HelpersListTheSameInManyBlocks) {
    std::filesystem::create_directory(at("many"));
    const std::string ending(100, 'n');
    std::set<std::string> expected{".", ".."};
    for (int i = 0; i < 2000; ++i) {
        expected.insert(std::to_string(i) + ending);
        make("many/" + std::to_string(i) + ending);
    }
    const auto listByHelper = [&] {
        Volumes volumes;
        LinuxKernel32 kernel32(volumes);
        const std::string pattern = in("many") + "\\*.*";
        FindData entry;
        FindData others;
        // The other one is left before its end.
        const FindHandle other = kernel32.FindFirstFileA(pattern, others);
        const FindHandle listing = kernel32.FindFirstFileA(pattern, entry);
        if (other == 0 || listing == 0 || volumes.helpers().size() != 1) return 1;
        std::set<std::string> names;
        do {
            if (!names.insert(entry.cFileName).second) return 2;
            if (entry.cFileName.size() > 2 && entry.nFileSize == 0) return 3;
        } while (kernel32.FindNextFileA(listing, entry));
        if (kernel32.GetLastError() != noMoreFiles) return 4;
        if (!kernel32.FindNextFileA(other, others) || others.cFileName != "..") return 5;
        kernel32.FindClose(other);
        kernel32.FindClose(listing);
        return names == expected ? 0 : 6;
    };
    EXPECT_EQ(withoutCall(SYS_openat2, ENOSYS, listByHelper), 0);
}

TEST_F(LinuxFind, TwoListingsGoOnBesideEachOther) {
    FindData entry;
    const FindHandle one = kernel32_.FindFirstFileA(in("work") + "\\*.*", entry);
    const FindHandle other = kernel32_.FindFirstFileA(in("outside") + "\\*.*", entry);
    ASSERT_NE(one, 0u);
    ASSERT_NE(other, 0u);
    ASSERT_NE(one, other);
    int counts[2] = {1, 1};
    for (bool goesOn = true; goesOn;) {
        const bool hasOne = kernel32_.FindNextFileA(one, entry);
        const bool hasOther = kernel32_.FindNextFileA(other, entry);
        counts[0] += hasOne;
        counts[1] += hasOther;
        goesOn = hasOne || hasOther;
    }
    kernel32_.FindClose(one);
    kernel32_.FindClose(other);
    EXPECT_EQ(counts[0], 13);
    EXPECT_EQ(counts[1], 4);
}

TEST_F(LinuxFind, AnEmptyFolderHasItsDotsAndARootHasNone) {
    EXPECT_EQ(list(in("target")).size(), 2u);
    EXPECT_EQ(list("C:").count("."), 0u);
    EXPECT_EQ(list("C:").count(".."), 0u);
    EXPECT_EQ(list("C:").count("etc"), 1u);
}

TEST_F(LinuxFind, AFolderReachedByALinkIsListedAsWhatItIs) {
    EXPECT_EQ(list(in("way")).size(), 13u);
    EXPECT_EQ(list(in("work/to outside")).count("jewel"), 1u);
}

TEST_F(LinuxFind, WhatCanNotBeListedIsNoListing) {
    FindData entry;
    for (const std::string& pattern :
         {in("missing") + "\\*.*", in("work/a.txt") + "\\*.*", in("work/dangling") + "\\*.*",
          in("work"), std::string("Q:\\*.*"), std::string(), std::string("*.*")}) {
        EXPECT_EQ(kernel32_.FindFirstFileA(pattern, entry), 0u) << pattern;
        EXPECT_EQ(kernel32_.GetLastError(), 3u) << pattern;
    }
    EXPECT_FALSE(kernel32_.FindNextFileA(0, entry));
    kernel32_.FindClose(0);
    kernel32_.FindClose(77);
}

TEST_F(LinuxFind, AFolderThatMayNotBeReadIsNoListing) {
    if (const std::string reason = whyNotNobody(); !reason.empty()) GTEST_SKIP() << reason;
    giveToNobody(root_.path());
    for (const mode_t mode : {0300, 0400, 0000}) {
        ASSERT_EQ(chmod(at("work/deep").c_str(), mode), 0);
        EXPECT_EQ(asNobody([&] {
                      Volumes volumes;
                      LinuxKernel32 kernel32(volumes);
                      FindData entry;
                      if (kernel32.FindFirstFileA(in("work/deep") + "\\*.*", entry) != 0) return 90;
                      return static_cast<int>(kernel32.GetLastError());
                  }),
                  5)
            << mode;
    }
    chmod(at("work/deep").c_str(), 0700);
}

TEST_F(LinuxFind, AnEntryThatIsGoneMeanwhileIsPassedOver) {
    FindData entry;
    const FindHandle listing = kernel32_.FindFirstFileA(in("outside") + "\\*.*", entry);
    ASSERT_TRUE(kernel32_.FindNextFileA(listing, entry));
    std::string first;
    ASSERT_TRUE(kernel32_.FindNextFileA(listing, entry));
    first = entry.cFileName;
    std::filesystem::remove_all(at(first == "a.txt" ? "outside/precious" : "outside/a.txt"));
    EXPECT_FALSE(kernel32_.FindNextFileA(listing, entry));
    EXPECT_EQ(kernel32_.GetLastError(), noMoreFiles);
    kernel32_.FindClose(listing);
}

TEST_F(LinuxFind, NoFileStaysOpen) {
    const auto openFiles = [] {
        int count = 0;
        for ([[maybe_unused]] const auto& each :
             std::filesystem::directory_iterator("/proc/self/fd"))
            ++count;
        return count;
    };
    list(in("work"));
    const int before = openFiles();
    for (int i = 0; i < 10; ++i) list(in("work"));
    FindData entry;
    const FindHandle listing = kernel32_.FindFirstFileA(in("work") + "\\*.*", entry);
    kernel32_.FindClose(listing);
    EXPECT_EQ(openFiles(), before);
}

class FindOnADrive : public MountingTest {};

TEST_F(FindOnADrive, TheRootOfAnEmptyDriveHasNoEntry) {
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=8M"));
    const std::string drive = newDrive();
    Kernel32& kernel32 = machine_->platform().kernel32;
    FindData entry;
    EXPECT_EQ(kernel32.FindFirstFileA(drive + "\\*.*", entry), 0u);
    EXPECT_EQ(kernel32.GetLastError(), 2u);
    std::ofstream(mount.path() + "/file") << "x";
    const FindHandle listing = kernel32.FindFirstFileA(drive + "\\*.*", entry);
    ASSERT_NE(listing, 0u);
    EXPECT_EQ(entry.cFileName, "file");
    EXPECT_FALSE(kernel32.FindNextFileA(listing, entry));
    kernel32.FindClose(listing);
}

}  // namespace
}  // namespace velmora::linuxhost
