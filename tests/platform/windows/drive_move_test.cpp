// Moving a file to another drive while others look at it, hold it, write to it and remove it.
#include "platform/windows/drive_move.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <cstring>
#include <functional>
#include <iostream>
#include <thread>

#include "other_drive.h"
#include "platform/windows/windows_kernel32.h"
#include "scratch_tree.h"

namespace velmora::windows {
namespace {

using tests::windows::byTheLetter;
using tests::windows::isThere;
using tests::windows::makeFile;
using tests::windows::makeFolder;
using tests::windows::OtherDrive;
using tests::windows::runHostProgram;
using tests::windows::ScratchTree;
using tests::windows::treeOf;

constexpr std::uint32_t existsAlready = 183;
constexpr std::size_t largeSize = std::size_t{24} << 20;
constexpr DWORD allButRemoving = FILE_SHARE_READ | FILE_SHARE_WRITE;
constexpr DWORD everything = allButRemoving | FILE_SHARE_DELETE;

std::string largeContent() {
    std::string content(largeSize, '\0');
    for (std::size_t i = 0; i < content.size(); ++i) content[i] = static_cast<char>(i % 251 + 1);
    return content;
}

// The names in a folder, without looking at the files.
std::vector<std::string> namesIn(const std::string& folder) {
    std::vector<std::string> names;
    WIN32_FIND_DATAW entry{};
    const HANDLE search = FindFirstFileW((byTheLetter(folder) + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        const std::string name = toUtf8(entry.cFileName);
        if (name != "." && name != "..") names.push_back(name);
    } while (FindNextFileW(search, &entry));
    FindClose(search);
    return names;
}

HANDLE openFile(const std::string& path, DWORD access, DWORD sharing) {
    return CreateFileW(byTheLetter(path).c_str(), access, sharing, nullptr, OPEN_EXISTING, 0,
                       nullptr);
}

class WindowsDriveMove : public testing::Test {
  protected:
    void SetUp() override {
        if (!other_) GTEST_SKIP() << "no other drive";
        makeFolder(in("from"));
    }
    std::string in(const std::string& name) const { return scratch_ / name; }
    std::string source() const { return in("from\\file"); }
    std::string target() const { return other_ / "new file"; }
    bool move() { return kernel32_.MoveFileA(source(), target()) == 1; }

    /// Moves while somebody holds the copy as soon as it can be opened, so that it can't be
    /// renamed or removed, and does something meanwhile. Who comes too late tries again. Where the
    /// system lets nobody open what it copies, `isHeld_` may stay false.
    bool moveWhile(const std::function<void()>& act) {
        constexpr int tries = 10;
        for (int i = 1;; ++i) {
            const bool isMoved = moveOnceWhile(act);
            if (isHeld_ || !isMoved) return isMoved;
            if (i == tries) break;
            EXPECT_TRUE(kernel32_.MoveFileA(target(), source()));
        }
        std::cout << "skipped: the copy was gone before it could be held\n";
        return true;
    }
    bool moveOnceWhile(const std::function<void()>& act) {
        std::atomic<bool> isOver = false;
        std::atomic<bool> isLooking = false;
        std::thread scanner([&] {
            HANDLE held = INVALID_HANDLE_VALUE;
            while (!isOver && held == INVALID_HANDLE_VALUE) {
                for (const std::string& name : namesIn(other_.path()))
                    if (name.ends_with(".part"))
                        held = openFile(other_ / name, GENERIC_READ, allButRemoving);
                isLooking = true;
            }
            if (held == INVALID_HANDLE_VALUE) return;
            isHeld_ = true;
            act();
            CloseHandle(held);
        });
        waitUntil([&] { return isLooking.load(); });
        const bool isMoved = move();
        isOver = true;
        scanner.join();
        return isMoved;
    }
    void makeSource() {
        content_ = largeContent();
        makeFile(source(), content_);
    }
    void expectOnlyAtSource(const std::string& content) {
        EXPECT_EQ(namesIn(other_.path()), std::vector<std::string>{});
        EXPECT_TRUE(contentsOf(source()) == content);
    }
    void expectOnlyAtTarget(const std::string& content) {
        EXPECT_EQ(namesIn(other_.path()), std::vector<std::string>{"new file"});
        EXPECT_TRUE(contentsOf(target()) == content);
        EXPECT_FALSE(isThere(source()));
    }

    ScratchTree scratch_;
    OtherDrive other_;
    WindowsKernel32 kernel32_;
    bool isHeld_ = false;
    std::string content_;
};

TEST_F(WindowsDriveMove, NothingButTheWholeFileEverAppearsUnderItsName) {
    makeSource();
    std::atomic<bool> isOver = false;
    std::atomic<bool> isLooking = false;
    int incomplete = 0;
    std::thread watcher([&] {
        while (!isOver) {
            WIN32_FILE_ATTRIBUTE_DATA told{};
            const bool isSeen =
                GetFileAttributesExW(byTheLetter(target()).c_str(), GetFileExInfoStandard, &told);
            isLooking = true;
            if (!isSeen) continue;
            if (told.nFileSizeLow != largeSize) ++incomplete;
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

TEST_F(WindowsDriveMove, AScannerOfTheCopyDelaysTheMoveAndLeavesNothingBehind) {
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
    EXPECT_EQ(kernel32_.GetLastError(), existsAlready);
    EXPECT_EQ(other_.tree(), (std::vector<std::string>{"\\new file file 6 [theirs]"}));
    EXPECT_TRUE(contentsOf(source()) == content_);
}

TEST_F(WindowsDriveMove, NobodyWritesToAFileThatIsBeingMoved) {
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

// Programs of the host below Wine do what they like to files in use, as those of another machine.
class WindowsDriveMoveBesideHost : public WindowsDriveMove {
  protected:
    void SetUp() override {
        WindowsDriveMove::SetUp();
        if (IsSkipped()) return;
        if (!isUnderWine()) {
            std::cout << "skipped: files in use can't be changed here\n";
            GTEST_SKIP() << "no host";
        }
        makeSource();
    }
    void runInFrom(const std::string& line) { runHostProgram(in("from"), line); }
};

TEST_F(WindowsDriveMoveBesideHost, AFileThatChangesMeanwhileStaysWithoutACopy) {
    EXPECT_FALSE(moveWhile([&] {
        makeFile(in("from\\newer"), "newer content");
        runInFrom(R"(Z:\bin\cp newer file)");
        waitUntil([&] { return contentsOf(source()) == "newer content"; });
    }));
    EXPECT_TRUE(isHeld_);
    expectOnlyAtSource("newer content");
}

TEST_F(WindowsDriveMoveBesideHost, AFileThatIsReplacedMeanwhileStaysWithoutACopy) {
    EXPECT_FALSE(moveWhile([&] {
        makeFile(in("from\\newer"), "replacer");
        runInFrom(R"(Z:\bin\mv -f newer file)");
        waitUntil([&] { return !isThere(in("from\\newer")); });
    }));
    EXPECT_TRUE(isHeld_);
    expectOnlyAtSource("replacer");
}

TEST_F(WindowsDriveMoveBesideHost, AFileThatIsRemovedMeanwhileHasBeenMoved) {
    EXPECT_TRUE(moveWhile([&] {
        runInFrom(R"(Z:\bin\rm -f file)");
        waitUntil([&] { return !isThere(source()); });
    }));
    EXPECT_TRUE(isHeld_);
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
