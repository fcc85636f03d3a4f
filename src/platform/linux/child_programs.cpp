#include "platform/linux/child_programs.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

namespace velmora::linuxhost {

namespace {

// The child's own session, standard signal handling, and nothing to read from or write to.
class Surroundings {
  public:
    Surroundings() {
        posix_spawn_file_actions_init(&files_);
        posix_spawn_file_actions_addopen(&files_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&files_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&files_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawnattr_init(&attributes_);
        posix_spawnattr_setflags(
            &attributes_, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes_, &signals);
        sigaddset(&signals, SIGPIPE);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
    }
    ~Surroundings() {
        posix_spawnattr_destroy(&attributes_);
        posix_spawn_file_actions_destroy(&files_);
    }
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;

    pid_t start(std::vector<std::string> command) const {
        std::vector<char*> arguments;
        for (std::string& each : command) arguments.push_back(each.data());
        arguments.push_back(nullptr);
        pid_t process = -1;
        const int failure =
            posix_spawnp(&process, arguments[0], &files_, &attributes_, arguments.data(), environ);
        return failure == 0 ? process : -1;
    }

  private:
    posix_spawn_file_actions_t files_{};
    posix_spawnattr_t attributes_{};
};

bool hasEnded(pid_t process, int& status) {
    pid_t ended = 0;
    do {
        ended = waitpid(process, &status, WNOHANG);
    } while (ended < 0 && errno == EINTR);
    return ended != 0;
}

}  // namespace

ChildPrograms::Result ChildPrograms::run(const std::vector<std::string>& command) {
    reap();
    const pid_t process = Surroundings().start(command);
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
