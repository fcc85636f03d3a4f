// The whole console program on a machine in memory: lines in, lines out.
#pragma once

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "app/console_program.h"
#include "fake/fake_machine.h"
#include "persist/scramble.h"

namespace velmora::tests {

struct ConsoleSession {
    ConsoleSession() {
        machine.drives["C:"] = {50e9, 100e9};
        machine.files["C:\\Program Files\\Velmora\\set.dat"] = prcEn("txtTime=60\r\n") + "\r\n";
    }

    /// Runs the program over the input; returns what it printed after the greeting and the line
    /// about the icon.
    std::vector<std::string> run(const std::string& input) {
        std::istringstream in(input);
        std::ostringstream out;
        status = runConsole(machine, {.input = in, .output = out, .sleep = [this](std::int64_t ms) {
                                          machine.advance(ms);
                                      }});
        std::vector<std::string> lines;
        std::istringstream printed(out.str());
        for (std::string line; std::getline(printed, line);) lines.push_back(line);
        if (!lines.empty()) lines.erase(lines.begin());
        if (!lines.empty() &&
            lines.front().starts_with("shell: Shell_NotifyIconA | message NIM_ADD")) {
            lines.erase(lines.begin());
        }
        return lines;
    }

    fake::FakeMachine machine;
    int status = -1;
};

inline int countOf(const std::vector<std::string>& lines, const std::string& line) {
    return static_cast<int>(std::count(lines.begin(), lines.end(), line));
}

}  // namespace velmora::tests
