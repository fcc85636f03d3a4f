#include "platform/linux/files/linux_text_files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <future>

#include "base/errors.h"
#include "platform/linux/support/test_folder.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {
namespace {

class LinuxTextFilesTest : public testing::Test {
  protected:
    std::string drivePath(const std::string& hostPath) {
        return drivePathOf(hostPath, volumes_.roots());
    }
    int errorOfAppending(const std::string& hostPath) {
        return errorOf([&] { files_.appendLine(drivePath(hostPath), "line"); });
    }

    TestFolder folder_;
    Volumes volumes_;
    LinuxTextFiles files_{volumes_};
};

TEST_F(LinuxTextFilesTest, NamesWithBackSlashesAndBytesOfOtherCodesAreReached) {
    const std::string path = folder_ / "a\\b caf\xe9";
    std::ofstream(path) << "x";
    files_.appendLine(drivePath(path), "y");
    EXPECT_EQ(contentsOf(path), "xy\r\n");
}

TEST_F(LinuxTextFilesTest, AFullDiskIsError61) {
    EXPECT_EQ(errorOfAppending("/dev/full"), error::diskFull);
}

// A limit on file sizes stops a write in the middle, as a full disk does.
class FilesOfAHundredBytes {
  public:
    FilesOfAHundredBytes() {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{100, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FilesOfAHundredBytes() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FilesOfAHundredBytes(const FilesOfAHundredBytes&) = delete;
    FilesOfAHundredBytes& operator=(const FilesOfAHundredBytes&) = delete;

  private:
    rlimit before_{};
    sighandler_t handler_ = std::signal(SIGXFSZ, SIG_IGN);
};

TEST_F(LinuxTextFilesTest, NothingOfALineStaysThatCouldNotBeWrittenWhole) {
    const std::string path = folder_ / "log";
    std::ofstream(path) << "before\r\n";
    const FilesOfAHundredBytes limit;
    EXPECT_EQ(errorOf([&] { files_.appendLine(drivePath(path), std::string(500, 'x')); }),
              error::deviceIo);
    EXPECT_EQ(contentsOf(path), "before\r\n");
}

TEST_F(LinuxTextFilesTest, NothingOldStaysBehindAContentThatWasCutShort) {
    const std::string path = folder_ / "set.dat";
    std::ofstream(path) << std::string(500, 'o');
    const FilesOfAHundredBytes limit;
    EXPECT_EQ(errorOf([&] { files_.writeOver(drivePath(path), std::string(200, 'n')); }),
              error::deviceIo);
    EXPECT_EQ(contentsOf(path), std::string(100, 'n'));
}

TEST_F(LinuxTextFilesTest, TheLinesOfAnotherProgramStay) {
    const std::string path = folder_ / "log";
    std::ofstream(path) << "before\r\n";
    const FilesOfAHundredBytes limit;
    const UniqueFd other(open(path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC));
    ASSERT_EQ(flock(other.get(), LOCK_EX), 0);
    auto writing = std::async(std::launch::async, [&] {
        return errorOf([&] { files_.appendLine(drivePath(path), std::string(500, 'x')); });
    });
    EXPECT_EQ(writing.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    ASSERT_EQ(write(other.get(), "other\r\n", 7), 7);
    flock(other.get(), LOCK_UN);
    EXPECT_EQ(writing.get(), error::deviceIo);
    EXPECT_EQ(contentsOf(path), "before\r\nother\r\n");
}

TEST_F(LinuxTextFilesTest, AFileInPlaceOfAFolderIsError76) {
    std::ofstream(folder_ / "file") << "x";
    EXPECT_EQ(errorOfAppending(folder_ / "file/log"), error::pathNotFound);
}

TEST_F(LinuxTextFilesTest, ARunningProgramIsInUse) {
    EXPECT_EQ(errorOfAppending(std::filesystem::read_symlink("/proc/self/exe")),
              error::permissionDenied);
}

TEST_F(LinuxTextFilesTest, AWriterWaitsForTheOneBefore) {
    const std::string path = folder_ / "set.dat";
    files_.writeOver(drivePath(path), "old");
    const UniqueFd other(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(flock(other.get(), LOCK_EX), 0);
    auto writing =
        std::async(std::launch::async, [&] { files_.writeOver(drivePath(path), "new"); });
    EXPECT_EQ(writing.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    EXPECT_EQ(contentsOf(path), "old");
    flock(other.get(), LOCK_UN);
    writing.get();
    EXPECT_EQ(contentsOf(path), "new");
}

TEST_F(LinuxTextFilesTest, AReaderWaitsForAWriterAndNotForAnotherReader) {
    const std::string path = folder_ / "set.dat";
    files_.writeOver(drivePath(path), "old");
    const UniqueFd other(open(path.c_str(), O_RDWR | O_CLOEXEC));
    ASSERT_EQ(flock(other.get(), LOCK_SH), 0);
    EXPECT_EQ(files_.readAll(drivePath(path)), "old");
    ASSERT_EQ(flock(other.get(), LOCK_EX), 0);
    auto reading = std::async(std::launch::async, [&] { return files_.readAll(drivePath(path)); });
    EXPECT_EQ(reading.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    ASSERT_EQ(pwrite(other.get(), "new", 3, 0), 3);
    flock(other.get(), LOCK_UN);
    EXPECT_EQ(reading.get(), "new");
}

TEST_F(LinuxTextFilesTest, AWriterThatNeverEndsKeepsNobodyForEver) {
    const std::string path = folder_ / "set.dat";
    files_.writeOver(drivePath(path), "old");
    const UniqueFd other(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(flock(other.get(), LOCK_EX), 0);
    EXPECT_EQ(errorOf([&] { files_.writeOver(drivePath(path), "new"); }), error::permissionDenied);
    EXPECT_EQ(files_.readAll(drivePath(path)), "old");
}

TEST_F(LinuxTextFilesTest, WhatIsPrivateIsReadByTheUserAlone) {
    const auto modeOf = [](const std::string& path) {
        struct stat status {};
        return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
    };
    const mode_t before = umask(022);
    files_.writeOver(drivePath(folder_ / "new"), "x", {.isPrivate = true});
    files_.writeOver(drivePath(folder_ / "open"), "x");
    umask(before);
    EXPECT_EQ(modeOf(folder_ / "new"), 0600u);
    EXPECT_EQ(modeOf(folder_ / "open"), 0644u);
    files_.writeOver(drivePath(folder_ / "open"), "y", {.isPrivate = true});
    EXPECT_EQ(modeOf(folder_ / "open"), 0600u);
}

TEST_F(LinuxTextFilesTest, AFileThatMayNotBeWrittenIsError70) {
    if (geteuid() == 0) GTEST_SKIP() << "root may write every file";
    std::ofstream(folder_ / "log") << "x";
    chmod((folder_ / "log").c_str(), 0400);
    EXPECT_EQ(errorOfAppending(folder_ / "log"), error::permissionDenied);
}

TEST_F(LinuxTextFilesTest, APipeWithoutAReaderDoesNotKeepTheProgramWaiting) {
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOfAppending(folder_ / "pipe"), error::deviceIo);
}

TEST_F(LinuxTextFilesTest, ADeviceOrPipeIsNotReadToAnEndThatMayNeverCome) {
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    for (const std::string& path : {std::string("/dev/zero"), folder_ / "pipe"})
        EXPECT_EQ(errorOf([&] { files_.readAll(drivePath(path)); }), error::deviceIo) << path;
}

TEST_F(LinuxTextFilesTest, AFileOfUnknownSizeIsReadToItsEnd) {
    EXPECT_EQ(files_.readAll(drivePath("/proc/self/mountinfo")),
              contentsOf("/proc/self/mountinfo"));
}

TEST_F(LinuxTextFilesTest, WritingOverKeepsTheFileItself) {
    std::ofstream(folder_ / "file") << "old content";
    std::filesystem::create_hard_link(folder_ / "file", folder_ / "other");
    files_.writeOver(drivePath(folder_ / "file"), "new");
    EXPECT_EQ(contentsOf(folder_ / "other"), "new");
    files_.remove(drivePath(folder_ / "file"));
    EXPECT_EQ(contentsOf(folder_ / "other"), "new");
}

TEST_F(LinuxTextFilesTest, WritingOverADeviceThatIsFullIsError61) {
    EXPECT_EQ(errorOf([&] { files_.writeOver(drivePath("/dev/full"), "x"); }), error::diskFull);
}

TEST_F(LinuxTextFilesTest, ALinkThatLeadsNowhereIsNoFile) {
    std::filesystem::create_symlink("/nowhere/at/all", folder_ / "link");
    EXPECT_EQ(errorOf([&] { files_.readAll(drivePath(folder_ / "link")); }), error::fileNotFound);
}

TEST_F(LinuxTextFilesTest, ANulInAPathIsError76) {
    EXPECT_EQ(errorOf([&] { files_.appendLine(std::string("C:\\tmp\\a\0b", 10), "x"); }),
              error::pathNotFound);
}

}  // namespace
}  // namespace velmora::linuxhost
