#include "platform/linux/settings/linux_data_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"
#include "support/tree_listing.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;

class LinuxDataFolderTest : public testing::Test {
  protected:
    LinuxDataFolderTest() {
        fs::create_directory(program_);
        std::ofstream(program_ + "/set.dat") << "first";
    }
    void layMarker() { std::ofstream(program_ + "/velmora.installed"); }
    std::string folderFor(const std::string& chosen) {
        return chooseDataFolder(dataFoldersOf(program_, chosen));
    }
    DataFolderState prepare(const std::string& chosen) {
        return prepareDataFolder(dataFoldersOf(program_, chosen));
    }
    static mode_t modeOf(const std::string& path) {
        struct stat status {};
        EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
        return status.st_mode & 07777;
    }

    TestFolder home_;
    OtherUser user_{home_.path()};
    std::string program_ = home_ / "program";
    std::string chosen_ = home_ / "chosen";
    std::string ofUser_ = home_ / ".local/share/velmora";
};

TEST_F(LinuxDataFolderTest, WithoutTheMarkerItIsTheProgramsOwn) {
    EXPECT_EQ(folderFor(""), program_);
    const TreeListing before = listTree(home_.path());
    EXPECT_EQ(prepare(""), DataFolderState::ready);
    EXPECT_EQ(listTree(home_.path()), before);
}

TEST_F(LinuxDataFolderTest, WithTheMarkerItIsTheUsers) {
    layMarker();
    EXPECT_EQ(folderFor(""), ofUser_);
    const Environment variable("XDG_DATA_HOME", home_ / "other");
    EXPECT_EQ(folderFor(""), home_ / "other/velmora");
    EXPECT_EQ(folderFor(chosen_), chosen_);
}

TEST_F(LinuxDataFolderTest, TheUsersIsMadeWithTheFirstSettingsForHimAlone) {
    layMarker();
    const mode_t before = umask(0);
    EXPECT_EQ(prepare(""), DataFolderState::ready);
    umask(before);
    EXPECT_EQ(listTree(ofUser_), (TreeListing{{"set.dat", "file 5 bytes: first"}}));
    EXPECT_EQ(modeOf(ofUser_), 0700U);
    EXPECT_EQ(modeOf(ofUser_ + "/set.dat"), 0600U);
}

TEST_F(LinuxDataFolderTest, AFolderThatIsThereKeepsItsRightsAndItsSettings) {
    fs::create_directory(chosen_);
    fs::permissions(chosen_, fs::perms{0755});
    EXPECT_EQ(prepare(chosen_), DataFolderState::ready);
    EXPECT_EQ(contentsOf(chosen_ + "/set.dat"), "first");
    EXPECT_EQ(modeOf(chosen_), 0755U);
    std::ofstream(chosen_ + "/set.dat") << "saved";
    EXPECT_EQ(prepare(chosen_), DataFolderState::ready);
    EXPECT_EQ(listTree(chosen_), (TreeListing{{"set.dat", "file 5 bytes: saved"}}));
}

TEST_F(LinuxDataFolderTest, WhatAKilledStartLeftGoesAndNothingElseDoes) {
    fs::create_directory(chosen_);
    std::ofstream(chosen_ + "/set.dat") << "mine";
    // Greater than any number that the system gives.
    std::ofstream(chosen_ + "/.set.dat.2000000000") << "half";
    std::ofstream(chosen_ + "/.other.2000000000") << "x";
    EXPECT_EQ(prepare(chosen_), DataFolderState::ready);
    EXPECT_EQ(listTree(chosen_), (TreeListing{{".other.2000000000", "file 1 bytes: x"},
                                              {"set.dat", "file 4 bytes: mine"}}));
}

TEST_F(LinuxDataFolderTest, ALinkInPlaceOfTheSettingsStays) {
    fs::create_directory(chosen_);
    fs::create_symlink("gone", chosen_ + "/set.dat");
    EXPECT_EQ(prepare(chosen_), DataFolderState::ready);
    EXPECT_EQ(listTree(chosen_), (TreeListing{{"set.dat", "link to gone"}}));
}

TEST_F(LinuxDataFolderTest, AChosenOneIsMadeWhereTheOneAboveIsThere) {
    EXPECT_EQ(prepare(chosen_ + "/"), DataFolderState::ready);
    EXPECT_EQ(contentsOf(chosen_ + "/set.dat"), "first");
    EXPECT_EQ(modeOf(chosen_), 0700U);
    // A misspelt path is no reason to make folders.
    EXPECT_EQ(prepare(home_ / "none/below"), DataFolderState::notMade);
    EXPECT_FALSE(fs::exists(home_ / "none"));
}

TEST_F(LinuxDataFolderTest, AFileIsNoFolder) {
    std::ofstream{chosen_};
    EXPECT_EQ(prepare(chosen_), DataFolderState::notMade);
}

TEST_F(LinuxDataFolderTest, ATypedPathBeginsAtTheWorkingFolderAndItsLinksAreResolved) {
    fs::create_directory(chosen_);
    fs::create_symlink(chosen_, home_ / "link");
    EXPECT_EQ(folderFor(home_ / "link"), chosen_);
    EXPECT_EQ(folderFor(home_ / "link/new"), chosen_ + "/new");
    const fs::path before = fs::current_path();
    fs::current_path(home_.path());
    EXPECT_EQ(folderFor("chosen"), chosen_);
    EXPECT_EQ(folderFor("./link/../chosen/"), chosen_);
    fs::current_path(before);
}

TEST_F(LinuxDataFolderTest, WithoutFirstSettingsThereIsOnlyTheFolder) {
    fs::remove(program_ + "/set.dat");
    EXPECT_EQ(prepare(chosen_), DataFolderState::ready);
    EXPECT_TRUE(fs::is_empty(chosen_));
}

TEST_F(LinuxDataFolderTest, FirstSettingsThatCannotBeReadAreAFault) {
    fs::remove(program_ + "/set.dat");
    fs::create_directory(program_ + "/set.dat");
    EXPECT_EQ(prepare(chosen_), DataFolderState::notFilled);
    EXPECT_TRUE(fs::is_empty(chosen_));
}

TEST_F(LinuxDataFolderTest, AFolderThatTakesNoFileIsAFault) {
    // Nobody can make files there, root neither.
    EXPECT_EQ(prepare("/proc/self"), DataFolderState::notFilled);
}

}  // namespace
}  // namespace velmora::linuxhost
