// Listings of folders and notifications of changes in them.
#include "platform/windows/files/windows_kernel32.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <condition_variable>
#include <map>
#include <mutex>

#include "platform/windows/entries/entry_facts.h"
#include "platform/windows/support/scratch_tree.h"

namespace velmora::windows {
namespace {

using namespace std::chrono_literals;
using tests::windows::byTheLetter;
using tests::windows::Link;
using tests::windows::makeFile;
using tests::windows::makeFolder;
using tests::windows::ScratchTree;
using tests::windows::setAttributes;

class WindowsListing : public testing::Test {
  protected:
    std::string in(const std::string& name) const { return scratch_ / name; }
    /// All entries by their names, which must come once each; the listing has ended as it should.
    std::map<std::string, FindData> list(const std::string& folder) {
        std::map<std::string, FindData> entries;
        FindData entry;
        const FindHandle listing = kernel32_.FindFirstFileA(folder + "\\*.*", entry);
        EXPECT_NE(listing, 0u) << kernel32_.GetLastError();
        if (listing == 0) return entries;
        do {
            EXPECT_EQ(kernel32_.GetLastError(), 0u);
            EXPECT_TRUE(entries.emplace(entry.cFileName, entry).second) << entry.cFileName;
        } while (kernel32_.FindNextFileA(listing, entry));
        EXPECT_EQ(kernel32_.GetLastError(), noMoreFiles);
        kernel32_.FindClose(listing);
        return entries;
    }
    static std::vector<std::string> namesOf(const std::map<std::string, FindData>& entries) {
        std::vector<std::string> names;
        for (const auto& [name, entry] : entries) names.push_back(name);
        return names;
    }
    std::uint32_t failureOfListing(const std::string& pattern) {
        FindData entry{.cFileName = "as before"};
        EXPECT_EQ(kernel32_.FindFirstFileA(pattern, entry), 0u);
        EXPECT_EQ(entry.cFileName, "as before");
        return kernel32_.GetLastError();
    }

