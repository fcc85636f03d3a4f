// A file that is moved to another drive while others do something to it or to its copy.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <functional>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "platform/windows/files/windows_kernel32.h"
#include "platform/windows/support/other_drive.h"
#include "platform/windows/support/scratch_tree.h"

namespace velmora::tests::windows {

inline constexpr std::size_t largeSize = std::size_t{24} << 20;
inline constexpr DWORD allButRemoving = FILE_SHARE_READ | FILE_SHARE_WRITE;
inline constexpr DWORD everything = allButRemoving | FILE_SHARE_DELETE;

inline std::string largeContent() {
    std::string content(largeSize, '\0');
    for (std::size_t i = 0; i < content.size(); ++i) content[i] = static_cast<char>(i % 251 + 1);
    return content;
}

/// The names in a folder, without looking at the files.
inline std::vector<std::string> namesIn(const std::string& folder) {
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

inline HANDLE openFile(const std::string& path, DWORD access, DWORD sharing) {
    return CreateFileW(byTheLetter(path).c_str(), access, sharing, nullptr, OPEN_EXISTING, 0,
                       nullptr);
}

class DriveMoveTest : public testing::Test {
  protected:
    void SetUp() override {
        if (!other_) GTEST_SKIP() << "no other drive";
        makeFolder(in("from"));
    }
    std::string in(const std::string& name) const { return scratch_ / name; }
    std::string source() const { return in("from\\file"); }
    std::string target() const { return other_ / "new file"; }
    bool move() { return kernel32_.MoveFileA(source(), target()) == 1; }

    /// Moves while the copy is held open from the first moment possible, so that it can't be
    /// renamed or removed, and does something meanwhile. When it is opened too late, tries again.
    /// Where a file can't be opened while it is copied, `isHeld_` may stay false.
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
    velmora::windows::WindowsKernel32 kernel32_;
    bool isHeld_ = false;
    std::string content_;
};

}  // namespace velmora::tests::windows
