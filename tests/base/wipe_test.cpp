#include "base/wipe.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velmora::tests {
namespace {

bool isBlank(const std::string& text, std::size_t bytes) {
    return std::all_of(text.data(), text.data() + bytes, [](char c) { return c == '\0'; });
}

TEST(Wipe, EmptiesATextOfAnyLength) {
    for (const std::size_t size : {0, 1, 15, 16, 25, 1000}) {
        std::string text(size, 'x');
        wipe(text);
        EXPECT_EQ(text, "") << size;
    }
}

TEST(Wipe, LeavesNothingInTheStorageThatTheTextKeeps) {
    for (const std::size_t size : {1, 15, 16, 25, 1000}) {
        std::string text(size, 'x');
        const char* storage = text.data();
        wipe(text);
        text.resize(size);
        ASSERT_EQ(text.data(), storage) << size;
        EXPECT_TRUE(isBlank(text, size)) << size;
    }
}

TEST(Wipe, ReachesWhatALongerTextHasLeftAfterTheEnd) {
    std::string text;
    text.reserve(40);
    text.assign(40, 'x');
    const char* storage = text.data();
    text.resize(2);
    wipe(text);
    EXPECT_EQ(text.data(), storage);
    // Read through a copy of the storage: growing the text would itself blank it.
    volatile const char* bytes = storage;
    EXPECT_EQ(bytes[0], '\0');
    EXPECT_EQ(bytes[1], '\0');
    text.resize(40);
    EXPECT_TRUE(isBlank(text, 40));
}

}  // namespace
}  // namespace velmora::tests
