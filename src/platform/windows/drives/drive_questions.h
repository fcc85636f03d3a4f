// Questions to drives, with a deadline. A drive may keep a call waiting for minutes (a share whose
// host is gone, a disk that spins up), and the program must go on meanwhile. So each drive has a
// thread of its own that asks, and callers wait for it no longer than the deadline.
//
// A drive that missed the deadline answers nothing, at no cost, until its pending question returns.
// That late answer is thrown away: it belongs to a moment long past.
//
// Threads that still wait for a drive are left running when this object is destroyed and when the
// program ends. A question may therefore run at any later time: it must own everything that it
// touches.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace velmora::windows {

class DriveQuestions {
  public:
    explicit DriveQuestions(std::chrono::milliseconds deadline);
    ~DriveQuestions();
    DriveQuestions(const DriveQuestions&) = delete;
    DriveQuestions& operator=(const DriveQuestions&) = delete;

    /// The answer, or nothing when the drive doesn't answer in time, an earlier question to it is
    /// still pending, the question fails by an exception, or no thread can be had. Names of
    /// drives are compared without regard to case.
    template <typename Answer>
    std::optional<Answer> ask(const std::string& drive, std::function<Answer()> question) {
        const auto answer = std::make_shared<std::optional<Answer>>();
        const bool inTime =
            run(drive, [answer, question = std::move(question)] { *answer = question(); });
        return inTime ? std::move(*answer) : std::nullopt;
    }

    /// Has an order carried out on the drive's thread: now, or after a question that is pending.
    /// Waits for it until the deadline, and not at all while a question is pending. Where no thread
    /// can be had, the order is destroyed.
    void finish(const std::string& drive, std::function<void()> order);

  private:
    class Worker;

    std::shared_ptr<Worker> workerOf(const std::string& drive);

    bool run(const std::string& drive, std::function<void()> task);

    std::chrono::milliseconds deadline_;
    std::map<std::string, std::shared_ptr<Worker>> workers_;
};

}  // namespace velmora::windows
