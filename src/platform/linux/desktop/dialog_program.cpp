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
#include <utility>

#include "platform/linux/programs/program_start.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

namespace {

constexpr std::chrono::milliseconds period{20};

// The reading end of the pipe that the program prints into.
class Output {
  public:
    explicit Output(UniqueFd pipe) : pipe_(std::move(pipe)) {}

    /// Waits for output, at most that time; the whole time once the program has closed its end.
    void waitUpTo(std::chrono::milliseconds time) const {
        pollfd waited{pipe_.get(), POLLIN, 0};
        poll(&waited, pipe_.isOpen() ? 1 : 0, static_cast<int>(time.count()));
    }
    /// Reads what there is and drops what is too long for an answer.
    void take(std::string& text) {
        std::array<char, 4096> piece{};
        for (std::size_t taken = 0; pipe_.isOpen() && taken < longestAnswer;) {
            const auto size = read(pipe_.get(), piece.data(), piece.size());
            if (size < 0 && errno == EINTR) continue;
            if (size < 0 && errno == EAGAIN) return;
            if (size <= 0) return pipe_.reset();
            taken += static_cast<std::size_t>(size);
            if (text.size() <= longestAnswer)
                text.append(piece.data(), static_cast<std::size_t>(size));
        }
    }

  private:
    UniqueFd pipe_;
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
    Output output{UniqueFd(ends[0])};
    UniqueFd writingEnd(ends[1]);
    fcntl(ends[0], F_SETFL, O_NONBLOCK);
    const pid_t process = startProgram(command, writingEnd.get());
    writingEnd.reset();
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
