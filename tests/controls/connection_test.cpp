// Ending connections: from outside, from a handler that runs, and by the end of a scope.
#include "controls/connection.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "controls/event.h"

namespace velmora::tests {
namespace {

struct ConnectionTest : testing::Test {
    /// A handler that writes down its name.
    Event<>::Handler noting(const std::string& name) {
        return [this, name] { order += name; };
    }
    /// What an emission writes down.
    std::string emitted() {
        order.clear();
        event();
        return order;
    }

    std::string order;
    Event<> event;
};

TEST_F(ConnectionTest, DisconnectedAHandlerRunsNoMoreAndTheOthersKeepTheirOrder) {
    event.connect(noting("a"));
    Connection second = event.connect(noting("b"));
    event.connect(noting("c"));
    EXPECT_TRUE(second.connected());
    second.disconnect();
    EXPECT_FALSE(second.connected());
    EXPECT_EQ(emitted(), "ac");
    event.connect(noting("d"));
    EXPECT_EQ(emitted(), "acd");
}

TEST_F(ConnectionTest, WithoutItsLastHandlerAnEventIsNotConnected) {
    Connection only = event.connect(noting("a"));
    only.disconnect();
    EXPECT_FALSE(event.connected());
}

TEST_F(ConnectionTest, DroppingAConnectionLeavesTheHandler) {
    { const Connection dropped = event.connect(noting("a")); }
    EXPECT_EQ(emitted(), "a");
}

TEST_F(ConnectionTest, CopiesNameTheSameHandlerAndItIsEndedOnce) {
    Connection first = event.connect(noting("a"));
    event.connect(noting("b"));
    Connection copy = first;
    copy.disconnect();
    EXPECT_FALSE(first.connected());
    first.disconnect();
    copy.disconnect();
    EXPECT_EQ(emitted(), "b");
}

TEST_F(ConnectionTest, OfNoHandlerItDoesNothing) {
    Connection none;
    EXPECT_FALSE(none.connected());
    none.disconnect();
}

TEST_F(ConnectionTest, MayOutliveItsEvent) {
    Connection connection;
    {
        Event<> shortLived;
        connection = shortLived.connect([] {});
        EXPECT_TRUE(connection.connected());
    }
    EXPECT_FALSE(connection.connected());
    connection.disconnect();
}

TEST_F(ConnectionTest, WhatAHandlerHoldsIsDestroyedWithItsConnection) {
    const auto held = std::make_shared<int>(1);
    Connection connection = event.connect([held] {});
    EXPECT_EQ(held.use_count(), 2);
    connection.disconnect();
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(ConnectionTest, AHandlerMayDisconnectItselfAndKeepsWhatItHoldsUntilItReturns) {
    const auto held = std::make_shared<std::string>("held");
    Connection itself;
    itself = event.connect([&itself, held, this] {
        itself.disconnect();
        EXPECT_FALSE(itself.connected());
        order += *held;
    });
    event.connect(noting("+"));
    EXPECT_EQ(emitted(), "held+");
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_EQ(emitted(), "+");
}

TEST_F(ConnectionTest, AHandlerMayDisconnectALaterOneWhichDoesNotRunAnyMore) {
    Connection later;
    event.connect([&] {
        order += "a";
        later.disconnect();
    });
    later = event.connect(noting("b"));
    event.connect(noting("c"));
    EXPECT_EQ(emitted(), "ac");
    EXPECT_EQ(emitted(), "ac");
}

TEST_F(ConnectionTest, AHandlerMayDisconnectAnEarlierOneWithoutMissingAny) {
    Connection earlier = event.connect(noting("a"));
    event.connect([&] {
        order += "b";
        earlier.disconnect();
    });
    event.connect(noting("c"));
    EXPECT_EQ(emitted(), "abc");
    EXPECT_EQ(emitted(), "bc");
}

TEST_F(ConnectionTest, DisconnectedByItsOwnHandlersAnEventIsNotConnectedInTheEmissionEither) {
    Connection only;
    only = event.connect([&] {
        only.disconnect();
        EXPECT_FALSE(event.connected());
    });
    event();
    EXPECT_FALSE(event.connected());
}

TEST_F(ConnectionTest, AnEmissionWithinAnotherLeavesTheListToTheOuterOne) {
    Connection first;
    int depth = 0;
    first = event.connect([&] {
        order += "a";
        if (++depth < 3) return event();
        first.disconnect();
    });
    event.connect(noting("b"));
    EXPECT_EQ(emitted(), "aaabbb");
    EXPECT_EQ(emitted(), "b");
}

TEST_F(ConnectionTest, AHandlerMayReplaceItself) {
    Connection itself;
    itself = event.connect([&] {
        order += "old";
        itself.disconnect();
        itself = event.connect(noting("new"));
    });
    EXPECT_EQ(emitted(), "oldnew");
    EXPECT_EQ(emitted(), "new");
}

TEST_F(ConnectionTest, AnErrorInTheEmissionLeavesTheListInOrder) {
    Connection first;
    first = event.connect([&first]() {
        first.disconnect();
        throw std::runtime_error("failed");
    });
    event.connect(noting("a"));
    EXPECT_THROW(event(), std::runtime_error);
    EXPECT_EQ(emitted(), "a");
}

TEST_F(ConnectionTest, AHandlerMayDestroyTheEventAndTheRestDoesNotRun) {
    std::optional<Event<>> mortal;
    const auto held = std::make_shared<std::string>("held");
    mortal.emplace();
    Connection first = mortal->connect([&mortal, held, this] {
        mortal.reset();
        order += *held;
    });
    Connection second = mortal->connect(noting("never"));
    (*mortal)();
    EXPECT_EQ(order, "held");
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_FALSE(first.connected());
    second.disconnect();
}

TEST_F(ConnectionTest, AnEventMayBeDestroyedInAnEmissionWithinAnother) {
    auto mortal = std::make_unique<Event<int>>();
    mortal->connect([&](int depth) {
        order += std::to_string(depth);
        if (depth < 2) return (*mortal)(depth + 1);
        mortal.reset();
    });
    mortal->connect([this](int) { order += "never"; });
    (*mortal)(1);
    EXPECT_EQ(order, "12");
}

TEST_F(ConnectionTest, WhatAHandlerHoldsMayItselfEndConnectionsOfTheEvent) {
    auto second = std::make_shared<ScopedConnection>();
    Connection first = event.connect([second] {});
    *second = event.connect(noting("b"));
    event.connect(noting("c"));
    second.reset();
    first.disconnect();
    EXPECT_EQ(emitted(), "c");
}

TEST_F(ConnectionTest, AHandlerMayHoldItsOwnConnection) {
    auto own = std::make_shared<Connection>();
    Connection& itself = *own;
    itself = event.connect([own] {});
    own.reset();
    itself.disconnect();
    EXPECT_FALSE(event.connected());
}

TEST_F(ConnectionTest, WhatAHandlerHoldsMayEndThemAtTheEndOfAnEmissionToo) {
    auto second = std::make_shared<ScopedConnection>();
    Connection first;
    first = event.connect([&first, second] { first.disconnect(); });
    *second = event.connect(noting("b"));
    event.connect(noting("c"));
    second.reset();
    EXPECT_EQ(emitted(), "bc");
    EXPECT_EQ(emitted(), "c");
}

TEST_F(ConnectionTest, AScopedOneEndsWithItsScope) {
    {
        const ScopedConnection scoped = event.connect(noting("a"));
        EXPECT_TRUE(scoped.connected());
        EXPECT_EQ(emitted(), "a");
    }
    EXPECT_EQ(emitted(), "");
}

TEST_F(ConnectionTest, AScopedOneCanBeMovedAndEndsOnce) {
    ScopedConnection target;
    EXPECT_FALSE(target.connected());
    {
        ScopedConnection source = event.connect(noting("a"));
        ScopedConnection between(std::move(source));
        target = std::move(between);
    }
    EXPECT_EQ(emitted(), "a");
    target.disconnect();
    EXPECT_EQ(emitted(), "");
}

TEST_F(ConnectionTest, AnAssignedScopedOneEndsItsFormerConnection) {
    ScopedConnection scoped = event.connect(noting("a"));
    scoped = event.connect(noting("b"));
    EXPECT_EQ(emitted(), "b");
}

TEST_F(ConnectionTest, AScopedOneAssignedToItselfStays) {
    ScopedConnection scoped = event.connect(noting("a"));
    ScopedConnection& same = scoped;
    scoped = std::move(same);
    EXPECT_TRUE(scoped.connected());
    EXPECT_EQ(emitted(), "a");
}

TEST_F(ConnectionTest, AReleasedScopedOneLeavesTheHandler) {
    Connection released;
    {
        ScopedConnection scoped = event.connect(noting("a"));
        released = scoped.release();
    }
    EXPECT_EQ(emitted(), "a");
    released.disconnect();
    EXPECT_EQ(emitted(), "");
}

TEST_F(ConnectionTest, AViewsConnectionsEndTogether) {
    Notice<int> other;
    {
        std::vector<ScopedConnection> connections;
        connections.push_back(event.connect(noting("a")));
        connections.push_back(other.connect([this](int n) { order += std::to_string(n); }));
        connections.push_back(event.connect(noting("b")));
        event();
        other(7);
    }
    EXPECT_EQ(order, "ab7");
    EXPECT_EQ(emitted(), "");
    other(8);
    EXPECT_EQ(order, "");
}

TEST_F(ConnectionTest, AViewMayBeDestroyedByAHandlerOfTheEventItListensTo) {
    auto view = std::make_unique<ScopedConnection>();
    event.connect([&] { view.reset(); });
    *view = event.connect(noting("never"));
    event.connect(noting("a"));
    EXPECT_EQ(emitted(), "a");
}

}  // namespace
}  // namespace velmora::tests
