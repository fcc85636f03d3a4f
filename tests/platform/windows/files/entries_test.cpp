// Properties of files and folders.
#include <gtest/gtest.h>
#include <windows.h>

#include <ctime>
#include <iostream>

#include "base/errors.h"
#include "platform/windows/entries/entry_facts.h"
#include "platform/windows/files/windows_file_system_object.h"
#include "platform/windows/paths/exact_path.h"
#include "platform/windows/support/scratch_tree.h"

namespace velmora::windows {
namespace {

using tests::windows::byTheLetter;
using tests::windows::FileInUse;
using tests::windows::Link;
using tests::windows::makeFile;
using tests::windows::makeFolder;
using tests::windows::ScratchTree;
using tests::windows::treeOf;

class WindowsEntries : public testing::Test {
  protected:
    std::string in(const std::string& name) const { return scratch_ / name; }

    ScratchTree scratch_;
    WindowsFileSystemObject fso_;
};

// Units of 100 ns since 1601 of a second since 1970.
std::uint64_t fileTime(std::time_t seconds) {
    return (static_cast<std::uint64_t>(seconds) + 11'644'473'600) * 10'000'000;
}

void setTimes(const std::string& path, std::uint64_t created, std::uint64_t accessed,
              std::uint64_t written) {
    const auto halves = [](std::uint64_t time) {
        return FILETIME{static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
    };
    const FILETIME times[]{halves(created), halves(accessed), halves(written)};
    const HANDLE file =
        CreateFileW(byTheLetter(path).c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ, nullptr,
                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    EXPECT_TRUE(SetFileTime(file, &times[0], &times[1], &times[2]));
    CloseHandle(file);
}

// By the C library, which has rules of its own.
DateTime localOf(std::time_t seconds) {
    const std::tm local = *std::localtime(&seconds);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
}

constexpr std::time_t winter = 1'705'322'096;  // 2024-01-15 12:34:56 UTC
constexpr std::time_t summer = 1'721'046'896;  // 2024-07-15 12:34:56 UTC

TEST_F(WindowsEntries, AFileHasItsPathAndItsSize) {
    makeFile(in("Größe \u65e5\u672c.txt"), "1234567");
    const auto file = fso_.GetFile(in("Größe \u65e5\u672c.txt"));
    EXPECT_EQ(file->Path(), in("Größe \u65e5\u672c.txt"));
    EXPECT_EQ(file->ParentFolder(), scratch_.path());
    EXPECT_EQ(file->Size(), 7);
}

TEST_F(WindowsEntries, TimesAreLocalOnesOfTheirDay) {
    EXPECT_EQ(localTime(fileTime(winter)), localOf(winter));
    EXPECT_EQ(localTime(fileTime(summer)), localOf(summer));
    EXPECT_EQ(localTime(fileTime(summer) + 9'999'999), localOf(summer));
    EXPECT_EQ(localTime(0), DateTime{});
    EXPECT_EQ(localTime(~std::uint64_t{0}), DateTime{});
}

TEST_F(WindowsEntries, FilesAndFoldersTellTheirTimes) {
    makeFile(in("one.txt"), "x");
    makeFolder(in("folder"));
    setTimes(in("one.txt"), fileTime(winter), fileTime(summer), fileTime(winter + 5));
    setTimes(in("folder"), fileTime(winter), fileTime(summer), fileTime(summer + 5));
    const auto file = fso_.GetFile(in("one.txt"));
    EXPECT_EQ(file->DateLastModified(), localOf(winter + 5));
    EXPECT_EQ(file->DateLastAccessed(), localOf(summer));
    const auto folder = fso_.GetFolder(in("folder"));
    EXPECT_EQ(folder->DateLastModified(), localOf(summer + 5));
    // Wine's host keeps no time of creation that could be set.
    if (isUnderWine()) return;
    EXPECT_EQ(file->DateCreated(), localOf(winter));
    EXPECT_EQ(folder->DateCreated(), localOf(winter));
}

TEST_F(WindowsEntries, PropertiesAreReadAtTheFirstQuestion) {
    makeFile(in("one.txt"), "123");
    const auto early = fso_.GetFile(in("one.txt"));
    EXPECT_EQ(early->Size(), 3);
    DeleteFileW(byTheLetter(in("one.txt")).c_str());
    EXPECT_EQ(early->Size(), 3);
    makeFile(in("one.txt"), "12345");
    EXPECT_EQ(early->Size(), 3);
    EXPECT_EQ(fso_.GetFile(in("one.txt"))->Size(), 5);
}

TEST_F(WindowsEntries, AFileThatIsNotThereIsError53) {
    makeFolder(in("folder"));
    for (const char* name : {"missing", "missing\\one.txt", "folder"})
        EXPECT_EQ(errorOf([&] { fso_.GetFile(in(name)); }), 53) << name;
    EXPECT_EQ(errorOf([&] { fso_.GetFile(""); }), 53);
    EXPECT_EQ(errorOf([&] { fso_.GetFile(R"(Q:\one.txt)"); }), 53);
}

TEST_F(WindowsEntries, WhatIsGoneMeanwhileIsAnErrorOfItsKind) {
    makeFile(in("one.txt"), "123");
    makeFolder(in("folder"));
    const auto file = fso_.GetFile(in("one.txt"));
    const auto folder = fso_.GetFolder(in("folder"));
    DeleteFileW(byTheLetter(in("one.txt")).c_str());
    RemoveDirectoryW(byTheLetter(in("folder")).c_str());
    EXPECT_EQ(errorOf([&] { file->Size(); }), 53);
    EXPECT_EQ(errorOf([&] { file->Type(); }), 53);
    EXPECT_EQ(errorOf([&] { file->DateCreated(); }), 53);
    EXPECT_EQ(errorOf([&] { folder->Size(); }), 76);
    EXPECT_EQ(errorOf([&] { folder->Type(); }), 76);
    EXPECT_EQ(errorOf([&] { folder->DateLastAccessed(); }), 76);
}

TEST_F(WindowsEntries, AFileThatSomebodyHoldsForHimselfStillHasItsSize) {
    makeFile(in("one.txt"), "123");
    const FileInUse use(in("one.txt"), 0);
    EXPECT_EQ(fso_.GetFile(in("one.txt"))->Size(), 3);
}

TEST_F(WindowsEntries, AFolderIsAsLargeAsAllFilesBelowIt) {
    EXPECT_EQ(fso_.GetFolder(scratch_.path())->Size(), 0);
    makeFile(in("one.txt"), "123");
    makeFolder(in("folder"));
    makeFile(in("folder\\two"), "12345");
    makeFolder(in("folder\\inner"));
    makeFile(in("folder\\inner\\three."), std::string(1000, 'x'));
    makeFolder(in("folder\\empty"));
    EXPECT_EQ(fso_.GetFolder(scratch_.path())->Size(), 1008);
    EXPECT_EQ(fso_.GetFolder(in("folder"))->Size(), 1005);
}

TEST_F(WindowsEntries, ALinkToAFolderAddsNothingToTheSize) {
    makeFolder(in("target"));
    makeFile(in("target\\one"), "123");
    makeFolder(in("folder"));
    const Link link(in("folder"), "link", "..\\target");
    if (!link) GTEST_SKIP() << "no links";
    EXPECT_EQ(fso_.GetFolder(in("folder"))->Size(), 0);
    EXPECT_EQ(fso_.GetFolder(scratch_.path())->Size(), 3);
}

TEST_F(WindowsEntries, ALinkIntoItsOwnFolderDoesNotMakeTheSizeEndless) {
    makeFile(in("one"), "123");
    const Link link(scratch_.path(), "link", ".");
    if (!link) GTEST_SKIP() << "no links";
    EXPECT_EQ(fso_.GetFolder(scratch_.path())->Size(), 3);
}

TEST_F(WindowsEntries, TheShellNamesTheType) {
    makeFile(in("one.txt"), "123");
    EXPECT_FALSE(fso_.GetFile(in("one.txt"))->Type().empty());
    EXPECT_FALSE(fso_.GetFolder(scratch_.path())->Type().empty());
    EXPECT_FALSE(fso_.GetFolder(R"(C:\)")->Type().empty());
    EXPECT_NE(fso_.GetFile(in("one.txt"))->Type(), fso_.GetFolder(scratch_.path())->Type());
}

TEST(ExactPath, KeepsNamesByTheLetter) {
    const auto path = exactPath(R"(c:/a\.\b .\..\x. \)");
    ASSERT_TRUE(path);
    EXPECT_EQ(path->root, LR"(c:\)");
    EXPECT_EQ(path->names, (std::vector<std::wstring>{L"a", L"x. "}));
    EXPECT_EQ(path->text(), LR"(\\?\c:\a\x. )");
}

TEST(ExactPath, KnowsRootsOfAllKinds) {
    EXPECT_EQ(exactPath(R"(C:\..\..)")->text(), LR"(\\?\C:\)");
    EXPECT_EQ(exactPath(R"(\\host\share)")->root, LR"(\\host\share\)");
    EXPECT_EQ(exactPath(R"(\\host\share\a)")->text(), LR"(\\?\UNC\host\share\a)");
    EXPECT_EQ(exactPath(R"(\\?\UNC\host\share\a)")->text(), LR"(\\?\UNC\host\share\a)");
    EXPECT_EQ(exactPath(R"(\\?\C:\a.)")->text(), LR"(\\?\C:\a.)");
    EXPECT_EQ(exactPath("file")->names.back(), L"file");
}

TEST(ExactPath, IsNoneForWhatNamesNoEntryOfADrive) {
    for (const char* path :
         {"", R"(\\.\C:\a)", R"(\\?\Volume{1}\a)", R"(C:\a:b)", R"(C:\a::$DATA)", R"(\\host)"})
        EXPECT_FALSE(exactPath(path)) << path;
    EXPECT_FALSE(exactPath(std::string("C:\\a\0b", 6)));
}

TEST(ExactPath, ATidyPathIsWhatTheSystemTakesItFor) {
    EXPECT_TRUE(isTidy(R"(C:\a\b.txt)"));
    EXPECT_TRUE(isTidy(R"(C:/a/./b.txt)"));
    for (const char* path : {R"(C:\a\b.)", R"(C:\a\b )", R"(C:\a\nul)", R"(C:\a:b)", ""})
        EXPECT_FALSE(isTidy(path)) << path;
}

}  // namespace
}  // namespace velmora::windows
