// The same cases for every backend: two programs of one folder, within one process.
#pragma once

#include <gtest/gtest.h>

#include <future>
#include <string>
#include <vector>

#include "platform/other_starts.h"

namespace velmora::tests {

template <typename Starts>
struct OtherStartsCases : testing::Test {
    /// A folder of its own for each test.
    virtual std::string folder() = 0;

    void aFolderIsHeldOnce() {
        Starts first(folder());
        Starts second(folder());
        EXPECT_TRUE(first.holdFolder());
        EXPECT_FALSE(second.holdFolder());
        first.release();
        EXPECT_TRUE(second.holdFolder());
    }

    void aCommandLineReachesWhoListens() {
        Starts first(folder());
        std::promise<std::string> got;
        ASSERT_TRUE(first.listen([&got](const std::string& command) {
            got.set_value(command);
            return true;
        }));
        const std::string command = "\"C:\\größe.log\" " + std::string(100'000, 'x');
        Starts second(folder());
        EXPECT_TRUE(second.handOver(command));
        EXPECT_EQ(got.get_future().get(), command);
    }

    void anEmptyOneToo() {
        Starts first(folder());
        std::promise<std::string> got;
        ASSERT_TRUE(first.listen([&got](const std::string& command) {
            got.set_value(command);
            return true;
        }));
        EXPECT_TRUE(Starts(folder()).handOver(""));
        EXPECT_EQ(got.get_future().get(), "");
    }

    void severalFollowEachOther() {
        Starts first(folder());
        std::vector<std::string> got;
        ASSERT_TRUE(first.listen([&got](const std::string& command) {
            got.push_back(command);
            return true;
        }));
        for (const char* each : {"a", "b", "c"}) EXPECT_TRUE(Starts(folder()).handOver(each));
        first.release();
        EXPECT_EQ(got, (std::vector<std::string>{"a", "b", "c"}));
    }

    void whatIsNotTakenGetsNoAnswer() {
        Starts first(folder());
        std::vector<std::string> got;
        ASSERT_TRUE(first.listen([&got](const std::string& command) {
            got.push_back(command);
            return got.size() > 1;
        }));
        EXPECT_FALSE(Starts(folder()).handOver("a"));
        EXPECT_TRUE(Starts(folder()).handOver("b")) << "the next one is heard";
        first.release();
        EXPECT_EQ(got, (std::vector<std::string>{"a", "b"}));
    }

    void onlyOneListens() {
        Starts first(folder());
        Starts second(folder());
        EXPECT_TRUE(first.listen([](const std::string&) { return true; }));
        EXPECT_FALSE(second.listen([](const std::string&) { return true; }));
        first.release();
        EXPECT_TRUE(second.listen([](const std::string&) { return true; }));
    }

    void withoutAListenerNothingIsHandedOver() {
        EXPECT_FALSE(Starts(folder()).handOver("a"));
        Starts first(folder());
        first.listen([](const std::string&) { return true; });
        first.release();
        EXPECT_FALSE(Starts(folder()).handOver("a"));
        EXPECT_FALSE(Starts(folder() + "2").handOver("a")) << "another folder";
    }
};

}  // namespace velmora::tests
