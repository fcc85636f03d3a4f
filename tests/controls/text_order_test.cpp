#include "controls/text_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::tests {
namespace {

using Numbers = std::vector<std::size_t>;

Numbers orderOf(const std::vector<std::string>& texts, bool descending = false) {
    TextOrder order;
    for (const std::string& text : texts) order.add(text);
    return order.sorted(descending);
}

TEST(TextOrderTest, OrdersByTheFirstBytesThatDiffer) {
    EXPECT_EQ(orderOf({}), Numbers{});
    EXPECT_EQ(orderOf({"x"}), Numbers{0});
    EXPECT_EQ(orderOf({"b", "a", "c"}), (Numbers{1, 0, 2}));
    EXPECT_EQ(orderOf({"b", "a", "c"}, true), (Numbers{2, 0, 1}));
    EXPECT_EQ(orderOf({"a long way to 2", "a long way to 10", "a"}), (Numbers{2, 1, 0}));
}

TEST(TextOrderTest, AShorterTextComesBeforeOneThatGoesOn) {
    EXPECT_EQ(orderOf({"12345678", "1234567", "123456789", ""}), (Numbers{3, 1, 0, 2}));
    const std::string zeros("a\0\0\0\0\0\0\0\0\0", 10);
    EXPECT_EQ(orderOf({zeros, zeros.substr(0, 2), zeros.substr(0, 9), "a"}), (Numbers{3, 1, 2, 0}));
    EXPECT_EQ(orderOf({"a", zeros, zeros.substr(0, 2)}, true), (Numbers{1, 2, 0}));
}

TEST(TextOrderTest, EqualTextsKeepTheirOrderEitherWay) {
    EXPECT_EQ(orderOf({"b", "a", "b", "a"}), (Numbers{1, 3, 0, 2}));
    EXPECT_EQ(orderOf({"b", "a", "b", "a"}, true), (Numbers{0, 2, 1, 3}));
    EXPECT_EQ(orderOf({"", "", ""}, true), (Numbers{0, 1, 2}));
}

TEST(TextOrderTest, BytesAboveTheAlphabetComeLast) {
    EXPECT_EQ(orderOf({"\xC3\xA9", "z", "\x7F"}), (Numbers{1, 2, 0}));
}

TEST(TextOrderTest, IsTheOrderOfAStableSort) {
    std::mt19937 random{20260314};
    const auto below = [&](int end) {
        return std::uniform_int_distribution<int>(0, end - 1)(random);
    };
    for (int round = 0; round < 400; ++round) {
        std::vector<std::string> texts;
        for (int count = below(60); count > 0; --count) {
            std::string text(static_cast<std::size_t>(below(3) * 7), 'a');
            for (int size = below(20); size > 0; --size)
                text += std::string_view("ab\0\xC3", 4)[static_cast<std::size_t>(below(4))];
            texts.push_back(text);
        }
        Numbers expected(texts.size());
        std::iota(expected.begin(), expected.end(), 0U);
        std::stable_sort(expected.begin(), expected.end(),
                         [&](auto one, auto other) { return texts[one] < texts[other]; });
        ASSERT_EQ(orderOf(texts), expected);
        std::iota(expected.begin(), expected.end(), 0U);
        std::stable_sort(expected.begin(), expected.end(),
                         [&](auto one, auto other) { return texts[other] < texts[one]; });
        ASSERT_EQ(orderOf(texts, true), expected);
    }
}

}  // namespace
}  // namespace velmora::tests
