// The folder browser, driven by a second thread in place of the user.
#include "platform/windows/desktop/windows_shell32.h"

#include <gtest/gtest.h>
// After the one of the shell: the system's headers give names in it to their wide versions.
#include <windows.h>
// After the one above, which they need.
#include <commctrl.h>
#include <shlobj.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <thread>

#include "platform/windows/support/scratch_folder.h"
#include "platform/windows/system/utf16.h"
#include "support/wait.h"

#undef SHBrowseForFolder

namespace velmora::windows {
namespace {

// Without a display Wine makes no window.
bool hasDisplay() {
    HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                  nullptr, nullptr);
    if (!window) return false;
    DestroyWindow(window);
    return true;
}

std::wstring classOf(HWND window) {
    wchar_t name[100];
    return {name, static_cast<std::size_t>(GetClassNameW(window, name, 100))};
}

BOOL CALLBACK takeOwnDialog(HWND window, LPARAM found) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId() || classOf(window) != L"#32770") return TRUE;
    if (!IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

HWND dialog() {
    HWND found = nullptr;
    EnumWindows(takeOwnDialog, reinterpret_cast<LPARAM>(&found));
    return found;
}

bool hasText(HWND window, const std::wstring& wanted) {
    struct Search {
        const std::wstring& wanted;
        bool isFound;
    } search{wanted, false};
    const auto look = [](HWND child, LPARAM data) -> BOOL {
        auto& each = *reinterpret_cast<Search*>(data);
        wchar_t text[200];
        const int size = GetWindowTextW(child, text, 200);
        each.isFound = each.isFound || std::wstring(text, text + size) == each.wanted;
        return TRUE;
    };
    EnumChildWindows(window, look, reinterpret_cast<LPARAM>(&search));
    return search.isFound;
}

BOOL CALLBACK takeTree(HWND child, LPARAM found) {
    if (classOf(child) != WC_TREEVIEWW) return TRUE;
    *reinterpret_cast<HWND*>(found) = child;
    return FALSE;
}

// The name of the folder that the dialog has selected; empty for none.
std::wstring selectedIn(HWND window) {
    HWND tree = nullptr;
    EnumChildWindows(window, takeTree, reinterpret_cast<LPARAM>(&tree));
    wchar_t text[200]{};
    TVITEMW item{};
    item.mask = TVIF_TEXT;
    item.hItem = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0));
    item.pszText = text;
    item.cchTextMax = 200;
    if (item.hItem) SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return text;
}

void click(HWND window, int button) {
    PostMessageW(GetDlgItem(window, button), BM_CLICK, 0, 0);
}

class FolderDialog : public testing::Test {
  protected:
    void SetUp() override {
        if (hasDisplay()) return;
        std::cout << "skipped: no display\n";
        GTEST_SKIP() << "no display";
    }

    // Shows the dialog, and does this once it is open.
    template <typename Act>
    Browse browse(Act&& act, const std::function<void()>& whileOpen = {}) {
        std::atomic<bool> isOver = false;
        std::thread user([&] {
            HWND shown = nullptr;
            waitUntil([&] { return isOver || (shown = dialog()) != nullptr; },
                      std::chrono::seconds(30));
            if (shown) act(shown);
        });
        const struct End {
            std::atomic<bool>& isOver;
            std::thread& thread;
            ~End() {
                isOver = true;
                thread.join();
            }
        } end{isOver, user};
        return shell_.SHBrowseForFolder(
            {.owner = "Form1", .title = "Wähle 日本", .flags = 3, .whileOpen = whileOpen}, list_);
    }

    WindowsShell32 shell_;
    ItemIdList list_{"as before"};
};

TEST_F(FolderDialog, OkGivesTheFolderThatIsSelected) {
    const ScratchFolder scratch;
    const std::wstring name = L"Größe the one";
    const std::string folder = scratch / toUtf8(name);
    std::filesystem::create_directory(toUtf16(folder));
    const std::wstring wide = toUtf16(folder);
    // On the dialog's own thread, so that nothing of the dialog's own comes in between: it may
    // select its first folder as late as it is given the focus.
    const auto latest = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    const auto selectThenOk = [&] {
        HWND window = dialog();
        if (!window) return;
        if (selectedIn(window) == name)
            SendMessageW(GetDlgItem(window, IDOK), BM_CLICK, 0, 0);
        else if (std::chrono::steady_clock::now() > latest)
            click(window, IDCANCEL);
        else
            SendMessageW(window, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(wide.c_str()));
    };
    ASSERT_EQ(browse([](HWND) {}, selectThenOk), Browse::chosen);
    std::string buffer(1024, ' ');
    ASSERT_TRUE(shell_.SHGetPathFromIDListA(list_, buffer));
    EXPECT_EQ(std::string(buffer.c_str()), folder);
}

TEST_F(FolderDialog, CancelAndClosingDismissIt) {
    EXPECT_EQ(browse([](HWND window) { click(window, IDCANCEL); }), Browse::dismissed);
    EXPECT_EQ(browse([](HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); }), Browse::dismissed);
    EXPECT_EQ(list_.place, "as before");
}

TEST_F(FolderDialog, ShowsItsTitleToTheUser) {
    bool isShown = false;
    browse([&](HWND window) {
        isShown = hasText(window, L"Wähle 日本");
        click(window, IDCANCEL);
    });
    EXPECT_TRUE(isShown);
}

TEST_F(FolderDialog, TheProgramGoesOnWhileItIsOpen) {
    std::atomic<int> runs = 0;
    const auto cancelLater = [&](HWND window) {
        EXPECT_TRUE(waitUntil([&] { return runs >= 3; }));
        click(window, IDCANCEL);
    };
    EXPECT_EQ(browse(cancelLater, [&] { ++runs; }), Browse::dismissed);
}

TEST_F(FolderDialog, IsClosedWhenWhatRunsBesideItThrows) {
    const auto run = [&] { browse([](HWND) {}, [] { throw std::runtime_error("end"); }); };
    EXPECT_THROW(run(), std::runtime_error);
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_EQ(list_.place, "as before");
}

}  // namespace
}  // namespace velmora::windows
