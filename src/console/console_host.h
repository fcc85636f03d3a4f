// The console as the program's user: answers questions from a queue and lets the timers run while
// it yields or waits.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>

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
    /// A drive path or text for the next dialog.
    void queueText(std::string text) { texts_.push_back(std::move(text)); }

    BoxAnswer MsgBox(const Box& box) override;
    std::string BrowseForFolder(const std::string& title) override;
    std::string OpenFileDialog(const FileDialog& dialog) override;
    void Beep() override;
    void Note(const std::string& text) override;
    void DoEvents() override;

    /// Runs a handler; a run-time error that it doesn't handle ends the program.
    void guarded(const std::function<void()>& handler);
    /// Runs the due timers and commands; a run-time error that reaches this far ends the program.
    void fireTimers();
    /// Reports the unhandled run-time error in flight and ends the program with status 1. For catch
    /// blocks only.
    [[noreturn]] void endByRuntimeError();

  private:
    std::string nextText();

    Output& output_;
    TimerQueue& timers_;
    LaterCommands& later_;
    std::deque<BoxAnswer> answers_;
    std::deque<std::string> texts_;
};

}  // namespace velmora::console
