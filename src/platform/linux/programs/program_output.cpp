#include "platform/linux/programs/program_output.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/linux/inventory/record_text.h"
#include "platform/linux/programs/program_order.h"
#include "platform/linux/programs/program_start.h"
#include "platform/linux/programs/shell_script.h"
#include "platform/linux/system/left_children.h"

namespace velmora::linuxhost {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// Whether there is something to read, or the end, before the time is over.
bool isReadableBefore(int pipe, steady_clock::time_point end) {
    pollfd waiting{pipe, POLLIN, 0};
    while (true) {
        const auto left = std::chrono::ceil<milliseconds>(end - steady_clock::now());
        if (left.count() <= 0) return false;
        const int ready = poll(&waiting, 1, static_cast<int>(left.count()));
        if (ready > 0) return true;
        if (ready < 0 && errno != EINTR) return false;
    }
}

bool listsConnections(const ProgramOrder& order) {
    const std::string name = lowerCase(order.program);
    return order.rest.empty() && (name == "netstat" || name == "netstat.exe");
}

std::vector<std::string> connectionsCommand() {
    std::string program = programInPath("netstat");
    if (program.empty()) program = programInPath("ss");
    // Names of hosts could take longer than the whole report.
    return {std::move(program), "--tcp", "--numeric"};
}

std::vector<std::string> commandOf(const ProgramOrder& order) {
    std::vector<std::string> command{programInPath(order.program)};
    for (std::string& argument : shortcutArguments(order.rest))
        command.push_back(std::move(argument));
    return command;
}

}  // namespace

ProgramOutput::~ProgramOutput() {
    pipe_.reset();
    if (process_ > 0) leaveChild(process_);
}

ProgramOutput::Ending ProgramOutput::readTo(std::string& output) const {
    const auto last = steady_clock::now() + limits_.total;
    char piece[16384];
    while (output.size() < limits_.bytes) {
        const auto end = std::min(last, steady_clock::now() + limits_.silence);
        if (!isReadableBefore(pipe_.get(), end)) return Ending::byLimit;
        const std::size_t wanted = std::min(sizeof piece, limits_.bytes - output.size());
        const auto size = read(pipe_.get(), piece, wanted);
        if (size < 0 && errno == EINTR) continue;
        if (size <= 0) return Ending::byItself;
        output.append(piece, static_cast<std::size_t>(size));
    }
    return Ending::byLimit;
}

std::string ProgramOutput::ReadAll() {
    if (!pipe_.isOpen()) return {};
    std::string output;
    if (readTo(output) == Ending::byLimit) {
        kill(-process_, SIGKILL);
        killChild(std::exchange(process_, -1));
    }
    pipe_.reset();
    return severalLines(output);
}

std::vector<std::string> outputCommand(const std::string& commandLine) {
    const ProgramOrder order = programOrder(commandLine);
    auto command = listsConnections(order) ? connectionsCommand() : commandOf(order);
    if (command.front().empty()) throw RuntimeError(error::fileNotFound);
    return command;
}

std::unique_ptr<WshExec> startWithOutput(const std::vector<std::string>& command,
                                         OutputLimits limits) {
    reapLeftChildren();
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw RuntimeError(error::permissionDenied);
    UniqueFd reading(ends[0]);
    const UniqueFd writing(ends[1]);
    const pid_t process = startProgram(command, writing.get());
    if (process < 0) throw RuntimeError(error::permissionDenied);
    return std::make_unique<ProgramOutput>(process, std::move(reading), limits);
}

}  // namespace velmora::linuxhost
