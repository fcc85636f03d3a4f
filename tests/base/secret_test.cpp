#include "base/secret.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace velmora::tests {
namespace {

const std::string shortText = "hush";               // lies in the object itself
const std::string longText = std::string(40, 'x');  // lies outside it

// Whether the bytes of an object contain the text, read one by one as they lie in memory.
bool contain(const void* object, std::size_t size, const std::string& text) {
    const auto* bytes = static_cast<const volatile unsigned char*>(object);
    std::string seen;
    for (std::size_t i = 0; i < size; ++i) seen += static_cast<char>(bytes[i]);
    return seen.find(text) != std::string::npos;
}

TEST(Secret, GivesItsText) {
    EXPECT_TRUE(Secret().empty());
    EXPECT_EQ(Secret("hush").text(), "hush");
    const Secret secret(longText);
    EXPECT_EQ(secret.text(), longText);
    const Secret copy = secret;  // NOLINT(performance-unnecessary-copy-initialization)
    EXPECT_EQ(copy.text(), longText);
    EXPECT_EQ(secret.text(), longText);
}

TEST(Secret, LeavesNothingBehindWhenItEnds) {
    alignas(Secret) unsigned char place[sizeof(Secret)] = {};
    auto* secret = std::construct_at(reinterpret_cast<Secret*>(place), shortText);
    ASSERT_TRUE(contain(place, sizeof place, shortText));
    std::destroy_at(secret);
    EXPECT_FALSE(contain(place, sizeof place, shortText));
}

TEST(Secret, LeavesNothingBehindWhenItIsMovedFrom) {
    static_assert(std::is_nothrow_move_constructible_v<Secret>);
    for (const std::string& text : {shortText, longText}) {
        Secret first(text);
        Secret second(std::move(first));
        EXPECT_FALSE(contain(&first, sizeof first, text));
        Secret third("another");
        third = std::move(second);
        EXPECT_FALSE(contain(&second, sizeof second, text));
        EXPECT_EQ(third.text(), text);
    }
}

TEST(Secret, LeavesNothingBehindWhenItGetsAnotherText) {
    const std::string wanted = "x";
    Secret secret(longText);
    const char* storage = secret.text().data();
    secret = Secret(wanted);
    EXPECT_EQ(secret.text(), wanted);
    ASSERT_EQ(secret.text().data(), storage);
    EXPECT_FALSE(contain(storage, longText.size(), "xx"));
}

TEST(Secret, LeavesNothingBehindWhenItIsWiped) {
    Secret secret(longText);
    const char* storage = secret.text().data();
    secret.wipe();
    EXPECT_TRUE(secret.empty());
    ASSERT_EQ(secret.text().data(), storage);
    EXPECT_FALSE(contain(storage, longText.size(), "x"));
}

}  // namespace
}  // namespace velmora::tests
