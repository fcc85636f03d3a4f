// Moving a file to another drive while others look at it, hold it and write to it.
#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <cstring>
#include <iostream>
#include <thread>

#include "platform/windows/moving/drive_move_rig.h"

namespace velmora::windows {
namespace {

using tests::windows::byTheLetter;
using tests::windows::DriveMoveTest;
using tests::windows::everything;
using tests::windows::isThere;
using tests::windows::largeSize;
using tests::windows::makeFile;
using tests::windows::namesIn;
using tests::windows::openFile;

constexpr std::uint32_t nameTaken = 183;

class WindowsDriveMove : public DriveMoveTest {};

TEST_F(WindowsDriveMove, NothingButTheWholeFileEverAppearsUnderItsName) {
    makeSource();
    std::atomic<bool> isOver = false;
    std::atomic<bool> isLooking = false;
    int incomplete = 0;
    std::thread watcher([&] {
        while (!isOver) {
            WIN32_FILE_ATTRIBUTE_DATA attributes{};
            const bool isSeen = GetFileAttributesExW(byTheLetter(target()).c_str(),
                                                     GetFileExInfoStandard, &attributes);
            isLooking = true;
            if (!isSeen) continue;
            if (attributes.nFileSizeLow != largeSize) ++incomplete;
            // The system may give a copy its size before its bytes.
            const HANDLE file = openFile(target(), GENERIC_READ, everything);
            if (file == INVALID_HANDLE_VALUE) continue;
            SetFilePointer(file, -1, nullptr, FILE_END);
            char last = 0;
            DWORD got = 0;
            if (!ReadFile(file, &last, 1, &got, nullptr) || last != content_.back()) ++incomplete;
            CloseHandle(file);
        }
    });
    waitUntil([&] { return isLooking.load(); });
    EXPECT_TRUE(move());
    isOver = true;
    watcher.join();
    EXPECT_EQ(incomplete, 0);
    expectOnlyAtTarget(content_);
}

TEST_F(WindowsDriveMove, AScannerOfTheCopyDelaysTheMoveAndNothingIsLeftOver) {
    makeSource();
    EXPECT_TRUE(moveWhile([] { waitUntil([] { return false; }, std::chrono::milliseconds(400)); }));
    expectOnlyAtTarget(content_);
}

// Longer than the move waits for it.
TEST_F(WindowsDriveMove, AScannerThatTakesLongLeavesTheFileWhereItWas) {
    makeSource();
    const bool isMoved =
        moveWhile([] { waitUntil([] { return false; }, std::chrono::milliseconds(4500)); });
    if (isHeld_) {
        EXPECT_FALSE(isMoved);
        expectOnlyAtSource(content_);
    }
}

TEST_F(WindowsDriveMove, WhatTakesTheNameMeanwhileIsNotReplaced) {
    makeSource();
    const bool isMoved = moveWhile([&] { makeFile(target(), "theirs"); });
    if (!isHeld_) return;
    EXPECT_FALSE(isMoved);
    EXPECT_EQ(kernel32_.GetLastError(), nameTaken);
    EXPECT_EQ(other_.tree(), (std::vector<std::string>{"\\new file file 6 [theirs]"}));
    EXPECT_TRUE(contentsOf(source()) == content_);
}

TEST_F(WindowsDriveMove, NoProgramCanWriteToAFileThatIsBeingMoved) {
    makeSource();
    DWORD failure = ERROR_SUCCESS;
    EXPECT_TRUE(moveWhile([&] {
        const HANDLE writer = openFile(source(), GENERIC_WRITE, everything);
        failure = writer == INVALID_HANDLE_VALUE ? ::GetLastError() : ERROR_SUCCESS;
        if (writer != INVALID_HANDLE_VALUE) CloseHandle(writer);
    }));
    if (isHeld_) {
        EXPECT_EQ(failure, DWORD{ERROR_SHARING_VIOLATION});
    }
    expectOnlyAtTarget(content_);
}

// Some systems don't remove a file whose content is mapped, which shows only in the end.
TEST_F(WindowsDriveMove, AFileThatCanNotBeRemovedInTheEndLeavesNoCopy) {
    makeFile(source(), "content");
    const HANDLE file = openFile(source(), GENERIC_READ, everything);
    const HANDLE mapping = CreateFileMappingW(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    CloseHandle(file);
    ASSERT_NE(mapping, nullptr);
    const bool isMoved = move();
    EXPECT_FALSE(isMoved && isUnderWine());
    isMoved ? expectOnlyAtTarget("content") : expectOnlyAtSource("content");
    CloseHandle(mapping);
    EXPECT_TRUE(isMoved || move());
}

// Writes and closes in a loop, and knows what it has written last.
class BusyWriter {
  public:
    explicit BusyWriter(const std::string& path) : path_(path), thread_([this] { run(); }) {
        waitUntil([this] { return last_ > 3; });
    }
    ~BusyWriter() { end(); }
    BusyWriter(const BusyWriter&) = delete;
    BusyWriter& operator=(const BusyWriter&) = delete;

    int end() {
        isOver_ = true;
        if (thread_.joinable()) thread_.join();
        return last_;
    }

  private:
    void run() {
        for (int i = 1; !isOver_; ++i) {
            const HANDLE file = openFile(path_, GENERIC_WRITE, everything);
            if (file == INVALID_HANDLE_VALUE) continue;
            DWORD written = 0;
            SetFilePointer(file, -static_cast<LONG>(sizeof i), nullptr, FILE_END);
            if (WriteFile(file, &i, sizeof i, &written, nullptr)) last_ = i;
            CloseHandle(file);
            waitUntil([this] { return isOver_.load(); }, std::chrono::milliseconds(i % 8));
        }
    }

    std::string path_;
    std::atomic<bool> isOver_ = false;
    std::atomic<int> last_ = 0;
    std::thread thread_;
};

int lastNumberIn(const std::string& path) {
    const std::string content = contentsOf(path);
    int number = -1;
    if (content.size() == largeSize)
        std::memcpy(&number, content.data() + content.size() - sizeof number, sizeof number);
    return number;
}

TEST_F(WindowsDriveMove, AFileThatIsWrittenAgainAndAgainLosesNothing) {
    makeFile(source(), std::string(largeSize, 'x'));
    int moved = 0;
    int refused = 0;
    for (int round = 0; round < 10; ++round) {
        BusyWriter writer(source());
        const bool isMoved = move();
        const int last = writer.end();
        ++(isMoved ? moved : refused);
        ASSERT_EQ(lastNumberIn(isMoved ? target() : source()), last);
        ASSERT_EQ(isThere(source()), !isMoved);
        ASSERT_EQ(namesIn(other_.path()).size(), isMoved ? 1u : 0u);
        ASSERT_TRUE(!isMoved || kernel32_.MoveFileA(target(), source()));
    }
    std::cout << moved << " moved, " << refused << " refused\n";
}

}  // namespace
}  // namespace velmora::windows
