#include "platform/windows/settings/windows_user_state.h"

#include <gtest/gtest.h>
#include <windows.h>
// After the one above, which they need.
#include <aclapi.h>
#include <sddl.h>

#include <set>
#include <string>

#include "platform/windows/files/windows_text_files.h"
#include "platform/windows/support/environment.h"
#include "platform/windows/support/scratch_tree.h"

namespace velmora::tests::windows {
namespace {

using velmora::windows::Environment;
using velmora::windows::ScratchFolder;
using velmora::windows::WindowsTextFiles;
using velmora::windows::WindowsUserState;

std::wstring textOfSid(PSID sid) {
    wchar_t* text = nullptr;
    if (!ConvertSidToStringSidW(sid, &text)) return {};
    const std::wstring copy = text;
    LocalFree(text);
    return copy;
}

std::wstring ownSid() {
    HANDLE token = nullptr;
    OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token);
    alignas(TOKEN_USER) char user[256];
    DWORD size = 0;
    const bool isRead = GetTokenInformation(token, TokenUser, user, sizeof user, &size);
    CloseHandle(token);
    return isRead ? textOfSid(reinterpret_cast<TOKEN_USER*>(user)->User.Sid) : std::wstring{};
}

// Those to whom the folder or file gives any right.
std::set<std::wstring> whoMay(const std::string& path) {
    ACL* list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    std::wstring wide = byTheLetter(path);
    EXPECT_EQ(GetNamedSecurityInfoW(wide.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                                    nullptr, &list, nullptr, &descriptor),
              static_cast<DWORD>(ERROR_SUCCESS));
    std::set<std::wstring> who;
    if (list == nullptr) who.insert(L"everybody");
    for (DWORD i = 0; list != nullptr && i < list->AceCount; ++i) {
        void* entry = nullptr;
        GetAce(list, i, &entry);
        who.insert(textOfSid(&static_cast<ACCESS_ALLOWED_ACE*>(entry)->SidStart));
    }
    LocalFree(descriptor);
    return who;
}

void openToEverybody(const std::string& path) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(
        L"D:(A;OICI;FA;;;WD)", SDDL_REVISION_1, &descriptor, nullptr));
    ASSERT_TRUE(SetFileSecurityW(byTheLetter(path).c_str(), DACL_SECURITY_INFORMATION, descriptor));
    LocalFree(descriptor);
}

class WindowsUserStateTest : public testing::Test {
  protected:
    ScratchFolder home_;
    Environment local_{L"LOCALAPPDATA", toUtf16(home_.path())};
    std::string folder_ = home_ / "Velmora";
    WindowsUserState state_;
    const std::wstring system_ = L"S-1-5-18";
    const std::set<std::wstring> private_{ownSid(), system_};
};

TEST_F(WindowsUserStateTest, ItLiesInTheUsersLocalFolder) {
    EXPECT_TRUE(state_.write("place", "x"));
    EXPECT_EQ(contentsOf(folder_ + "\\place"), "x");
    EXPECT_EQ(treeOf(folder_), std::vector<std::string>{"\\place file 1 [x]"});
}

TEST_F(WindowsUserStateTest, TheNextWritingRemovesWhatAKilledProcessLeftOfThatName) {
    ASSERT_TRUE(state_.write("place", "x"));
    const std::string living = ".place." + std::to_string(GetCurrentProcessId());
    // Greater than any number that the system gives.
    const std::string left = ".place.4294967288";
    const std::string others = ".mine.4294967288";
    for (const std::string& name : {left, others, std::string("..4294967288")})
        makeFile(folder_ + '\\' + name, "half");
    EXPECT_TRUE(state_.write("place", "y"));
    EXPECT_FALSE(isThere(folder_ + '\\' + left));
    EXPECT_FALSE(isThere(folder_ + '\\' + living));
    EXPECT_TRUE(isThere(folder_ + '\\' + others));
    EXPECT_TRUE(isThere(folder_ + "\\..4294967288"));
    EXPECT_EQ(state_.read("place"), "y");
}

TEST_F(WindowsUserStateTest, ReadingMakesNothing) {
    EXPECT_EQ(state_.read("place"), std::nullopt);
    EXPECT_FALSE(isThere(folder_));
}

