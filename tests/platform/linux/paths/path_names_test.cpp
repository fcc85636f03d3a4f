#include "platform/linux/paths/path_names.h"

#include <gtest/gtest.h>

#include <random>

namespace velmora::linuxhost {
namespace {

TEST(PathNames, SlashesBecomeBackSlashesAndBack) {
    EXPECT_EQ(toDriveNames("foo/bar baz"), "foo\\bar baz");
    EXPECT_EQ(toHostNames("foo\\bar baz"), "foo/bar baz");
    EXPECT_EQ(toHostNames("foo/bar"), "foo/bar");
}

TEST(PathNames, LettersOfAllScriptsStay) {
    EXPECT_EQ(toDriveNames("Größe/заметки 日本 💾"), "Größe\\заметки 日本 💾");
    EXPECT_EQ(toHostNames("Größe\\заметки 日本 💾"), "Größe/заметки 日本 💾");
}

TEST(PathNames, ABackSlashInANameIsCarriedAsItsStandIn) {
    EXPECT_EQ(toDriveNames("a\\b/c"), "a\uF05Cb\\c");
    EXPECT_EQ(toHostNames("a\uF05Cb\\c"), "a\\b/c");
}

TEST(PathNames, AQuoteInANameIsCarriedAsItsStandIn) {
    EXPECT_EQ(toDriveNames("the \"quoted\" one"), "the \uF022quoted\uF022 one");
    EXPECT_EQ(toHostNames("the \uF022quoted\uF022 one"), "the \"quoted\" one");
    EXPECT_EQ(toHostNames("the \"quoted\" one"), "the \"quoted\" one");
}

TEST(PathNames, AnInvalidByteIsCarriedAsItsStandIn) {
    EXPECT_EQ(toDriveNames("caf\xe9"), "caf\uF7E9");
    EXPECT_EQ(toHostNames("caf\uF7E9"), "caf\xe9");
    EXPECT_EQ(toDriveNames("\x80\xff"), "\uF780\uF7FF");
    EXPECT_EQ(toHostNames("\uF780\uF7FF"), "\x80\xff");
}

TEST(PathNames, AStandInThatIsReallyInANameComesBackAsItWas) {
    for (const std::string name : {"x\uF05Cy", "x\uF022y", "x\uF7E9y", "\uF780", "\uF7FF"}) {
        EXPECT_NE(toDriveNames(name), name);
        EXPECT_EQ(toHostNames(toDriveNames(name)), name);
    }
    EXPECT_EQ(toDriveNames("\uF700\uF77F\uF800"), "\uF700\uF77F\uF800");
}

TEST(PathNames, EveryNameComesBackAsItWas) {
    std::mt19937 random(20260314);
    const std::string pieces[] = {"\"",     "\uF022", "/",  "\\",       "a",           "\xe9",
                                  "\uF05C", "\uF7E9", "日", "\xf0\x9f", "\xed\xa0\x80"};
    for (int round = 0; round < 2000; ++round) {
        std::string name;
        for (int i = 0; i < 12; ++i) name += pieces[random() % std::size(pieces)];
        ASSERT_EQ(toHostNames(toDriveNames(name)), name);
    }
}

TEST(PathNames, NormalizingDropsEmptyNamesAndPoints) {
    EXPECT_EQ(normalized("/a//b/./c/", "/", '/'), "a/b/c");
    EXPECT_EQ(normalized("\\a/b\\", "\\/", '\\'), "a\\b");
    EXPECT_EQ(normalized("", "/", '/'), "");
    EXPECT_EQ(normalized("a...", "/", '/'), "a...");
}

TEST(PathNames, NormalizingGoesUpButNeverAboveTheRoot) {
    EXPECT_EQ(normalized("/a/../b", "/", '/'), "b");
    EXPECT_EQ(normalized("../../a", "/", '/'), "a");
    EXPECT_EQ(normalized("a\\b\\..\\..\\..", "\\/", '\\'), "");
}

TEST(PathNames, APathLiesWithinAFolderByWholeNames) {
    EXPECT_TRUE(isWithin("/mnt/d", "/mnt/d"));
    EXPECT_TRUE(isWithin("/mnt/d/x", "/mnt/d"));
    EXPECT_TRUE(isWithin("/mnt/d", "/"));
    EXPECT_FALSE(isWithin("/mnt/data", "/mnt/d"));
    EXPECT_FALSE(isWithin("/mnt", "/mnt/d"));
    EXPECT_FALSE(isWithin("", "/"));
}

}  // namespace
}  // namespace velmora::linuxhost
