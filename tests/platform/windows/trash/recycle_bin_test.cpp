// Emptying the bin. It would be the user's own, so it is only done where the tests have been given
// another one.
#include "platform/windows/desktop/windows_shell32.h"

#include <gtest/gtest.h>
// After the one of the shell: the system's headers give names in it to their wide versions.
#include <windows.h>
// After the one above, which it needs.
#include <shellapi.h>

#include <filesystem>
#include <fstream>
#include <iostream>

#include "platform/windows/support/own_bin.h"
#include "platform/windows/support/scratch_folder.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {
namespace {

// What lies in the bin of the tests, by the listing of its folder.
std::size_t countIn(const std::string& folder) {
    std::error_code failure;
    const std::filesystem::directory_iterator entries(toUtf16(folder), failure);
    return failure ? 0 : static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

bool moveToBin(const std::string& path) {
    std::wstring names = toUtf16(path);
    names += L'\0';
    SHFILEOPSTRUCTW order{};
    order.wFunc = FO_DELETE;
    order.pFrom = names.c_str();
    order.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI;
    return SHFileOperationW(&order) == 0;
}

TEST(RecycleBin, IsEmptiedWithoutAQuestion) {
    const std::string bin = tests::windows::ownBin();
    if (bin.empty()) {
        const std::string reason = "VELMORA_OWN_RECYCLE_BIN names no bin of the tests' own";
        std::cout << "skipped: " << reason << '\n';
        GTEST_SKIP() << reason;
    }
    tests::windows::clearOwnBin(bin);
    const ScratchFolder scratch;
    for (const char* name : {"one", "two ö"}) {
        std::ofstream(std::filesystem::path(toUtf16(scratch / name))) << "x";
        ASSERT_TRUE(moveToBin(scratch / name));
    }
    ASSERT_GE(countIn(bin + "\\files"), 2u);
    WindowsShell32 shell;
    EXPECT_EQ(shell.SHEmptyRecycleBinA("Form1", "", 7), 0);
    EXPECT_EQ(countIn(bin + "\\files"), 0u);
    EXPECT_EQ(countIn(bin + "\\info"), 0u);
}

}  // namespace
}  // namespace velmora::windows
