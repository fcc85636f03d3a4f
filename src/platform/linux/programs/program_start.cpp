#include "platform/linux/programs/program_start.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace velmora::linuxhost {

namespace {

class SpawnOptions {
  public:
    SpawnOptions(int output, const std::string& folder) {
        posix_spawn_file_actions_init(&files_);
        if (!folder.empty()) posix_spawn_file_actions_addchdir_np(&files_, folder.c_str());
        posix_spawn_file_actions_addopen(&files_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        if (output < 0) {
            posix_spawn_file_actions_addopen(&files_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        } else {
            posix_spawn_file_actions_adddup2(&files_, output, STDOUT_FILENO);
        }
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
    ~SpawnOptions() {
        posix_spawnattr_destroy(&attributes_);
        posix_spawn_file_actions_destroy(&files_);
    }
    SpawnOptions(const SpawnOptions&) = delete;
    SpawnOptions& operator=(const SpawnOptions&) = delete;

    pid_t start(std::vector<char*>& arguments) const {
        pid_t process = -1;
        const int failure =
            posix_spawnp(&process, arguments[0], &files_, &attributes_, arguments.data(), environ);
        return failure == 0 ? process : -1;
    }

  private:
    posix_spawn_file_actions_t files_{};
    posix_spawnattr_t attributes_{};
};

}  // namespace

pid_t startProgram(std::vector<std::string> command, int output, const std::string& folder) {
    std::vector<char*> arguments;
    for (std::string& each : command) arguments.push_back(each.data());
    arguments.push_back(nullptr);
    return SpawnOptions(output, folder).start(arguments);
}

bool hasEnded(pid_t process, int& status) {
    pid_t ended = 0;
    do {
        ended = waitpid(process, &status, WNOHANG);
    } while (ended < 0 && errno == EINTR);
    return ended != 0;
}

}  // namespace velmora::linuxhost
