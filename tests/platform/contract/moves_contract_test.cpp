// Moving a file to another path.
#include <filesystem>

#include "machine_under_test.h"

namespace velmora::contract {
namespace {

class MovesContract : public ContractTest {
  protected:
    MovesContract() { subject->makeFile(from_, "content"); }
    bool move(const std::string& to) { return platform().kernel32.MoveFileA(from_, to) == 1; }

    const std::string from_ = inScratch("a.txt");
};
INSTANTIATE_TEST_SUITE_P(Machines, MovesContract, everyMachine(), nameOf);

TEST_P(MovesContract, AFileGoesToAFullPath) {
    EXPECT_TRUE(move(inScratch("b.txt")));
    EXPECT_FALSE(fso().FileExists(from_));
    EXPECT_EQ(subject->readFile(inScratch("b.txt")), "content");
}

TEST_P(MovesContract, AFolderWithoutABackSlashBecomesAPartOfTheName) {
    subject->makeFolder(inScratch("keep"));
    EXPECT_TRUE(move(inScratch("keep") + "a.txt"));
    EXPECT_EQ(subject->readFile(inScratch("keepa.txt")), "content");
}

TEST_P(MovesContract, NothingGoesToTheWorkingFolder) {
    subject->makeFolder(inScratch("keep"));
    for (const char* to : {"velmora-moved.txt", ".\\velmora-moved.txt", "..\\velmora-moved.txt",
                           "   velmora-moved.txt", "", ".", "keep\\velmora-moved.txt"}) {
        EXPECT_FALSE(move(to)) << to;
        EXPECT_EQ(platform().kernel32.GetLastError(), 3u) << to;
    }
    EXPECT_EQ(subject->readFile(from_), "content");
    // A letter without a separator means the drive's own working folder.
    const std::string letter = from_.substr(0, 2);
    ASSERT_EQ(letter.back(), ':');
    EXPECT_FALSE(move(letter + "velmora-moved.txt"));
    EXPECT_EQ(platform().kernel32.GetLastError(), 3u);
    EXPECT_FALSE(std::filesystem::exists("velmora-moved.txt"));
    EXPECT_FALSE(std::filesystem::exists("   velmora-moved.txt"));
    EXPECT_FALSE(std::filesystem::exists("../velmora-moved.txt"));
}

}  // namespace
}  // namespace velmora::contract
