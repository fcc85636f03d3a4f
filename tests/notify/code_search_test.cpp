#include "notify/code_search.h"

#include <gtest/gtest.h>

namespace velmora::tests {
namespace {

TEST(CodeSearch, FindsACodeAnywhere) {
    for (const char* text : {"250", "250 ok\r\n", "x250", "1250", "22250"}) {
        EXPECT_TRUE(CodeSearch("250").isFoundWith(text)) << text;
    }
    for (const char* text : {"", "25", "2 50", "205"}) {
        EXPECT_FALSE(CodeSearch("250").isFoundWith(text)) << text;
    }
}

TEST(CodeSearch, FindsACodeAcrossPackets) {
    CodeSearch search("250");
    EXPECT_FALSE(search.isFoundWith("hello 2"));
    EXPECT_FALSE(search.isFoundWith(""));
    EXPECT_FALSE(search.isFoundWith("5"));
    EXPECT_TRUE(search.isFoundWith("0 ok"));
}

TEST(CodeSearch, KeepsLessThanACode) {
    CodeSearch search("250");
    for (int i = 0; i < 100; ++i) {
        EXPECT_FALSE(search.isFoundWith(std::string(10'000, '2')));
        EXPECT_EQ(search.kept(), 2u);
    }
    EXPECT_TRUE(search.isFoundWith("50"));
}

TEST(CodeSearch, KeepsWhatIsShorterThanACode) {
    CodeSearch search("250");
    EXPECT_FALSE(search.isFoundWith("2"));
    EXPECT_EQ(search.kept(), 1u);
    EXPECT_FALSE(search.isFoundWith("5"));
    EXPECT_EQ(search.kept(), 2u);
}

}  // namespace
}  // namespace velmora::tests
