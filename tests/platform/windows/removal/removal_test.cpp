// Removing files and folders, with everything around them listed before and after.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "base/errors.h"
#include "platform/windows/files/windows_file_system_object.h"
#include "platform/windows/files/windows_text_files.h"
#include "platform/windows/support/scratch_tree.h"

namespace velmora::windows {
namespace {

using tests::windows::FileInUse;
using tests::windows::isThere;
using tests::windows::Link;
using tests::windows::makeFile;
using tests::windows::makeFolder;
using tests::windows::runHostProgram;
using tests::windows::ScratchTree;
using tests::windows::setAttributes;
using tests::windows::treeOf;
using tests::windows::without;

constexpr DWORD allSharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class WindowsRemoval : public testing::Test {
  protected:
    void SetUp() override {
        makeFolder(in("work"));
        makeFile(in("work\\one.txt"), "one");
        makeFile(in("work\\zwei Größe \u65e5\u672c.txt"), "zwei");
        makeFolder(in("work\\sub folder"));
        makeFile(in("work\\sub folder\\three.txt"), "three");
        makeFolder(in("work\\sub folder\\empty"));
        makeFolder(in("precious"));
        makeFile(in("precious\\one.txt"), "keep me");
        makeFolder(in("precious\\sub folder"));
        makeFile(in("precious\\sub folder\\three.txt"), "keep me too");
        makeFile(in("work.txt"), "beside");
        makeFile(in("work2"), "beside");
    }

    std::string in(const std::string& name) const { return scratch_ / name; }
    std::vector<std::string> tree() const { return treeOf(scratch_.path()); }
    int errorOfRemoving(const std::string& path) {
        return errorOf([&] { files_.remove(path); });
    }
    int errorOfDeleting(const std::string& path, bool force) {
        return errorOf([&] { fso_.GetFolder(path)->Delete(force); });
    }
    static std::vector<std::string> withoutWork(const std::vector<std::string>& tree) {
        return without(without(tree, "\\work\\"), "\\work folder");
    }
    /// Below Wine links are those of its host, which it can't remove.
    void expectLinkRefusedOrGone(int number, const std::vector<std::string>& before,
                                 const std::vector<std::string>& withoutIt) {
        EXPECT_EQ(number, isUnderWine() ? 70 : 0);
        EXPECT_EQ(tree(), isUnderWine() ? before : withoutIt);
    }

    ScratchTree scratch_;
    WindowsTextFiles files_;
    WindowsFileSystemObject fso_;
};

TEST_F(WindowsRemoval, AFileGoesAndNothingElse) {
    const auto before = tree();
    EXPECT_EQ(errorOfRemoving(in("work\\one.txt")), 0);
    EXPECT_EQ(tree(), without(before, "\\work\\one.txt"));
    EXPECT_EQ(before.size(), tree().size() + 1);
}

TEST_F(WindowsRemoval, AFileGoesWithAnyLettersAndAnySpellingOfItsPath) {
    const auto before = tree();
    EXPECT_EQ(errorOfRemoving(in("work\\zwei Größe \u65e5\u672c.txt")), 0);
    EXPECT_EQ(errorOfRemoving(in("WORK/./sub folder/../sub folder/THREE.TXT")), 0);
    EXPECT_EQ(tree(), without(without(before, "\\work\\zwei"), "\\work\\sub folder\\three"));
}

TEST_F(WindowsRemoval, WhatIsNotThereIsError53) {
    const auto before = tree();
    EXPECT_EQ(errorOfRemoving(in("work\\missing.txt")), 53);
    EXPECT_EQ(errorOfRemoving(in("missing\\one.txt")), 53);
    EXPECT_EQ(errorOfRemoving(in("work\\one.txt\\one.txt")), 53);
    EXPECT_EQ(errorOfRemoving(R"(Q:\one.txt)"), 53);
    EXPECT_EQ(errorOfRemoving(R"(\\velmora-nowhere\share\one.txt)"), 53);
    EXPECT_EQ(errorOfRemoving(""), 53);
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsRemoval, AReadOnlyFileAndAFolderAreError75AndStay) {
    setAttributes(in("work\\one.txt"), FILE_ATTRIBUTE_READONLY);
    const auto before = tree();
    EXPECT_EQ(errorOfRemoving(in("work\\one.txt")), 75);
    EXPECT_EQ(errorOfRemoving(in("work\\sub folder\\empty")), 75);
    EXPECT_EQ(errorOfRemoving(in("work")), 75);
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsRemoval, AFileInUseIsError70AndStays) {
    const auto before = tree();
    {
        const FileInUse use(in("work\\one.txt"), FILE_SHARE_READ | FILE_SHARE_WRITE);
        EXPECT_EQ(errorOfRemoving(in("work\\one.txt")), 70);
    }
    EXPECT_EQ(tree(), before);
    const FileInUse shared(in("work\\one.txt"), allSharing);
    EXPECT_EQ(errorOfRemoving(in("work\\one.txt")), 0);
}

TEST_F(WindowsRemoval, NoPatternAndNoStreamRemovesAFile) {
    const auto before = tree();
    EXPECT_EQ(errorOfRemoving(in("work\\*.txt")), 53);
    EXPECT_EQ(errorOfRemoving(in("work\\one.t?t")), 53);
    EXPECT_EQ(errorOfRemoving(in("work\\one.txt::$DATA")), 53);
    EXPECT_EQ(errorOfRemoving(in("work\\one.txt:stream")), 53);
    EXPECT_EQ(errorOfRemoving(in("work\\sub folder:x\\three.txt")), 53);
    EXPECT_EQ(errorOfRemoving(R"(\\.\C:\one.txt)"), 53);
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsRemoval, ANameThatTheSystemWouldTidyIsTakenByTheLetter) {
    const auto before = tree();
    EXPECT_EQ(errorOfRemoving(in("work\\one.txt.")), 53);
    EXPECT_EQ(errorOfRemoving(in("work\\one.txt ")), 53);
    EXPECT_EQ(tree(), before);
    makeFile(in("work\\one.txt."), "with a dot");
    EXPECT_EQ(errorOfRemoving(in("work\\one.txt.")), 0);
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsRemoval, AFileIsNotReachedThroughALink) {
    const Link link(scratch_.path(), "link", "precious");
    if (!link) GTEST_SKIP() << "no links";
    const auto before = tree();
    EXPECT_EQ(errorOfRemoving(in("link\\one.txt")), 70);
    EXPECT_EQ(errorOfRemoving(in("link\\sub folder\\three.txt")), 70);
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsRemoval, ALinkToAFileIsRemovedAsTheLink) {
    const Link link(in("work"), "link.txt", "..\\precious\\one.txt");
    if (!link) GTEST_SKIP() << "no links";
    const auto before = tree();
    const int number = errorOfRemoving(link.path());
    expectLinkRefusedOrGone(number, before, without(before, "\\work\\link.txt"));
}

TEST_F(WindowsRemoval, ALinkToAFolderIsNoFile) {
    const Link link(in("work"), "link", "..\\precious");
    if (!link) GTEST_SKIP() << "no links";
    const auto before = tree();
    EXPECT_EQ(errorOfRemoving(link.path()), isUnderWine() ? 70 : 75);
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsRemoval, AFolderGoesWithAllInItAndNothingBesideIt) {
    setAttributes(in("work\\one.txt"), FILE_ATTRIBUTE_HIDDEN);
    const auto before = tree();
    EXPECT_EQ(errorOfDeleting(in("work"), false), 0);
    EXPECT_EQ(tree(), withoutWork(before));
    EXPECT_TRUE(isThere(in("work2")) && isThere(in("work.txt")));
}

TEST_F(WindowsRemoval, AFolderThatIsGoneIsError76) {
    const auto folder = fso_.GetFolder(in("work\\sub folder\\empty"));
    folder->Delete(false);
    const auto before = tree();
    EXPECT_EQ(errorOf([&] { folder->Delete(false); }), 76);
    EXPECT_EQ(errorOf([&] { folder->Delete(true); }), 76);
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsRemoval, WithoutForceSomethingReadOnlyAnywhereKeepsAllOfIt) {
    setAttributes(in("work\\sub folder\\three.txt"), FILE_ATTRIBUTE_READONLY);
    const auto before = tree();
    EXPECT_EQ(errorOfDeleting(in("work"), false), 70);
    EXPECT_EQ(tree(), before);
    EXPECT_EQ(errorOfDeleting(in("work"), true), 0);
    EXPECT_EQ(tree(), withoutWork(before));
}

TEST_F(WindowsRemoval, WithoutForceAReadOnlyFolderKeepsAllOfIt) {
    setAttributes(in("work\\sub folder\\empty"), FILE_ATTRIBUTE_READONLY);
    const auto before = tree();
    if (std::find(before.begin(), before.end(), "\\work\\sub folder\\empty folder read-only") ==
        before.end()) {
        std::cout << "skipped: folders can't be read-only here\n";
        GTEST_SKIP() << "no read-only folders";
    }
    EXPECT_EQ(errorOfDeleting(in("work"), false), 70);
    EXPECT_EQ(errorOfDeleting(in("work\\sub folder\\empty"), false), 70);
    EXPECT_EQ(tree(), before);
    EXPECT_EQ(errorOfDeleting(in("work\\sub folder\\empty"), true), 0);
    EXPECT_EQ(tree(), without(before, "\\work\\sub folder\\empty"));
}

TEST_F(WindowsRemoval, AFileInUseStaysInItsFolder) {
    const auto before = tree();
    const FileInUse use(in("work\\sub folder\\three.txt"), FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_EQ(errorOfDeleting(in("work"), true), 70);
    EXPECT_TRUE(isThere(in("work\\sub folder\\three.txt")));
    EXPECT_EQ(withoutWork(tree()), withoutWork(before));
}

TEST_F(WindowsRemoval, AFolderGoesFromBeyondTheSystemsOldLimitOfPaths) {
    const auto before = tree();
    std::string path = in("deep");
    makeFolder(path);
    for (int depth = 0; depth < 60; ++depth) {
        path += "\\level of this tree";
        makeFolder(path);
    }
    makeFile(path + "\\last.txt", "last");
    EXPECT_EQ(errorOfDeleting(in("deep"), false), 0);
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsRemoval, ManyFilesGoWithTheirFolder) {
    const auto before = tree();
    makeFolder(in("many"));
    for (int i = 0; i < 1500; ++i) makeFile(in("many\\file number " + std::to_string(i)), "x");
    EXPECT_EQ(errorOfDeleting(in("many"), false), 0);
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsRemoval, AFolderNameThatTheSystemWouldTidyIsTakenByTheLetter) {
    const auto before = tree();
    EXPECT_EQ(errorOfDeleting(in("work."), true), 76);
    EXPECT_EQ(errorOfDeleting(in("work "), true), 76);
    EXPECT_EQ(tree(), before);
    makeFolder(in("work."));
    makeFile(in("work.\\one.txt."), "with dots");
    makeFile(in("work.\\one.txt"), "without");
    EXPECT_EQ(errorOfDeleting(in("work."), false), 0);
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsRemoval, ALinkInAFolderNeverTakesItsTargetWithIt) {
    const Link link(in("work\\sub folder"), "link", "..\\..\\precious");
    if (!link) GTEST_SKIP() << "no links";
    const auto before = tree();
    const int number = errorOfDeleting(in("work"), true);
    expectLinkRefusedOrGone(number, before, withoutWork(before));
}

TEST_F(WindowsRemoval, ALinkToAFileInAFolderNeverTakesItsTargetWithIt) {
    const Link link(in("work\\sub folder"), "link.txt", "..\\..\\precious\\one.txt");
    if (!link) GTEST_SKIP() << "no links";
    const auto before = tree();
    const int number = errorOfDeleting(in("work"), false);
    expectLinkRefusedOrGone(number, before, withoutWork(before));
}

TEST_F(WindowsRemoval, AFolderThatIsALinkOrLiesBeyondOneIsNotDeleted) {
    const Link link(scratch_.path(), "link", "precious");
    if (!link) GTEST_SKIP() << "no links";
    const auto before = tree();
    EXPECT_EQ(errorOfDeleting(in("link"), true), 70);
    EXPECT_EQ(errorOfDeleting(in("link\\sub folder"), true), 70);
    EXPECT_EQ(tree(), before);
}

// A drive of the test's own, whose root is the scratch folder: no other root is ever tried.
class OwnDrive {
  public:
    explicit OwnDrive(const std::string& folder) : folder_(folder) {
        if (isThere(R"(V:\)")) return;
        isMade_ = isUnderWine() ? makeBelowWine() : DefineDosDeviceW(0, L"V:", wide().c_str());
    }
    ~OwnDrive() {
        if (!isMade_) return;
        if (isUnderWine()) {
            runHostProgram(drives(), R"(Z:\bin\rm -f v:)");
            waitUntil([] { return !isThere(R"(V:\)"); });
        } else {
            DefineDosDeviceW(DDD_REMOVE_DEFINITION | DDD_EXACT_MATCH_ON_REMOVE, L"V:",
                             wide().c_str());
        }
    }
    OwnDrive(const OwnDrive&) = delete;
    OwnDrive& operator=(const OwnDrive&) = delete;
    /// Whether its root shows what is in the folder.
    explicit operator bool() const { return isMade_ && isThere(R"(V:\work2)"); }

  private:
    std::wstring wide() const { return toUtf16(folder_); }
    // The folder in which Wine keeps a link of the host for each drive.
    static std::string drives() {
        const char* prefix = std::getenv("WINEPREFIX");
        return prefix ? std::string("Z:") + prefix + "/dosdevices" : std::string{};
    }
    bool makeBelowWine() const {
        if (drives().empty() || !folder_.starts_with(R"(C:\)")) return false;
        std::string target = "../drive_c" + folder_.substr(2);
        std::replace(target.begin(), target.end(), '\\', '/');
        runHostProgram(drives(), R"(Z:\bin\ln -s ")" + target + R"(" v:)");
        return waitUntil([] { return isThere(R"(V:\)"); });
    }

    std::string folder_;
    bool isMade_ = false;
};

TEST_F(WindowsRemoval, TheRootOfADriveIsRefused) {
    const OwnDrive drive(scratch_.path());
    if (!drive) {
        std::cout << "skipped: no drive of the test's own can be made\n";
        GTEST_SKIP() << "no drive";
    }
    const auto before = tree();
    for (const bool force : {false, true}) {
        EXPECT_EQ(errorOfDeleting(R"(V:\)", force), 70);
        EXPECT_EQ(errorOfDeleting("V:", force), 70);
        EXPECT_EQ(errorOfDeleting(R"(V:\work\..)", force), 70);
        EXPECT_EQ(errorOfDeleting(R"(V:\..\)", force), 70);
    }
    EXPECT_EQ(errorOfRemoving(R"(V:\)"), 75);
    EXPECT_EQ(tree(), before);
}

TEST_F(WindowsRemoval, TheLengthOfAFileIsItsBytes) {
    EXPECT_EQ(files_.FileLen(in("work\\one.txt")), 3);
    makeFile(in("none"), "");
    EXPECT_EQ(files_.FileLen(in("none")), 0);
    const FileInUse use(in("work\\one.txt"), 0);
    EXPECT_EQ(files_.FileLen(in("work\\one.txt")), 3);
    for (const char* name : {"missing", "missing\\one.txt", "work", "work\\*.txt"})
        EXPECT_EQ(errorOf([&] { files_.FileLen(in(name)); }), 53) << name;
    EXPECT_EQ(errorOf([&] { files_.FileLen(in("work\\one.txt") + std::string("\0x", 2)); }), 53);
    EXPECT_EQ(errorOf([&] { files_.FileLen(R"(Q:\one.txt)"); }), 53);
}

}  // namespace
}  // namespace velmora::windows
