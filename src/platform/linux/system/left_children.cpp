#include "platform/linux/system/left_children.h"

#include <signal.h>
#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <mutex>
#include <thread>
#include <vector>

namespace velmora::linuxhost {

namespace {

struct LeftChildren {
    std::mutex mutex;
    std::vector<pid_t> processes;
};

LeftChildren& leftChildren() {
    static LeftChildren left;
    return left;
}

bool isReaped(pid_t process) {
    const pid_t reaped = waitpid(process, nullptr, WNOHANG);
    return reaped == process || (reaped < 0 && errno != EINTR);
}

bool endsWithin(pid_t process, std::chrono::milliseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    std::chrono::microseconds pause{50};
    while (!isReaped(process)) {
        if (std::chrono::steady_clock::now() >= end) return false;
        std::this_thread::sleep_for(pause);
        pause = std::min(pause * 2, std::chrono::microseconds(2000));
    }
    return true;
}

}  // namespace

void leaveChild(pid_t process, std::chrono::milliseconds time) {
    if (!endsWithin(process, time)) {
        LeftChildren& left = leftChildren();
        const std::lock_guard lock(left.mutex);
        left.processes.push_back(process);
    }
    reapLeftChildren();
}

void killChild(pid_t process) {
    kill(process, SIGKILL);
    leaveChild(process);
}

std::size_t reapLeftChildren() {
    LeftChildren& left = leftChildren();
    const std::lock_guard lock(left.mutex);
    std::erase_if(left.processes, isReaped);
    return left.processes.size();
}

}  // namespace velmora::linuxhost
