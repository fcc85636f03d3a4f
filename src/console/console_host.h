// The console as the program's user: answers questions from a queue and lets the timers run while
// it yields or waits.
#pragma once

#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <string>
#include <utility>

#include "console/later_commands.h"
#include "console/output.h"
#include "controls/timer_queue.h"
#include "platform/host.h"

namespace velmora::console {

class ConsoleHost final : public Host {
  public:
    ConsoleHost(Output& output, TimerQueue& timers, LaterCommands& later)
        : output_(output), timers_(timers), later_(later) {}

    /// An answer for the next question that offers it. Boxes with a single button take none.
    void queueAnswer(BoxAnswer answer) { answers_.push_back(answer); }
    /// The same for the next question alone: what is queued is dropped.
    void answerOnly(BoxAnswer answer) { answers_ = {answer}; }
    /// A drive path or text for the next dialog.
    void queueText(std::string text) { texts_.push_back(std::move(text)); }

    BoxAnswer MsgBox(const Box& box) override;
    /// The box as an event, and its text in one line on standard error.
    void Tell(const Box& box) override;
    std::string BrowseForFolder(const std::string& title) override;
    std::string OpenFileDialog(const FileDialog& dialog) override;
    void Beep() override;
    void Note(const std::string& text) override;
    void DoEvents() override;
    bool DoEventsRan() override;

    using PathConversion = std::function<std::string(const std::string&)>;
    /// From now on a run-time error that no handler takes is told, and the program goes on.
    /// `toHostPath` gives a drive path as the user knows it.
    void keepRunning(PathConversion toHostPath) { toHostPath_ = std::move(toHostPath); }

    /// Runs a handler; a run-time error that it doesn't handle ends the program, unless it keeps
    /// running.
    template <typename Handler>
    void guarded(Handler&& handler) {
        try {
            std::forward<Handler>(handler)();
        } catch (const std::exception&) {
            failed();
        }
    }
    /// Runs the due timers and commands; an error that reaches this far is treated as above.
    /// Returns whether anything ran.
    bool fireTimers();
    /// Tells the unhandled run-time error in flight; ends the program with status 1 unless it keeps
    /// running. For catch blocks only.
    void failed();

  private:
    std::string nextText();
    [[noreturn]] void endByRuntimeError();

    Output& output_;
    TimerQueue& timers_;
    LaterCommands& later_;
    PathConversion toHostPath_;  // empty while an error ends the program
    std::deque<BoxAnswer> answers_;
    std::deque<std::string> texts_;
};

}  // namespace velmora::console
