// Later starts on their way into the program: they come on a thread of their own, and each gets an
// answer only once the program has taken it.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

namespace velmora {

class LaterStarts {
  public:
    /// `wake` runs on the thread of the starts and has `takeWaiting` called on the program's.
    explicit LaterStarts(std::function<void()> wake,
                         std::chrono::milliseconds patience = longestWait)
        : wake_(std::move(wake)), patience_(patience) {}
    LaterStarts(const LaterStarts&) = delete;
    LaterStarts& operator=(const LaterStarts&) = delete;

    /// Shorter than who hands over waits, so that nothing is taken that was given up.
    static constexpr std::chrono::milliseconds longestWait{8000};

    /// A start comes; one at a time. Whether the program has taken it: not when it ends, its own
    /// start has failed, or it is busy for so long.
    bool offer(const std::string& start);

    // On the program's thread.
    /// The program is there: takes the start that waits, and those that come.
    void open(std::function<void(const std::string& start)> take);
    void takeWaiting();
    /// The program is about to end: takes none from now on, also not the one that waits.
    void close();

  private:
    std::function<void()> wake_;
    std::chrono::milliseconds patience_;
    std::function<void(const std::string&)> take_;
    std::mutex mutex_;  // of what follows
    std::condition_variable changed_;
    std::optional<std::string> waiting_;
    bool isClosed_ = false;
};

}  // namespace velmora
