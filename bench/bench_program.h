// The program as a benchmark runs it: the real machine, a host that only lets the timers run.
#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "app/core.h"
#include "console/console_surface.h"
#include "controls/timer_queue.h"

namespace velmora::bench {

class QuietHost final : public Host {
  public:
    explicit QuietHost(TimerQueue& timers) : timers_(timers) {}
    BoxAnswer MsgBox(const Box& box) override {
        return answer.value_or(cancellingAnswer(box.buttons));
    }
    void Tell(const Box&) override {}
    std::string BrowseForFolder(const std::string&) override { return {}; }
    std::string OpenFileDialog(const FileDialog&) override { return {}; }
    void Beep() override {}
    void Note(const std::string&) override {}
    void DoEvents() override { timers_.fireDue(); }
    bool DoEventsRan() override { return timers_.fireDue() > 0 || !knowsThatNothingRan; }

    bool knowsThatNothingRan = true;
    std::optional<BoxAnswer> answer;  ///< to every box; none dismisses it

  private:
    TimerQueue& timers_;
};

class NoNotifyArea final : public NotifyArea {
  public:
    bool Shell_NotifyIconA(NotifyMessage, const NotifyIconData&) override { return false; }
    bool available() const override { return true; }
};

struct Program {
    std::unique_ptr<Machine> machine = openMachine();
    Forms forms;
    TimerQueue timers{[this] { return machine->platform().clock.GetTickCount(); }};
    QuietHost host{timers};
    NoNotifyArea notifyArea;
    console::ConsoleUser32 user32;
    console::ConsoleShellIcons shellIcons;
    console::ConsoleWorkArea workArea;
    Core core{forms, machine->platform(), {host, notifyArea, user32, shellIcons, workArea}};

    Program() { addTimers(forms, timers); }
};

/// Seconds that a piece of work takes.
template <typename Work>
double seconds(Work&& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

}  // namespace velmora::bench
