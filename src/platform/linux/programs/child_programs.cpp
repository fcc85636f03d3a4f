#include "platform/linux/programs/child_programs.h"

#include <sys/wait.h>

#include <thread>

#include "platform/linux/programs/program_start.h"

namespace velmora::linuxhost {

ChildPrograms::Result ChildPrograms::run(const std::vector<std::string>& command) {
    reap();
    const pid_t process = startProgram(command);
    if (process < 0) return Result::missing;
    const auto end = std::chrono::steady_clock::now() + patience_;
    int status = -1;
    while (!hasEnded(process, status)) {
        if (std::chrono::steady_clock::now() >= end) {
            running_.push_back(process);
            return Result::running;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? Result::done : Result::failed;
}

bool ChildPrograms::start(const std::vector<std::string>& command, const std::string& folder) {
    reap();
    const pid_t process = startProgram(command, -1, folder);
    if (process >= 0) running_.push_back(process);
    return process >= 0;
}

std::size_t ChildPrograms::running() {
    reap();
    return running_.size();
}

void ChildPrograms::reap() {
    std::erase_if(running_, [](pid_t process) {
        int status = 0;
        return hasEnded(process, status);
    });
}

}  // namespace velmora::linuxhost
