#include "platform/linux/system/forked_child.h"

#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

#include "platform/work_steps.h"

namespace velmora::linuxhost {

namespace {

// Keeps every signal away between the fork and the moment in which the child has put back the
// standard handlers.
class SignalsHeld {
  public:
    SignalsHeld() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~SignalsHeld() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;

  private:
    sigset_t before_{};
};

// The program's handlers must not run here, and a key pressed at its terminal is not for this
// process.
void leaveSession(const char* name) {
    setsid();
    struct sigaction standard {};
    standard.sa_handler = SIG_DFL;
    for (int number = 1; number < NSIG; ++number) sigaction(number, &standard, nullptr);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    prctl(PR_SET_NAME, name);
}

// The reader of a pipe sees its end only when every process has closed it, and a filesystem can't
// be unmounted while it holds the working folder of a process.
void giveUpFiles(int socket) {
    if (socket != forkedChildSocket) dup2(socket, forkedChildSocket);
    if (close_range(forkedChildSocket + 1, ~0U, 0) != 0) {
        const long most = sysconf(_SC_OPEN_MAX);
        for (int file = forkedChildSocket + 1; file < (most > 0 ? most : 65536); ++file)
            close(file);
    }
    // A failure leaves it where the program was started, which is no worse than the program itself.
    if (chdir("/") != 0) return;
}

[[noreturn]] void runChild(int socket, const char* name, const std::function<void()>& body) {
    leaveSession(name);
    giveUpFiles(socket);
    // Its work is no sign of life of the program.
    hearWorkSteps({});
    try {
        body();
    } catch (...) {
        // The other end sees the socket close.
        _exit(1);
    }
    _exit(0);
}

}  // namespace

pid_t forkChild(int socket, const char* name, const std::function<void()>& body) {
    const SignalsHeld held;
    const pid_t child = fork();
    if (child == 0) runChild(socket, name, body);
    return child;
}

}  // namespace velmora::linuxhost
