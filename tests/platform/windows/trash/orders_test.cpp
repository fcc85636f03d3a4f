// Orders to the shell: removing by way of the recycle bin, starting programs; and sounds.
#include <gtest/gtest.h>
#include <windows.h>
// After the one above, which it needs.
#include <mmsystem.h>

#include <algorithm>
#include <iostream>

#include "base/errors.h"
#include "platform/windows/desktop/windows_shell32.h"
#include "platform/windows/desktop/windows_winmm.h"
#include "platform/windows/support/own_bin.h"
#include "platform/windows/support/scratch_tree.h"
#include "platform/windows/trash/file_operation.h"

namespace velmora::windows {
namespace {

using tests::windows::isThere;
using tests::windows::Link;
using tests::windows::makeFile;
using tests::windows::makeFolder;
using tests::windows::ScratchTree;
using tests::windows::treeOf;
using tests::windows::without;

constexpr std::uint16_t intoBin = file_operation::allowUndo | file_operation::silent |
                                  file_operation::noConfirmation | file_operation::noErrorBox;
constexpr std::uint16_t forGood =
    file_operation::silent | file_operation::noConfirmation | file_operation::noErrorBox;

class WindowsOrders : public testing::Test {
  protected:
    void SetUp() override {
        makeFile(in("one.txt"), "one");
        makeFile(in("zwei Größe \u65e5\u672c.txt"), "zwei");
        makeFolder(in("folder"));
        makeFile(in("folder\\three.txt"), "three");
        makeFolder(in("folder2"));
        makeFile(in("folder2\\three.txt"), "keep me");
    }
    std::string in(const std::string& name) const { return scratch_ / name; }
    auto tree() const { return treeOf(scratch_.path()); }
    std::int32_t remove(const std::string& paths, std::uint16_t flags) {
        return shell_.SHFileOperationA(
            {.owner = "Form1", .wFunc = file_operation::remove, .pFrom = paths, .fFlags = flags});
    }
    static std::string withEnd(const std::string& path) { return path + '\0'; }

    ScratchTree scratch_;
    WindowsShell32 shell_;
};

// The bin would be the user's own.
class WindowsOwnBin : public WindowsOrders {
  protected:
    void SetUp() override {
        WindowsOrders::SetUp();
        bin_ = tests::windows::ownBin();
        if (!bin_.empty()) return;
        std::cout << "skipped: VELMORA_OWN_RECYCLE_BIN names no bin of the tests' own\n";
        GTEST_SKIP() << "no bin of the tests' own";
    }
    void TearDown() override {
        if (!bin_.empty()) tests::windows::clearOwnBin(bin_);
    }

