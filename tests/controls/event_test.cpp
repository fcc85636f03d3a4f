#include "controls/event.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "base/errors.h"

namespace velmora::tests {
namespace {

TEST(Event, WithoutHandlersDoesNothing) {
    const Event<int> event;
    EXPECT_FALSE(event.connected());
    event(1);
}

TEST(Event, RunsItsHandlersInTheOrderOfConnection) {
    Event<> event;
    std::string order;
    event.connect([&] { order += "a"; });
    event.connect([&] { order += "b"; });
    EXPECT_TRUE(event.connected());
    event();
    event();
    EXPECT_EQ(order, "abab");
}

TEST(Event, HandsItsArgumentsToEveryHandler) {
    Event<int, const std::string&> event;
    std::string got;
    for (int i = 0; i < 2; ++i) {
        event.connect([&](int n, const std::string& text) { got += text + std::to_string(n); });
    }
    event(7, "x");
    EXPECT_EQ(got, "x7x7");
}

TEST(Event, AnErrorStopsTheRestAndGoesToTheCaller) {
    Event<> event;
    bool reached = false;
    event.connect([] { throw RuntimeError(error::typeMismatch); });
    event.connect([&] { reached = true; });
    EXPECT_EQ(errorOf([&] { event(); }), error::typeMismatch);
    EXPECT_FALSE(reached);
}

TEST(Event, AHandlerMayConnectMoreThanAnyStorageHoldsAtOnce) {
    Event<> event;
    int late = 0;
    // What the handler holds must stay in place while it runs.
    const std::array<int, 64> held{42};
    event.connect([&event, &late, held] {
        for (int i = 0; i < 1000; ++i) event.connect([&late] { ++late; });
        EXPECT_EQ(held[0], 42);
    });
    event();
    EXPECT_EQ(late, 1000);
}

TEST(Event, AHandlerMayFireTheSameEventAgain) {
    Event<int> event;
    std::vector<int> seen;
    event.connect([&](int depth) {
        seen.push_back(depth);
        if (depth < 3) event(depth + 1);
    });
    event(1);
    EXPECT_EQ(seen, (std::vector<int>{1, 2, 3}));
}

}  // namespace
}  // namespace velmora::tests
