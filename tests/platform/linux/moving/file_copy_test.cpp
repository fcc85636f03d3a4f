#include "platform/linux/moving/file_copy.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "platform/linux/entries/open_folder.h"
#include "platform/linux/support/child_process.h"
#include "platform/linux/support/loop_disk.h"
#include "platform/linux/support/test_folder.h"
#include "platform/linux/system/unique_fd.h"
#include "platform/work_steps.h"

namespace velmora::linuxhost {
namespace {

std::string contentAt(const std::string& path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

// Some megabytes that differ, a hole, and bytes behind it that fill no block.
void makeWithHole(const std::string& path) {
    std::ofstream file(path, std::ios::binary);
    for (int i = 0; i < 150000; ++i) file << "line " << i << '\n';
    file.seekp(5 << 20);
    file << "behind the hole";
}

// 0 when the copy is the same, else what went wrong.
int copyWithin(const std::string& path) {
    const OpenFolder folder(AT_FDCWD, path);
    CopiedEntry copied;
    std::filesystem::remove(path + "/copy");
    if (copyEntry(folder.fd(), "file", folder.fd(), "copy", copied) != 0) return 1;
    return contentAt(path + "/copy") == contentAt(path + "/file") ? 0 : 2;
}

TEST(FileCopy, WithinAFilesystemTheCopyIsTheSame) {
    const TestFolder folder;
    makeWithHole(folder / "file");
    EXPECT_EQ(copyWithin(folder.path()), 0);
    std::ofstream(folder / "file", std::ios::trunc).flush();
    EXPECT_EQ(copyWithin(folder.path()), 0);
}

TEST(FileCopy, WhatTheSystemDoesNotCopyIsReadAndWritten) {
    const TestFolder folder;
    makeWithHole(folder / "file");
    for (const int failure : {EXDEV, ENOSYS, EIO}) {
        EXPECT_EQ(
            withoutCall(SYS_copy_file_range, failure, [&] { return copyWithin(folder.path()); }), 0)
            << failure;
    }
}

TEST(FileCopy, WhileItIsCopiedOthersNeedNotWaitForTheFile) {
    const TestFolder folder;
    makeWithHole(folder / "file");
    int opened = 0;
    int keptAway = 0;
    hearWorkSteps([&] {
        constexpr int flags = O_WRONLY | O_NONBLOCK | O_CLOEXEC;
        const UniqueFd file(open((folder / "file").c_str(), flags));
        ++(file.isOpen() ? opened : keptAway);
    });
    const int result = copyWithin(folder.path());
    hearWorkSteps({});
    EXPECT_EQ(result, 0);
    EXPECT_GT(opened, 0);
    EXPECT_EQ(keptAway, 0);
}

TEST(FileCopy, WhereBlocksCanBeSharedNothingIsCopied) {
    if (const std::string reason = whyNoLoopDisk("mkfs.btrfs"); !reason.empty()) {
        std::cout << "skipped: " << reason << '\n';
        GTEST_SKIP() << reason;
    }
    LoopDisk disk("mkfs.btrfs -q", "128M");
    if (disk.device().empty() || !disk.mount("mount -t btrfs")) {
        std::cout << "skipped: no btrfs can be mounted\n";
        GTEST_SKIP() << "no btrfs can be mounted";
    }
    makeWithHole(disk.path() + "/file");
    EXPECT_EQ(copyWithin(disk.path()), 0);
    const auto calls = callsOf(SYS_copy_file_range, [&] { return copyWithin(disk.path()); });
    if (!calls) GTEST_SKIP() << "calls can't be counted";
    EXPECT_EQ(*calls, 0);
}

}  // namespace
}  // namespace velmora::linuxhost
