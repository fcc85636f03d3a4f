#include "platform/linux/drives/drive_letters.h"

#include <gtest/gtest.h>

namespace velmora::linuxhost {
namespace {

std::vector<std::string> mounted(int count) {
    std::vector<std::string> points{"/"};
    for (int i = 0; i < count; ++i) points.push_back("/mnt/" + std::to_string(i));
    return points;
}

TEST(DriveLetters, TheRootIsCAndOthersFollowInMountOrder) {
    DriveLetters letters;
    letters.update({"/b", "/", "/a"});
    EXPECT_EQ(letters.letterOf("/"), 'C');
    EXPECT_EQ(letters.letterOf("/b"), 'D');
    EXPECT_EQ(letters.letterOf("/a"), 'E');
    EXPECT_EQ(letters.letterOf("/c"), 0);
    EXPECT_EQ(letters.letterOf(""), 0);
}

TEST(DriveLetters, UnmountingOneDoesNotShiftTheOthers) {
    DriveLetters letters;
    letters.update({"/", "/a", "/b"});
    letters.update({"/", "/b"});
    EXPECT_EQ(letters.letterOf("/b"), 'E');
}

TEST(DriveLetters, ARemountGetsItsLetterBack) {
    DriveLetters letters;
    letters.update({"/", "/a", "/b"});
    letters.update({"/", "/b"});
    letters.update({"/", "/b", "/a"});
    EXPECT_EQ(letters.letterOf("/a"), 'D');
    EXPECT_EQ(letters.letterOf("/b"), 'E');
}

TEST(DriveLetters, ANewMountDoesNotTakeTheLetterOfOneThatIsGoneWhileOthersAreFree) {
    DriveLetters letters;
    letters.update({"/", "/a", "/b"});
    letters.update({"/", "/b", "/new"});
    EXPECT_EQ(letters.letterOf("/new"), 'F');
    EXPECT_EQ(letters.letterOf("/a"), 'D');
}

TEST(DriveLetters, TheyEndWithZ) {
    DriveLetters letters;
    letters.update(mounted(24));
    EXPECT_EQ(letters.letterOf("/mnt/22"), 'Z');
    EXPECT_EQ(letters.letterOf("/mnt/23"), 0);
}

TEST(DriveLetters, WhenNoneIsFreeTheFirstOfThoseThatAreGoneIsTaken) {
    DriveLetters letters;
    auto points = mounted(23);
    letters.update(points);
    points.erase(points.begin() + 3);
    points.erase(points.begin() + 5);
    points.push_back("/new");
    letters.update(points);
    EXPECT_EQ(letters.letterOf("/new"), 'F');
    EXPECT_EQ(letters.letterOf("/mnt/2"), 0);
    EXPECT_EQ(letters.letterOf("/mnt/5"), 'I');
}

TEST(DriveLetters, TheRootNeverGivesItsLetterAway) {
    DriveLetters letters;
    auto points = mounted(24);
    points.erase(points.begin());
    letters.update(points);
    EXPECT_EQ(letters.letterOf("/"), 'C');
    EXPECT_EQ(letters.letterOf("/mnt/23"), 0);
}

}  // namespace
}  // namespace velmora::linuxhost