    std::string bin_;
};

bool endsWith(const std::vector<std::string>& lines, const std::string& end) {
    return std::any_of(lines.begin(), lines.end(),
                       [&](const std::string& line) { return line.ends_with(end); });
}

TEST_F(WindowsOwnBin, AFileGoesIntoTheBinAndNothingElse) {
    const auto before = tree();
    EXPECT_EQ(remove(withEnd(in("zwei Größe \u65e5\u672c.txt")), intoBin), 0);
    EXPECT_EQ(tree(), without(before, "\\zwei"));
    EXPECT_TRUE(endsWith(treeOf(bin_ + "\\files"), " 4 [zwei]"));
}

TEST_F(WindowsOwnBin, SeveralFilesAndFoldersGoInOneOrder) {
    const auto before = tree();
    EXPECT_EQ(remove(withEnd(in("one.txt")) + withEnd(in("folder")), intoBin), 0);
    EXPECT_EQ(tree(), without(without(without(before, "\\one"), "\\folder\\"), "\\folder folder"));
    const auto bin = treeOf(bin_ + "\\files");
    EXPECT_TRUE(endsWith(bin, " 3 [one]"));
    EXPECT_TRUE(endsWith(bin, " 5 [three]"));
}

TEST_F(WindowsOrders, AFileGoesForGoodWithoutTheBin) {
    const auto before = tree();
    EXPECT_EQ(remove(withEnd(in("one.txt")), forGood), 0);
    EXPECT_EQ(tree(), without(before, "\\one"));
}

TEST_F(WindowsOrders, ThePathNeedsNoNulAfterIt) {
    const auto before = tree();
    EXPECT_EQ(remove(in("one.txt"), forGood), 0);
    EXPECT_EQ(tree(), without(before, "\\one"));
}

TEST_F(WindowsOrders, WhatIsNotThereIsCode2AndNothingElseGoes) {
    const auto before = tree();
    for (const std::uint16_t flags : {intoBin, forGood}) {
        EXPECT_EQ(remove(withEnd(in("missing.txt")), flags), 2);
        EXPECT_EQ(remove(withEnd(in("missing\\one.txt")), flags), 2);
        EXPECT_EQ(remove(withEnd(in("one.txt")) + withEnd(in("missing.txt")), flags), 2);
        EXPECT_EQ(remove(withEnd(""), flags), 2);
        EXPECT_EQ(remove("", flags), 2);
    }
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsOrders, NoPatternRemovesAnything) {
    const auto before = tree();
    for (const char* name : {"*", "*.*", "one.t?t", "folder\\*"})
        EXPECT_EQ(remove(withEnd(in(name)), forGood), 2) << name;
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsOrders, NoNameIsTakenForAnother) {
    const auto before = tree();
    for (const char* name : {"one.txt.", "one.txt ", "folder.", "one.txt:stream"})
        EXPECT_EQ(remove(withEnd(in(name)), forGood), 2) << name;
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsOrders, APatternIsNeverTakenForSeveralFiles) {
    const auto before = tree();
    for (const std::uint16_t flags : {intoBin, forGood}) {
        EXPECT_EQ(remove(withEnd(in("folder\\*")), flags), 2);
        EXPECT_EQ(remove(withEnd(in("folder\\thre?.txt")), flags), 2);
        EXPECT_EQ(remove(withEnd(in("folde?\\three.txt")), flags), 2);
    }
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsOrders, AnUntidyNameIsRefused) {
    const auto before = tree();
    for (const std::uint16_t flags : {intoBin, forGood}) {
        EXPECT_EQ(remove(withEnd(in("folder\\three.txt.")), flags), 2);
        EXPECT_EQ(remove(withEnd(in("folder\\three.txt ")), flags), 2);
        EXPECT_EQ(remove(withEnd(in("folder \\three.txt")), flags), 2);
        EXPECT_EQ(remove(withEnd(in("folder ")), flags), 2);
    }
    EXPECT_EQ(tree(), before);
}

// Of a drive that isn't there, lest a mistake here remove a real one's files.
TEST_F(WindowsOrders, ADrivesRootIsRefused) {
    for (const std::uint16_t flags : {intoBin, forGood})
        for (const char* root : {"Q:\\", "Q:\\old\\..", "Q:/", "Q:\\.", "Q:\\..", "\\\\?\\Q:\\"})
            EXPECT_EQ(remove(withEnd(root), flags), 5) << root;
}

TEST_F(WindowsOrders, APathThroughALinkIsRefused) {
    const Link link(scratch_.path(), "link", "folder");
    if (!link) GTEST_SKIP() << "no links";
    const auto before = tree();
    for (const std::uint16_t flags : {intoBin, forGood}) {
        EXPECT_EQ(remove(withEnd(in("link\\three.txt")), flags), 5);
        EXPECT_EQ(remove(withEnd(in("one.txt")) + withEnd(in("link\\three.txt")), flags), 5);
    }
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsOrders, ALinkToAFolderStaysWithAllBeyondIt) {
    const Link link(scratch_.path(), "link", "folder");
    if (!link) GTEST_SKIP() << "no links";
    const auto before = tree();
    for (const std::uint16_t flags : {intoBin, forGood})
        EXPECT_EQ(remove(withEnd(link.path()), flags), 5);
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsOrders, ALinkToAFileNeverTakesTheFile) {
    const Link link(scratch_.path(), "link", "one.txt");
    if (!link) GTEST_SKIP() << "no links";
    remove(withEnd(link.path()), forGood);
    EXPECT_EQ(contentsOf(in("one.txt")), "one");
}

TEST_F(WindowsOrders, APageGoesWithoutTheFolderOfItsName) {
    makeFile(in("page.htm"), "page");
    makeFolder(in("page_files"));
    makeFile(in("page_files\\picture.png"), "picture");
    const auto before = tree();
    EXPECT_EQ(remove(withEnd(in("page.htm")), forGood), 0);
    EXPECT_EQ(tree(), without(before, "\\page.htm"));
}

TEST_F(WindowsOrders, OnlyTheNamedGoesAndNothingForGoodThatIsMeantForTheBin) {
    constexpr std::uint16_t noConnected = 0x2000;
    constexpr std::uint16_t nukeWarning = 0x4000;
    EXPECT_EQ(flagsForShell(0), noConnected);
    EXPECT_EQ(flagsForShell(forGood), forGood | noConnected);
    EXPECT_EQ(flagsForShell(0x40), 0x40 | noConnected | nukeWarning);
    EXPECT_EQ(flagsForShell(intoBin), intoBin | noConnected | nukeWarning);
}

TEST_F(WindowsOrders, NothingButRemovingIsOrdered) {
    const auto before = tree();
    for (const std::uint32_t order : {0u, 1u, 2u, 4u})
        EXPECT_EQ(shell_.SHFileOperationA({"Form1", order, withEnd(in("one.txt")), forGood}), 87);
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsOrders, APathBeyondTheSystemsOldLimitIsRefused) {
    const std::string inner = in(std::string(200, 'a') + '\\' + std::string(200, 'b'));
    makeFolder(in(std::string(200, 'a')));
    makeFolder(inner);
    makeFile(inner + "\\one.txt", "x");
    const auto before = tree();
    EXPECT_EQ(remove(withEnd(inner + "\\one.txt"), intoBin), 206);
    EXPECT_EQ(tree(), before);
}

std::string ownProgram() {
    wchar_t path[MAX_PATH];
    return toUtf8(std::wstring(path, GetModuleFileNameW(nullptr, path, MAX_PATH)));
}

// Arguments with which this program writes a report of no test and ends.
std::string writing(const std::string& report) {
    return " --gtest_filter=-* \"--gtest_output=xml:" + report + '"';
}

bool isWritten(const std::string& report) {
    return waitUntil([&] { return contentsOf(report).find("</testsuites>") != std::string::npos; },
                     std::chrono::seconds(60));
}

TEST_F(WindowsOrders, AProgramIsStartedWithItsArguments) {
    shell_.Shell('"' + ownProgram() + '"' + writing(in("the report.xml")), 0);
    EXPECT_TRUE(isWritten(in("the report.xml")));
}

TEST_F(WindowsOrders, APathWithBlanksNeedsNoQuotes) {
    const std::string copy = in("two words.exe");
    ASSERT_TRUE(CopyFileW(toUtf16(ownProgram()).c_str(), toUtf16(copy).c_str(), TRUE));
    shell_.Shell(copy + writing(in("report.xml")), 0);
    EXPECT_TRUE(isWritten(in("report.xml")));
    // It may be running still when its report is there.
    EXPECT_TRUE(waitUntil([&] { return DeleteFileW(toUtf16(copy).c_str()); }));
}

TEST_F(WindowsOrders, AProgramThatIsNotThereIsError53) {
    EXPECT_EQ(errorOf([&] { shell_.Shell(in("missing.exe") + " a b", 1); }), 53);
    EXPECT_EQ(errorOf([&] { shell_.Shell('"' + in("missing\\x y.exe") + '"', 1); }), 53);
    EXPECT_EQ(errorOf([&] { shell_.Shell("velmora-nowhere", 1); }), 53);
}

TEST_F(WindowsOrders, AFileThatIsNoProgramIsError5) {
    EXPECT_EQ(errorOf([&] { shell_.Shell(in("one.txt"), 1); }), 5);
    EXPECT_EQ(errorOf([&] { shell_.Shell("", 1); }), 5);
    EXPECT_EQ(errorOf([&] { shell_.Shell(std::string("a\0b", 3), 1); }), 5);
}

TEST_F(WindowsOrders, ASoundThatIsNotThereIsNotPlayed) {
    WindowsWinmm winmm;
    EXPECT_EQ(winmm.sndPlaySoundA(in("missing.wav"), sound::noDefault), 0);
    EXPECT_EQ(winmm.sndPlaySoundA(in("missing.wav"), 0), 0);
    EXPECT_EQ(winmm.sndPlaySoundA(in("folder"), sound::noDefault), 0);
    EXPECT_EQ(winmm.sndPlaySoundA("", sound::noDefault), 0);
    EXPECT_EQ(winmm.sndPlaySoundA(in("one.txt") + std::string("\0x", 2), sound::noDefault), 0);
    EXPECT_EQ(winmm.sndPlaySoundA(in("one.txt"), sound::noDefault), 0);
}

TEST_F(WindowsOrders, WithoutADeviceNothingIsPlayed) {
    if (waveOutGetNumDevs() != 0) {
        std::cout << "skipped: there is a sound device, which stays silent\n";
        GTEST_SKIP() << "a sound device";
    }
    std::string silence(
        "RIFF\x2c\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1f\0\0\x40\x1f\0\0\1\0\x8\0"
        "data\x8\0\0\0",
        44);
    makeFile(in("silence.wav"), silence + std::string(8, '\x80'));
    EXPECT_EQ(WindowsWinmm().sndPlaySoundA(in("silence.wav"), sound::noDefault), 0);
}

}  // namespace
}  // namespace velmora::windows
