#include "base/scope_guard.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(ScopeGuard, RunsOnceAtTheEndOfTheScope) {
    int runs = 0;
    {
        const ScopeGuard guard([&] { ++runs; });
        EXPECT_EQ(runs, 0);
    }
    EXPECT_EQ(runs, 1);
}

TEST(ScopeGuard, RunsWhenAnErrorEndsTheScope) {
    int runs = 0;
    const auto fail = [&] {
        const ScopeGuard guard([&] { ++runs; });
        throw std::runtime_error("the scope's own");
    };
    EXPECT_THROW(fail(), std::runtime_error);
    EXPECT_EQ(runs, 1);
}

TEST(ScopeGuard, DismissedItDoesNothing) {
    int runs = 0;
    {
        ScopeGuard guard([&] { ++runs; });
        guard.dismiss();
    }
    EXPECT_EQ(runs, 0);
}

TEST(ScopeGuard, TheErrorOfTheScopeWinsOverTheCleanUps) {
    const auto fail = [] {
        const ScopeGuard guard([] { throw std::logic_error("the clean-up's"); });
        throw std::runtime_error("the scope's own");
    };
    EXPECT_THROW(fail(), std::runtime_error);
    const auto end = [] {
        const ScopeGuard guard([] { throw std::logic_error("the clean-up's"); });
    };
    EXPECT_NO_THROW(end());
}

}  // namespace
}  // namespace velmora
