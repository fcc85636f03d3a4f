#include "platform/linux/desktop/dialog_program.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>

#include "platform/linux/programs/program_start.h"

namespace velmora::linuxhost {

namespace {

constexpr std::chrono::milliseconds period{20};

// The reading end of the pipe that the program prints into.
class Output {
  public:
    explicit Output(int file) : file_(file) {}
    ~Output() { close(); }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// Waits for output, up to that time; only for the time once the program has closed its own.
    void waitUpTo(std::chrono::milliseconds time) const {
        pollfd waited{file_, POLLIN, 0};
        poll(&waited, file_ < 0 ? 0 : 1, static_cast<int>(time.count()));
    }
    /// Takes what there is, and lets go what is beyond any answer.
    void take(std::string& text) {
        std::array<char, 4096> piece{};
        for (std::size_t taken = 0; file_ >= 0 && taken < longestAnswer;) {
            const auto size = read(file_, piece.data(), piece.size());
            if (size < 0 && errno == EINTR) continue;
            if (size < 0 && errno == EAGAIN) return;
            if (size <= 0) return close();
            taken += static_cast<std::size_t>(size);
            if (text.size() <= longestAnswer)
                text.append(piece.data(), static_cast<std::size_t>(size));
        }
    }

  private:
    void close() {
        if (file_ >= 0) ::close(file_);
        file_ = -1;
    }
    int file_;
};

// A child that doesn't outlive this object.
class Child {
  public:
    explicit Child(pid_t process) : process_(process) {}
    ~Child() {
        if (hasEnded_) return;
        kill(process_, SIGKILL);
        while (waitpid(process_, &status_, 0) < 0 && errno == EINTR) continue;
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    bool hasEnded() {
        hasEnded_ = hasEnded_ || linuxhost::hasEnded(process_, status_);
        return hasEnded_;
    }
    bool endedWell() const { return WIFEXITED(status_) && WEXITSTATUS(status_) == 0; }

  private:
    pid_t process_;
    int status_ = -1;
    bool hasEnded_ = false;
};

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value && *value;
}

}  // namespace

std::optional<DialogAnswer> runDialog(const std::vector<std::string>& command,
                                      const std::function<void()>& whileOpen) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
    Output output(ends[0]);
    fcntl(ends[0], F_SETFL, O_NONBLOCK);
    const pid_t process = startProgram(command, ends[1]);
    close(ends[1]);
    if (process < 0) return std::nullopt;

    Child child(process);
    DialogAnswer answer;
    auto next = std::chrono::steady_clock::now() + period;
    while (!child.hasEnded()) {
        output.waitUpTo(period);
        output.take(answer.output);
        if (!whileOpen || std::chrono::steady_clock::now() < next) continue;
        whileOpen();
        next = std::chrono::steady_clock::now() + period;
    }
    // What it printed last; a child of its own may still hold the other end, and isn't waited for.
    output.take(answer.output);
    answer.isAccepted = child.endedWell() && answer.output.size() <= longestAnswer;
    return answer;
}

bool hasDisplay() {
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
}

}  // namespace velmora::linuxhost
