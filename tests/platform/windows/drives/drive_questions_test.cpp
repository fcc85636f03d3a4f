#include "platform/windows/drives/drive_questions.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>

namespace velmora::windows {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

// Long enough for an answer on a busy machine, so that only a stuck drive ever misses it.
constexpr auto ample = 30s;
constexpr auto brief = 20ms;
// For a test in which one drive must miss the deadline and another must not.
constexpr auto middling = 700ms;

// A drive that keeps its question waiting until the test lets go.
class StuckDrive {
  public:
    int answer(int value) {
        std::unique_lock lock(mutex_);
        ++asked_;
        changed_.notify_all();
        changed_.wait(lock, [this] { return released_; });
        ++returned_;
        changed_.notify_all();
        return value;
    }
    void release() {
        const std::lock_guard lock(mutex_);
        released_ = true;
        changed_.notify_all();
    }
    bool waitUntilAsked() {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, ample, [this] { return asked_ > 0; });
    }
    bool waitUntilReturned() {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, ample, [this] { return returned_ > 0; });
    }
    int asked() {
        const std::lock_guard lock(mutex_);
        return asked_;
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    int asked_ = 0;
    int returned_ = 0;
    bool released_ = false;
};

std::function<int()> questionTo(const std::shared_ptr<StuckDrive>& drive, int value) {
    return [drive, value] { return drive->answer(value); };
}

std::function<int()> quick(int value) {
    return [value] { return value; };
}

// Asks until the drive's thread is free again; the answer that it then gives.
std::optional<int> askUntilAnswered(DriveQuestions& questions, const std::string& drive,
                                    int value) {
    const auto end = steady_clock::now() + ample;
    while (steady_clock::now() < end) {
        if (const auto answer = questions.ask(drive, quick(value))) return answer;
        std::this_thread::yield();
    }
    return std::nullopt;
}

TEST(DriveQuestions, AnAnswerInTimeComesBack) {
    DriveQuestions questions(ample);
    EXPECT_EQ(questions.ask("C:", quick(7)), 7);
    EXPECT_EQ(questions.ask("C:", quick(8)), 8);
}

TEST(DriveQuestions, ADriveIsAskedOnAThreadOfItsOwnThatItKeeps) {
    DriveQuestions questions(ample);
    const std::function<std::thread::id()> who = [] { return std::this_thread::get_id(); };
    const auto first = questions.ask("C:", who);
    EXPECT_NE(first, std::this_thread::get_id());
    EXPECT_EQ(questions.ask("c:", who), first);
    EXPECT_NE(questions.ask("D:", who), first);
}

TEST(DriveQuestions, AQuestionThatMissesTheDeadlineHasNoAnswer) {
    DriveQuestions questions(brief);
    const auto drive = std::make_shared<StuckDrive>();
    const auto before = steady_clock::now();
    EXPECT_EQ(questions.ask("C:", questionTo(drive, 1)), std::nullopt);
    EXPECT_GE(steady_clock::now() - before, brief);
    drive->release();
}

TEST(DriveQuestions, WhileAQuestionIsPendingTheDriveIsNotAskedAgainAndCostsNothing) {
    DriveQuestions questions(middling);
    const auto drive = std::make_shared<StuckDrive>();
    EXPECT_EQ(questions.ask("C:", questionTo(drive, 1)), std::nullopt);
    const auto before = steady_clock::now();
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(questions.ask("C:", questionTo(drive, 2)), std::nullopt);
    EXPECT_LT(steady_clock::now() - before, middling);
    EXPECT_EQ(drive->asked(), 1);
    drive->release();
}

TEST(DriveQuestions, AStuckDriveDoesNotHoldUpAnother) {
    DriveQuestions questions(middling);
    const auto drive = std::make_shared<StuckDrive>();
    EXPECT_EQ(questions.ask("C:", questionTo(drive, 1)), std::nullopt);
    EXPECT_EQ(questions.ask("D:", quick(4)), 4);
    drive->release();
}

TEST(DriveQuestions, ALateAnswerIsThrownAwayAndTheDriveAnswersAgain) {
    DriveQuestions questions(middling);
    const auto drive = std::make_shared<StuckDrive>();
    EXPECT_EQ(questions.ask("C:", questionTo(drive, 1)), std::nullopt);
    drive->release();
    ASSERT_TRUE(drive->waitUntilReturned());
    EXPECT_EQ(askUntilAnswered(questions, "C:", 2), 2);
    EXPECT_EQ(questions.ask("C:", quick(3)), 3);
}

TEST(DriveQuestions, AQuestionThatFailsHasNoAnswerAndTheNextOneIsAsked) {
    DriveQuestions questions(ample);
    const std::function<int()> failing = []() -> int { throw std::runtime_error("no"); };
    EXPECT_EQ(questions.ask("C:", failing), std::nullopt);
    EXPECT_EQ(questions.ask("C:", quick(5)), 5);
}

TEST(DriveQuestions, GoesAwayAtOnceWhileADriveIsStuck) {
    const auto drive = std::make_shared<StuckDrive>();
    auto questions = std::make_unique<DriveQuestions>(brief);
    EXPECT_EQ(questions->ask("C:", questionTo(drive, 1)), std::nullopt);
    ASSERT_TRUE(drive->waitUntilAsked());
    questions.reset();
    drive->release();
    EXPECT_TRUE(drive->waitUntilReturned());
}

TEST(DriveQuestions, TheThreadLetsGoOfAQuestionOnceItIsAnswered) {
    DriveQuestions questions(ample);
    const auto held = std::make_shared<int>(6);
    const std::function<int()> question = [held] { return *held; };
    EXPECT_EQ(questions.ask("C:", question), 6);
    EXPECT_EQ(held.use_count(), 2);  // the test's own and the question's
}

TEST(DriveQuestions, AnOrderIsCarriedOutOnTheDrivesThreadAndDestroyedThere) {
    DriveQuestions questions(ample);
    const std::function<std::thread::id()> who = [] { return std::this_thread::get_id(); };
    const auto held = std::make_shared<int>(6);
    std::thread::id carriedOutBy;
    questions.finish("C:", [held, &carriedOutBy] { carriedOutBy = std::this_thread::get_id(); });
    EXPECT_EQ(carriedOutBy, questions.ask("C:", who));
    EXPECT_EQ(held.use_count(), 1);
}

TEST(DriveQuestions, AnOrderToAStuckDriveIsNotWaitedForAndFollowsTheQuestion) {
    DriveQuestions questions(middling);
    const auto drive = std::make_shared<StuckDrive>();
    EXPECT_EQ(questions.ask("C:", questionTo(drive, 1)), std::nullopt);
    const auto after = std::make_shared<StuckDrive>();
    after->release();
    const auto before = steady_clock::now();
    for (int i = 0; i < 3; ++i) questions.finish("C:", [after] { after->answer(0); });
    EXPECT_LT(steady_clock::now() - before, middling);
    EXPECT_EQ(after->asked(), 0);
    drive->release();
    EXPECT_EQ(askUntilAnswered(questions, "C:", 2), 2);
    EXPECT_EQ(after->asked(), 3);
}

TEST(DriveQuestionsDeathTest, TheProgramEndsWhileADriveIsStuck) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto endWhileStuck = [] {
        static DriveQuestions questions(brief);
        questions.ask("C:", questionTo(std::make_shared<StuckDrive>(), 1));
        std::exit(3);
    };
    EXPECT_EXIT(endWhileStuck(), testing::ExitedWithCode(3), "");
}

}  // namespace
}  // namespace velmora::windows
