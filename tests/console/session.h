// The console's commands over the forms alone: no program behind them but what a test connects, on
// a clock that sleeping moves.
#pragma once

#include <cstdint>
#include <sstream>
#include <string>
#include <utility>

#include "console/commands.h"
#include "console/console_host.h"
#include "console/output.h"
#include "console/waiting.h"
#include "controls/timer_queue.h"
#include "fake/fake_machine.h"
#include "forms/forms.h"

namespace velmora::tests {

struct Session {
    Session() {
        for (Form* form : forms.all()) {
            for (Control* control : form->controls()) {
                if (auto* timer = dynamic_cast<Timer*>(control)) timers.add(*timer);
            }
        }
    }

    /// Carries out a line; everything that it printed.
    std::string tell(const std::string& line) {
        commands.run(line);
        return printed();
    }
    /// What was printed since the last asking.
    std::string printed() { return std::exchange(stream, std::ostringstream()).str(); }

    /// Whether the line got an error reply of one line.
    bool refuses(const std::string& line) {
        const std::string reply = tell(line);
        return reply.starts_with("error: ") && reply.find('\n') == reply.size() - 1;
    }

    fake::FakeMachine machine;
    Forms forms;
    Form1& form1 = forms.form1;
    std::ostringstream stream;
    console::Output output{stream};
    TimerQueue timers{[this] { return machine.tick; }};
    console::ConsoleHost host{output, timers};
    std::int64_t slept = 0;
    console::Waiting waiting{host, timers, machine.platform().clock, output,
                             [this](std::int64_t ms) {
                                 slept += ms;
                                 machine.advance(ms);
                             }};
    console::Commands commands{forms, host, output, waiting,
                               [](const std::string& path) { return "drive path of " + path; }};
};

}  // namespace velmora::tests
