#include "platform/work_steps.h"

#include <gtest/gtest.h>

#include <thread>

namespace velmora {
namespace {

struct WorkSteps : testing::Test {
    ~WorkSteps() override { hearWorkSteps({}); }
    int heard = 0;
};

TEST_F(WorkSteps, EachIsHeardUntilNobodyListens) {
    noteWorkStep();
    hearWorkSteps([this] { ++heard; });
    noteWorkStep();
    noteWorkStep();
    EXPECT_EQ(heard, 2);
    hearWorkSteps({});
    noteWorkStep();
    EXPECT_EQ(heard, 2);
}

TEST_F(WorkSteps, OfAnotherThreadAreNotHeard) {
    hearWorkSteps([this] { ++heard; });
    std::thread([] { noteWorkStep(); }).join();
    EXPECT_EQ(heard, 0);
}

}  // namespace
}  // namespace velmora
