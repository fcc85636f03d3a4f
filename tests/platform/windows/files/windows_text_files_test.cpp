#include "platform/windows/files/windows_text_files.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <future>
#include <iostream>
#include <string>

#include "base/errors.h"
#include "base/runtime_error.h"
#include "platform/windows/support/scratch_folder.h"

namespace velmora::windows {
namespace {

int errorOfAppending(const std::string& path) {
    WindowsTextFiles files;
    try {
        files.appendLine(path, "line");
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

// A file that another program has open.
class OtherProgram {
  public:
    OtherProgram(const std::string& path, DWORD access, DWORD sharing)
        : handle_(CreateFileW(toUtf16(path).c_str(), access, sharing, nullptr, OPEN_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~OtherProgram() { close(); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    bool deleteFile() const {
        FILE_DISPOSITION_INFO deleted{TRUE};
        return SetFileInformationByHandle(handle_, FileDispositionInfo, &deleted, sizeof deleted);
    }
    bool lock() const {
        OVERLAPPED begin{};
        return LockFileEx(handle_, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, MAXDWORD,
                          MAXDWORD, &begin);
    }
    /// Whether the lock keeps others from reading, which not every system's locks do.
    static bool keepsReadersAway(const std::string& path) {
        char byte = 0;
        DWORD count = 0;
        OtherProgram reader(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
        return !ReadFile(reader.handle_, &byte, 1, &count, nullptr);
    }
    void close() {
        if (isOpen()) CloseHandle(handle_);
        handle_ = INVALID_HANDLE_VALUE;
    }

  private:
    HANDLE handle_;
};

TEST(WindowsTextFiles, LinesAreAppendedWithTheirLineEnds) {
    const ScratchFolder folder;
    WindowsTextFiles files;
    files.appendLine(folder / "log.txt", "caf\u00e9");
    files.appendLine(folder / "log.txt", "");
    files.appendLine(folder / "log.txt", "b");
    EXPECT_EQ(contentsOf(folder / "log.txt"), "caf\u00e9\r\n\r\nb\r\n");
}

TEST(WindowsTextFiles, AFileThatSomebodyElseHoldsForHimselfIsDenied) {
    const ScratchFolder folder;
    OtherProgram other(folder / "log.txt", GENERIC_READ, 0);
    ASSERT_TRUE(other.isOpen());
    EXPECT_EQ(errorOfAppending(folder / "log.txt"), 70);
    other.close();
    EXPECT_EQ(errorOfAppending(folder / "log.txt"), 0);
}

TEST(WindowsTextFiles, AFileThatSomebodyElseWritesIsDenied) {
    const ScratchFolder folder;
    const OtherProgram other(folder / "log.txt", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE);
    ASSERT_TRUE(other.isOpen());
    EXPECT_EQ(errorOfAppending(folder / "log.txt"), 70);
}

TEST(WindowsTextFiles, AFileThatSomebodyElseReadsTakesTheLine) {
    const ScratchFolder folder;
    const OtherProgram other(folder / "log.txt", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    ASSERT_TRUE(other.isOpen());
    EXPECT_EQ(errorOfAppending(folder / "log.txt"), 0);
    EXPECT_EQ(contentsOf(folder / "log.txt"), "line\r\n");
}

// A file that is being deleted serves as one that the user may not open: what a read-only one
// refuses depends on the user who runs the test.
TEST(WindowsTextFiles, AFileThatMayNotBeOpenedIsDenied) {
    const ScratchFolder folder;
    const OtherProgram other(folder / "log.txt", DELETE,
                             FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    ASSERT_TRUE(other.isOpen());
    ASSERT_TRUE(other.deleteFile());
    EXPECT_EQ(errorOfAppending(folder / "log.txt"), 70);
}

TEST(WindowsTextFiles, AFolderInPlaceOfTheFileIsAnErrorOfItsOwn) {
    const ScratchFolder folder;
    ASSERT_TRUE(CreateDirectoryW(toUtf16(folder / "log.txt").c_str(), nullptr));
    EXPECT_EQ(errorOfAppending(folder / "log.txt"), 75);
}

TEST(WindowsTextFiles, AMissingFolderOrDriveIsNoPath) {
    const ScratchFolder folder;
    EXPECT_EQ(errorOfAppending(folder / R"(missing\log.txt)"), 76);
    EXPECT_EQ(errorOfAppending(R"(Q:\log.txt)"), 76);
    EXPECT_EQ(errorOfAppending(""), 76);
}

TEST(WindowsTextFiles, APathIsNotReadUpToItsFirstNulOnly) {
    const ScratchFolder folder;
    EXPECT_EQ(errorOfAppending((folder / "log.txt") + std::string("\0.old", 5)), 76);
    EXPECT_EQ(contentsOf(folder / "log.txt"), "");
}

TEST(WindowsTextFiles, APathBeyondTheSystemsOldLimitIsWritten) {
    const ScratchFolder folder;
    const std::string inner = folder / std::string(200, 'a');
    ASSERT_TRUE(CreateDirectoryW(systemPath(inner).c_str(), nullptr));
    const std::string path = inner + '\\' + std::string(200, 'b');
    EXPECT_EQ(errorOfAppending(path), 0);
    EXPECT_EQ(contentsOf(path), "line\r\n");
    EXPECT_TRUE(DeleteFileW(systemPath(path).c_str()));
    EXPECT_TRUE(RemoveDirectoryW(systemPath(inner).c_str()));
}

TEST(WindowsTextFiles, AFileThatSomebodyElseWritesIsStillRead) {
    const ScratchFolder folder;
    WindowsTextFiles files;
    files.writeOver(folder / "set.dat", "content");
    const OtherProgram other(folder / "set.dat", GENERIC_WRITE, FILE_SHARE_READ);
    ASSERT_TRUE(other.isOpen());
    EXPECT_EQ(files.readAll(folder / "set.dat"), "content");
    EXPECT_EQ(errorOf([&] { files.writeOver(folder / "set.dat", "x"); }), error::permissionDenied);
    EXPECT_EQ(errorOf([&] { files.remove(folder / "set.dat"); }), error::permissionDenied);
}

TEST(WindowsTextFiles, AWriterWaitsForTheOneBefore) {
    const ScratchFolder folder;
    WindowsTextFiles files;
    files.writeOver(folder / "set.dat", "old");
    OtherProgram other(folder / "set.dat", GENERIC_WRITE, FILE_SHARE_READ);
    ASSERT_TRUE(other.isOpen());
    auto writing =
        std::async(std::launch::async, [&] { files.writeOver(folder / "set.dat", "new"); });
    EXPECT_EQ(writing.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    EXPECT_EQ(contentsOf(folder / "set.dat"), "old");
    other.close();
    writing.get();
    EXPECT_EQ(contentsOf(folder / "set.dat"), "new");
}

TEST(WindowsTextFiles, AReaderWaitsForAWriterThatHasLockedTheFile) {
    const ScratchFolder folder;
    WindowsTextFiles files;
    files.writeOver(folder / "set.dat", "content");
    OtherProgram other(folder / "set.dat", GENERIC_WRITE, FILE_SHARE_READ);
    ASSERT_TRUE(other.lock());
    if (!OtherProgram::keepsReadersAway(folder / "set.dat")) {
        std::cout << "skipped: locks keep nobody away here\n";
        GTEST_SKIP() << "locks keep nobody away here";
    }
    auto reading =
        std::async(std::launch::async, [&] { return files.readAll(folder / "set.dat"); });
    EXPECT_EQ(reading.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    other.close();
    EXPECT_EQ(reading.get(), "content");
}

TEST(WindowsTextFiles, AFileThatStaysLockedIsNotReadForEver) {
    const ScratchFolder folder;
    WindowsTextFiles files;
    files.writeOver(folder / "set.dat", "content");
    const OtherProgram other(folder / "set.dat", GENERIC_WRITE, FILE_SHARE_READ);
    ASSERT_TRUE(other.lock());
    if (!OtherProgram::keepsReadersAway(folder / "set.dat")) {
        std::cout << "skipped: locks keep nobody away here\n";
        GTEST_SKIP() << "locks keep nobody away here";
    }
    EXPECT_EQ(errorOf([&] { files.readAll(folder / "set.dat"); }), error::deviceIo);
}

TEST(WindowsTextFiles, AFileThatSomebodyElseHoldsForHimselfIsNotRead) {
    const ScratchFolder folder;
    const OtherProgram other(folder / "set.dat", GENERIC_READ, 0);
    ASSERT_TRUE(other.isOpen());
    WindowsTextFiles files;
    EXPECT_EQ(errorOf([&] { files.readAll(folder / "set.dat"); }), error::permissionDenied);
}

TEST(WindowsTextFiles, WritingOverKeepsTheFileItself) {
    const ScratchFolder folder;
    WindowsTextFiles files;
    files.writeOver(folder / "set.dat", "old content");
    ASSERT_TRUE(CreateHardLinkW(toUtf16(folder / "other").c_str(),
                                toUtf16(folder / "set.dat").c_str(), nullptr));
    files.writeOver(folder / "set.dat", "new");
    EXPECT_EQ(contentsOf(folder / "other"), "new");
}

TEST(WindowsTextFiles, WholeFilesBeyondTheSystemsOldLimitOfPathsWork) {
    const ScratchFolder folder;
    const std::string inner = folder / std::string(200, 'a');
    ASSERT_TRUE(CreateDirectoryW(systemPath(inner).c_str(), nullptr));
    const std::string path = inner + '\\' + std::string(200, 'b');
    WindowsTextFiles files;
    files.writeOver(path, "content");
    EXPECT_EQ(files.readAll(path), "content");
    files.remove(path);
    EXPECT_EQ(errorOf([&] { files.readAll(path); }), error::fileNotFound);
    EXPECT_TRUE(RemoveDirectoryW(systemPath(inner).c_str()));
}

TEST(WindowsTextFiles, NoWholeFileIsReachedByAPathUpToItsFirstNul) {
    const ScratchFolder folder;
    WindowsTextFiles files;
    files.writeOver(folder / "set.dat", "content");
    const std::string path = (folder / "set.dat") + std::string("\0.old", 5);
    EXPECT_EQ(errorOf([&] { files.readAll(path); }), error::pathNotFound);
    EXPECT_EQ(errorOf([&] { files.writeOver(path, "x"); }), error::pathNotFound);
    EXPECT_EQ(errorOf([&] { files.remove(path); }), error::fileNotFound);
    EXPECT_EQ(contentsOf(folder / "set.dat"), "content");
}

}  // namespace
}  // namespace velmora::windows
