// A later start on its way to the program's own thread.
#include "app/later_starts.h"

#include <gtest/gtest.h>

#include <future>
#include <string>
#include <thread>
#include <vector>

#include "platform/other_starts.h"

namespace velmora::tests {
namespace {

struct LaterStartsTest : testing::Test {
    /// Offers it on another thread; returns once it waits.
    std::future<bool> offered(const std::string& start) {
        woken = {};
        auto answer = std::async(std::launch::async, [this, start] { return starts.offer(start); });
        woken.get_future().wait();
        return answer;
    }
    void open() {
        starts.open([this](const std::string& start) { taken.push_back(start); });
    }

    std::promise<void> woken;
    std::vector<std::string> taken;
    LaterStarts starts{[this] { woken.set_value(); }, std::chrono::hours(1)};
};

TEST_F(LaterStartsTest, AStartIsAnsweredOnceItIsTaken) {
    open();
    auto answer = offered("a");
    EXPECT_TRUE(taken.empty());
    starts.takeWaiting();
    EXPECT_TRUE(answer.get());
    EXPECT_EQ(taken, std::vector<std::string>{"a"});
    starts.takeWaiting();
    EXPECT_EQ(taken.size(), 1u) << "no start is taken twice";
}

TEST_F(LaterStartsTest, OneThatComesEarlyWaitsForTheProgram) {
    auto answer = offered("early");
    starts.takeWaiting();
    EXPECT_TRUE(taken.empty());
    open();
    EXPECT_TRUE(answer.get());
    EXPECT_EQ(taken, std::vector<std::string>{"early"});
}

TEST_F(LaterStartsTest, AProgramThatEndsTakesNeitherTheWaitingNorTheNext) {
    open();
    auto answer = offered("a");
    starts.close();
    EXPECT_FALSE(answer.get());
    starts.takeWaiting();
    EXPECT_FALSE(starts.offer("b"));
    EXPECT_TRUE(taken.empty());
}

// Many times, as the end can come before the start waits or after it.
TEST(LaterStartsEnd, TheWaitingIsAnsweredWheneverTheProgramEnds) {
    for (int i = 0; i < 200; ++i) {
        std::promise<void> woken;
        LaterStarts starts([&woken] { woken.set_value(); }, std::chrono::hours(1));
        auto answer = std::async(std::launch::async, [&starts] { return starts.offer("a"); });
        woken.get_future().wait();
        for (int yields = i; yields > 0; --yields) std::this_thread::yield();
        starts.close();
        EXPECT_FALSE(answer.get());
    }
}

TEST_F(LaterStartsTest, TheAnswerDoesNotWaitForWhatTheStartLeadsTo) {
    std::future<bool> answer;
    bool isAnswered = false;
    starts.open([&](const std::string&) { isAnswered = answer.get(); });
    answer = offered("a");
    starts.takeWaiting();
    EXPECT_TRUE(isAnswered);
}

TEST(LaterStartsPatience, WhatWasGivenUpIsNotTakenLater) {
    std::vector<std::string> taken;
    LaterStarts starts([] {}, std::chrono::milliseconds(0));
    starts.open([&taken](const std::string& start) { taken.push_back(start); });
    EXPECT_FALSE(starts.offer("a"));
    starts.takeWaiting();
    EXPECT_TRUE(taken.empty());
    static_assert(LaterStarts::longestWait < handOverPatience);
}

}  // namespace
}  // namespace velmora::tests
