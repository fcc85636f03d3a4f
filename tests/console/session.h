// The console's commands over the forms alone: without handlers but those that a test connects, and
// with a clock that sleeping advances.
#pragma once

#include <cstdint>
#include <sstream>
#include <string>
#include <utility>

#include "console/commands.h"
#include "console/console_host.h"
#include "console/output.h"
#include "console/reports.h"
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

    /// Runs a command line; returns everything that it printed.
    std::string run(const std::string& line) {
        commands.run(line);
        return printed();
    }
    /// What was printed since the last call.
    std::string printed() { return std::exchange(stream, std::ostringstream()).str(); }

    /// Whether the line got an error reply of one line.
    bool refuses(const std::string& line) {
        const std::string reply = run(line);
        return reply.starts_with("error: ") && reply.find('\n') == reply.size() - 1;
    }

    fake::FakeMachine machine;
    Forms forms;
    Form1& form1 = forms.form1;
    std::ostringstream stream;
    console::Output output{stream};
    TimerQueue timers{[this] { return machine.tick; }};
    console::LaterCommands later{machine.platform().clock};
    console::ConsoleHost host{output, timers, later};
    std::int64_t slept = 0;
    console::Waiting waiting{
        host, timers, later, machine.platform().clock, output, [this](std::int64_t ms) {
            slept += ms;
            machine.advance(ms);
        }};
    Inventory inventory{machine.platform(), host};
    MessageContent content{forms, machine.platform(), host, inventory};
    console::Reports reports{inventory, content, machine.platform(), forms};
    console::Commands commands{
        forms,
        host,
        output,
        waiting,
        later,
        reports,
        {.toDrivePath = [](const std::string& path) { return "drive path of " + path; },
         .RefreshDrive = [this] { ++refreshed; }}};
    int refreshed = 0;
};

}  // namespace velmora::tests
