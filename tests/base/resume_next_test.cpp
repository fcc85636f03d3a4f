#include "base/resume_next.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "base/runtime_error.h"

namespace velmora {
namespace {

TEST(ResumeNext, RunsAllStatementsInOrderAndCountsNoFailure) {
    std::string ran;
    EXPECT_EQ(resumeNext([&] { ran += 'a'; }, [&] { ran += 'b'; }, [&] { ran += 'c'; }), 0);
    EXPECT_EQ(ran, "abc");
}

TEST(ResumeNext, PassesOverTheFailingStatementsOnly) {
    std::string ran;
    const int failed =
        resumeNext([&] { throw RuntimeError(error::fileNotFound); }, [&] { ran += 'b'; },
                   [&] {
                       ran += 'c';
                       throw std::runtime_error("half done");
                   },
                   [&] { ran += 'd'; });
    EXPECT_EQ(failed, 2);
    EXPECT_EQ(ran, "bcd");
}

TEST(ResumeNext, CountsAFailureOfTheOnlyStatement) {
    EXPECT_EQ(resumeNext([] { throw RuntimeError(error::overflow); }), 1);
}

TEST(ResumeNext, IsFineWithNoStatements) {
    EXPECT_EQ(resumeNext(), 0);
}

TEST(ResumeNext, TakesStatementsThatCanOnlyBeRunOnce) {
    struct Once {
        int& runs;
        void operator()() && { ++runs; }
    };
    int runs = 0;
    EXPECT_EQ(resumeNext(Once{runs}, Once{runs}), 0);
    EXPECT_EQ(runs, 2);
}

}  // namespace
}  // namespace velmora
