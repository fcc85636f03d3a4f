#include "platform/windows/settings/windows_data_folder.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/windows/support/environment.h"
#include "platform/windows/support/scratch_tree.h"

namespace velmora::tests::windows {
namespace {

using velmora::windows::dataFoldersOf;
using velmora::windows::Environment;
using velmora::windows::prepareDataFolder;
using velmora::windows::ScratchFolder;

class WindowsDataFolderTest : public testing::Test {
  protected:
    WindowsDataFolderTest() {
        CreateDirectoryW(toUtf16(program_).c_str(), nullptr);
        write(program_ + R"(\set.dat)", "first");
    }
    static void write(const std::string& path, const std::string& content) {
        std::ofstream(std::filesystem::path(toUtf16(path)), std::ios::binary) << content;
    }
    void layMarker() { write(program_ + R"(\velmora.installed)", ""); }
    std::string folderFor(const std::string& chosen) {
        return chooseDataFolder(dataFoldersOf(program_, chosen));
    }
    DataFolderState prepare(const std::string& chosen) {
        return prepareDataFolder(dataFoldersOf(program_, chosen));
    }

    ScratchFolder home_;
    Environment local_{L"LOCALAPPDATA", toUtf16(home_.path())};
    std::string program_ = home_ / "program";
    std::string chosen_ = home_ / "chosen";
    std::string ofUser_ = home_ / "Velmora";
};

TEST_F(WindowsDataFolderTest, WithoutTheMarkerItIsTheProgramsOwn) {
    EXPECT_EQ(folderFor(""), program_);
    EXPECT_EQ(prepare(""), DataFolderState::ready);
    EXPECT_FALSE(isThere(ofUser_));
}

TEST_F(WindowsDataFolderTest, WithTheMarkerItIsTheUsers) {
    layMarker();
    EXPECT_EQ(folderFor(""), ofUser_);
    EXPECT_EQ(folderFor(chosen_), chosen_);
    EXPECT_EQ(prepare(""), DataFolderState::ready);
    EXPECT_EQ(treeOf(ofUser_), std::vector<std::string>{R"(\set.dat file 5 [first])"});
    const Environment none(L"LOCALAPPDATA", std::nullopt);
    // A service can lack the variable.
    EXPECT_NE(folderFor(""), program_);
    EXPECT_TRUE(folderFor("").ends_with(R"(\Velmora)")) << folderFor("");
}

TEST_F(WindowsDataFolderTest, ARootHasNoBackSlashAtTheEndEither) {
    EXPECT_EQ(folderFor(R"(C:\)"), "C:");
}

TEST_F(WindowsDataFolderTest, SettingsThatAreThereStay) {
    CreateDirectoryW(toUtf16(chosen_).c_str(), nullptr);
    write(chosen_ + R"(\set.dat)", "saved");
    EXPECT_EQ(prepare(chosen_), DataFolderState::ready);
    EXPECT_EQ(treeOf(chosen_), std::vector<std::string>{R"(\set.dat file 5 [saved])"});
}

TEST_F(WindowsDataFolderTest, WhatAKilledProgramBeganThereGoes) {
    CreateDirectoryW(toUtf16(chosen_).c_str(), nullptr);
    write(chosen_ + R"(\.set.dat.4294967288)", "half");
    write(chosen_ + R"(\.mine.4294967288)", "somebody's");
    EXPECT_EQ(prepare(chosen_), DataFolderState::ready);
    EXPECT_FALSE(isThere(chosen_ + R"(\.set.dat.4294967288)"));
    EXPECT_TRUE(isThere(chosen_ + R"(\.mine.4294967288)"));
}

TEST_F(WindowsDataFolderTest, AChosenOneIsMadeWhereTheOneAboveIsThere) {
    EXPECT_EQ(prepare(chosen_ + '\\'), DataFolderState::ready);
    EXPECT_EQ(treeOf(chosen_), std::vector<std::string>{R"(\set.dat file 5 [first])"});
    // A misspelt path is no reason to make folders.
    EXPECT_EQ(prepare(home_ / R"(none\below)"), DataFolderState::notMade);
    EXPECT_FALSE(isThere(home_ / "none"));
}

TEST_F(WindowsDataFolderTest, AFileIsNoFolder) {
    write(chosen_, "x");
    EXPECT_EQ(prepare(chosen_), DataFolderState::notMade);
}

TEST_F(WindowsDataFolderTest, ATypedPathBeginsAtTheWorkingFolder) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(toUtf16(home_.path()));
    EXPECT_EQ(folderFor("chosen"), chosen_);
    EXPECT_EQ(folderFor(R"(.\none\../chosen/)"), chosen_);
    std::filesystem::current_path(before);
}

TEST_F(WindowsDataFolderTest, WithoutFirstSettingsThereIsOnlyTheFolder) {
    DeleteFileW(toUtf16(program_ + R"(\set.dat)").c_str());
    EXPECT_EQ(prepare(chosen_), DataFolderState::ready);
    EXPECT_EQ(treeOf(chosen_), std::vector<std::string>{});
}

TEST_F(WindowsDataFolderTest, FirstSettingsThatCannotBeReadAreAFault) {
    DeleteFileW(toUtf16(program_ + R"(\set.dat)").c_str());
    CreateDirectoryW(toUtf16(program_ + R"(\set.dat)").c_str(), nullptr);
    EXPECT_EQ(prepare(chosen_), DataFolderState::notFilled);
}

}  // namespace
}  // namespace velmora::tests::windows
