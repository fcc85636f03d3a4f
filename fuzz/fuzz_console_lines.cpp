// The console reads any bytes: it never crashes, ends with status 0 or 1, and every line that
// it prints in JSON mode is one object.
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "app/console_program.h"
#include "fake/fake_machine.h"
#include "fuzz_target.h"
#include "persist/scramble.h"

using namespace velmora;

namespace {

// A wait sleeps for at most a second at a time: after half an hour and a little more, the program
// is ended.
constexpr int mostSleeps = 2000;

int runOn(const std::string& input, std::string& printed) {
    fake::FakeMachine machine;
    machine.files["C:\\Program Files\\Velmora\\set.dat"] = prcEn("txtTime=60\r\n") + "\r\n";
    machine.drives["C:"] = {50e9, 100e9};
    machine.drives["D:"] = {1e6, 5e12};
    machine.drives["E:"] = {.ready = false};
    std::istringstream in(input);
    std::ostringstream out;
    int sleeps = 0;
    const auto sleep = [&](std::int64_t milliseconds) {
        if (++sleeps > mostSleeps) throw ProgramEnd{0};
        machine.advance(milliseconds);
    };
    const int status = runConsole(machine, {.input = in, .output = out, .sleep = sleep});
    printed = out.str();
    return status;
}

bool isObject(const std::string& line) {
    return line.starts_with('{') && nlohmann::json::accept(line);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(asText(data, size));
    std::string printed;
    const int status = runOn(text, printed);
    require(status == 0 || status == 1, "the exit status is 0 or 1");

    const int statusInJson = runOn("json on\n" + text, printed);
    require(statusInJson == 0 || statusInJson == 1, "the exit status is 0 or 1 in JSON mode");
    // The input may switch to text, where lines are anything.
    std::istringstream lines(printed);
    std::string line;
    std::getline(lines, line);  // the greeting
    std::getline(lines, line);  // the icon, added before the first command
    while (std::getline(lines, line)) {
        if (line == "ok") break;
        require(isObject(line), "a line in JSON mode is an object");
    }
    return 0;
}