TEST_F(WindowsUserStateTest, WithoutSuchAFolderNothingIsKept) {
    const Environment none(L"LOCALAPPDATA", std::nullopt);
    EXPECT_FALSE(state_.write("place", "x"));
    EXPECT_EQ(state_.read("place"), std::nullopt);
    const Environment missing(L"LOCALAPPDATA", toUtf16(home_ / "none"));
    EXPECT_FALSE(state_.write("place", "x"));
}

TEST_F(WindowsUserStateTest, WhatIsMadeIsForTheUserAndTheSystemAlone) {
    EXPECT_TRUE(state_.write("place", "x"));
    EXPECT_EQ(whoMay(folder_), private_);
    EXPECT_EQ(whoMay(folder_ + "\\place"), private_);
}

TEST_F(WindowsUserStateTest, AFolderThatOthersMayEnterIsClosedBeforeItIsUsed) {
    ASSERT_TRUE(state_.write("place", "x"));
    openToEverybody(folder_);
    ASSERT_EQ(whoMay(folder_).count(L"S-1-1-0"), 1u);
    EXPECT_EQ(state_.read("place"), "x");
    EXPECT_EQ(whoMay(folder_), private_);
    openToEverybody(folder_);
    EXPECT_TRUE(state_.write("place", "y"));
    EXPECT_EQ(whoMay(folder_), private_);
}

TEST_F(WindowsUserStateTest, ALinkInItsPlaceIsRefused) {
    makeFolder(home_ / "elsewhere");
    makeFile(home_ / "elsewhere\\place", "x");
    const Link link(home_.path(), "Velmora", "elsewhere");
    if (!link) return;
    EXPECT_EQ(state_.read("place"), std::nullopt);
    EXPECT_FALSE(state_.write("place", "y"));
    EXPECT_FALSE(state_.write("other", "y"));
    EXPECT_EQ(treeOf(home_ / "elsewhere"), std::vector<std::string>{"\\place file 1 [x]"});
}

TEST_F(WindowsUserStateTest, AFileInItsPlaceIsRefused) {
    makeFile(folder_, "mine");
    EXPECT_EQ(state_.read("place"), std::nullopt);
    EXPECT_FALSE(state_.write("place", "y"));
    EXPECT_EQ(contentsOf(folder_), "mine");
}

TEST_F(WindowsUserStateTest, ALinkInTheFolderIsNotRead) {
    ASSERT_TRUE(state_.write("place", "x"));
    makeFile(home_ / "target", "theirs");
    const Link link(folder_, "linked", "..\\target");
    if (!link) return;
    EXPECT_EQ(state_.read("linked"), std::nullopt);
}

TEST_F(WindowsUserStateTest, AFileThatCanNotBeReplacedStaysAndNothingIsLeftBesideIt) {
    ASSERT_TRUE(state_.write("place", "old"));
    const HANDLE other = CreateFileW(byTheLetter(folder_ + "\\place").c_str(), GENERIC_READ,
                                     FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(state_.write("place", "new"));
    CloseHandle(other);
    EXPECT_EQ(state_.read("place"), "old");
    EXPECT_EQ(treeOf(folder_), std::vector<std::string>{"\\place file 3 [old]"});
    EXPECT_TRUE(state_.write("place", "new"));
}

TEST_F(WindowsUserStateTest, AFolderThatWentIsMadeAgain) {
    ASSERT_TRUE(state_.write("place", "x"));
    ASSERT_TRUE(DeleteFileW(byTheLetter(folder_ + "\\place").c_str()));
    ASSERT_TRUE(RemoveDirectoryW(byTheLetter(folder_).c_str()));
    EXPECT_EQ(state_.read("place"), std::nullopt);
    EXPECT_TRUE(state_.write("place", "y"));
    EXPECT_EQ(state_.read("place"), "y");
}

// The settings hold a password.
TEST(PrivateFile, OneThatIsMadeAnewIsTheUsersOwnAndOneThatIsThereKeepsItsRights) {
    const ScratchFolder folder;
    WindowsTextFiles files;
    files.writeOver(folder / "new", "x", {.isPrivate = true});
    EXPECT_EQ(whoMay(folder / "new"), (std::set<std::wstring>{ownSid(), L"S-1-5-18"}));
    files.writeOver(folder / "old", "x");
    openToEverybody(folder / "old");
    files.writeOver(folder / "old", "y", {.isPrivate = true});
    EXPECT_EQ(whoMay(folder / "old").count(L"S-1-1-0"), 1u);
    EXPECT_EQ(files.readAll(folder / "new") + files.readAll(folder / "old"), "xy");
}

}  // namespace
}  // namespace velmora::tests::windows