    ScratchTree scratch_;
    WindowsKernel32 kernel32_;
};

using Names = std::vector<std::string>;

TEST_F(WindowsListing, HasAllEntriesWithTheDots) {
    makeFile(in("one.txt"), "content");
    makeFile(in("zwei Größe \u65e5\u672c"), "");
    makeFile(in("hidden"), "x");
    setAttributes(in("hidden"), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY);
    makeFolder(in("folder"));
    const auto entries = list(scratch_.path());
    EXPECT_EQ(namesOf(entries),
              (Names{".", "..", "folder", "hidden", "one.txt", "zwei Größe \u65e5\u672c"}));
    EXPECT_EQ(entries.at("one.txt").nFileSize, 7u);
    EXPECT_EQ(entries.at("one.txt").dwFileAttributes & 17, 0u);
    EXPECT_EQ(entries.at("folder").dwFileAttributes & 16, 16u);
    EXPECT_EQ(entries.at("..").dwFileAttributes & 16, 16u);
    EXPECT_NE(entries.at("hidden").dwFileAttributes & file_attribute::readOnly, 0u);
    setAttributes(in("hidden"), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WindowsListing, HasTheTimesOfAFile) {
    makeFile(in("one.txt"), "content");
    const FILETIME written{1'000'000'000, 29'000'000};
    const HANDLE file = CreateFileW(byTheLetter(in("one.txt")).c_str(), GENERIC_WRITE, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    ASSERT_TRUE(SetFileTime(file, nullptr, nullptr, &written));
    CloseHandle(file);
    const auto entry = list(scratch_.path()).at("one.txt");
    EXPECT_EQ(entry.ftLastWriteTime, (std::uint64_t{29'000'000} << 32) + 1'000'000'000);
    EXPECT_NE(entry.ftCreationTime, 0u);
    EXPECT_NE(entry.ftLastAccessTime, 0u);
}

TEST_F(WindowsListing, OfAnEmptyFolderHasTheDotsAlone) {
    EXPECT_EQ(namesOf(list(scratch_.path())), (Names{".", ".."}));
}

TEST_F(WindowsListing, OfTheRootOfADriveHasNoDots) {
    const auto names = namesOf(list("C:"));
    EXPECT_FALSE(names.empty());
    EXPECT_EQ(std::count(names.begin(), names.end(), "."), 0);
    EXPECT_EQ(std::count(names.begin(), names.end(), ".."), 0);
}

TEST_F(WindowsListing, OfManyEntriesHasEachOnce) {
    for (int i = 0; i < 701; ++i) makeFile(in("file " + std::to_string(i)), "");
    EXPECT_EQ(list(scratch_.path()).size(), 703u);
}

TEST_F(WindowsListing, OfAFolderBeyondTheSystemsOldLimitOfPathsWorks) {
    const std::string inner = in(std::string(200, 'a') + '\\' + std::string(200, 'b'));
    makeFolder(in(std::string(200, 'a')));
    makeFolder(inner);
    makeFile(inner + "\\one.txt", "x");
    EXPECT_EQ(namesOf(list(inner)), (Names{".", "..", "one.txt"}));
}

TEST_F(WindowsListing, OfWhatIsNoFolderFails) {
    makeFile(in("one.txt"), "content");
    EXPECT_NE(failureOfListing(in("missing\\*.*")), 0u);
    EXPECT_NE(failureOfListing(in("one.txt\\*.*")), 0u);
    EXPECT_NE(failureOfListing(R"(Q:\*.*)"), 0u);
    EXPECT_NE(failureOfListing(scratch_.path() + std::string("\0\\*.*", 5)), 0u);
    EXPECT_NE(failureOfListing(""), 0u);
}

TEST_F(WindowsListing, StaysAtItsEnd) {
    FindData entry;
    const FindHandle listing = kernel32_.FindFirstFileA(in("*.*"), entry);
    ASSERT_NE(listing, 0u);
    while (kernel32_.FindNextFileA(listing, entry)) {
    }
    EXPECT_EQ(kernel32_.GetLastError(), 18u);
    EXPECT_FALSE(kernel32_.FindNextFileA(listing, entry));
    EXPECT_EQ(kernel32_.GetLastError(), 18u);
    kernel32_.FindClose(listing);
    EXPECT_FALSE(kernel32_.FindNextFileA(listing, entry));
    EXPECT_EQ(kernel32_.GetLastError(), 6u);
    kernel32_.FindClose(listing);
    kernel32_.FindClose(0);
}

TEST_F(WindowsListing, SeveralGoOnBesideEachOther) {
    makeFolder(in("other"));
    FindData first;
    FindData second;
    const FindHandle one = kernel32_.FindFirstFileA(in("*.*"), first);
    const FindHandle two = kernel32_.FindFirstFileA(in("other\\*.*"), second);
    EXPECT_NE(one, two);
    EXPECT_TRUE(kernel32_.FindNextFileA(one, first));
    EXPECT_TRUE(kernel32_.FindNextFileA(one, first));
    EXPECT_TRUE(kernel32_.FindNextFileA(two, second));
    EXPECT_FALSE(kernel32_.FindNextFileA(two, second));
    kernel32_.FindClose(two);
    EXPECT_FALSE(kernel32_.FindNextFileA(one, first));
    EXPECT_EQ(kernel32_.GetLastError(), noMoreFiles);
    kernel32_.FindClose(one);
}

TEST_F(WindowsListing, AFolderIsFreeOnceItsListingIsClosed) {
    makeFolder(in("other"));
    FindData entry;
    const FindHandle listing = kernel32_.FindFirstFileA(in("other\\*.*"), entry);
    kernel32_.FindClose(listing);
    EXPECT_TRUE(RemoveDirectoryW(byTheLetter(in("other")).c_str()));
    EXPECT_FALSE(tests::windows::isThere(in("other")));
}

// Keeps the drive of the scratch folder busy until it goes.
class BusyDrive {
  public:
    explicit BusyDrive(DriveQuestions& questions) {
        questions.ask<int>("C:", [state = state_] {
            std::unique_lock lock(state->mutex);
            state->changed.wait(lock, [&] { return state->isFree; });
            return 0;
        });
    }
    ~BusyDrive() {
        const std::lock_guard lock(state_->mutex);
        state_->isFree = true;
        state_->changed.notify_all();
    }
    BusyDrive(const BusyDrive&) = delete;
    BusyDrive& operator=(const BusyDrive&) = delete;

  private:
    struct State {
        std::mutex mutex;
        std::condition_variable changed;
        bool isFree = false;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

TEST_F(WindowsListing, OfADriveThatDoesNotAnswerFailsWithinTheDeadline) {
    const auto questions = std::make_shared<DriveQuestions>(20ms);
    WindowsKernel32 kernel32(questions);
    FindData entry;
    const BusyDrive busy(*questions);
    EXPECT_EQ(kernel32.FindFirstFileA(in("*.*"), entry), 0u);
    EXPECT_EQ(kernel32.GetLastError(), 21u);
}

TEST_F(WindowsListing, ThatBreaksOffReportsWhyOnceAndIsAtItsEndThen) {
    for (int i = 0; i < 500; ++i) makeFile(in("file " + std::to_string(i)), "");
    const auto questions = std::make_shared<DriveQuestions>(700ms);
    WindowsKernel32 kernel32(questions);
    FindData entry;
    const FindHandle listing = kernel32.FindFirstFileA(in("*.*"), entry);
    ASSERT_NE(listing, 0u);
    const BusyDrive busy(*questions);
    int found = 1;
    while (kernel32.FindNextFileA(listing, entry)) ++found;
    EXPECT_LT(found, 502);
    EXPECT_EQ(kernel32.GetLastError(), 21u);
    EXPECT_FALSE(kernel32.FindNextFileA(listing, entry));
    EXPECT_EQ(kernel32.GetLastError(), 18u);
    kernel32.FindClose(listing);
}

TEST_F(WindowsListing, OfAFolderShowsLinksAsWhatTheyAre) {
    makeFolder(in("target"));
    const Link link(scratch_.path(), "link", "target");
    if (!link) GTEST_SKIP() << "no links";
    EXPECT_NE(list(scratch_.path()).at("link").dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT, 0u);
}

TEST_F(WindowsListing, AChangeInAFolderIsNotified) {
    const HANDLE handle = FindFirstChangeNotificationW(toUtf16(scratch_.path()).c_str(), FALSE,
                                                       FILE_NOTIFY_CHANGE_FILE_NAME);
    ASSERT_NE(handle, INVALID_HANDLE_VALUE);
    const auto number = static_cast<std::uint32_t>(HandleToULong(handle));
    EXPECT_EQ(kernel32_.WaitForSingleObject(number, 0), 258u);
    makeFile(in("one.txt"), "x");
    EXPECT_EQ(kernel32_.WaitForSingleObject(number, 30'000), waitObject0);
    EXPECT_TRUE(kernel32_.FindNextChangeNotification(number));
    EXPECT_TRUE(kernel32_.FindCloseChangeNotification(number));
    EXPECT_EQ(kernel32_.WaitForSingleObject(number, 0), waitFailed);
}

TEST_F(WindowsListing, WhatIsNoNotificationFails) {
    // The second number means this process, and is what a failed notification looks like.
    for (const std::uint32_t handle : {0u, 0xFFFFFFFFu, 0xFFFFFFFEu, 0x7FFF0001u}) {
        EXPECT_EQ(kernel32_.WaitForSingleObject(handle, 0), waitFailed) << handle;
        EXPECT_FALSE(kernel32_.FindNextChangeNotification(handle)) << handle;
        EXPECT_FALSE(kernel32_.FindCloseChangeNotification(handle)) << handle;
    }
}

}  // namespace
}  // namespace velmora::windows
