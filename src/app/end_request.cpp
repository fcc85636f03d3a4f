#include "app/end_request.h"

#include <csignal>

#include "app/close_wish.h"
#include "app/console_end.h"
#include "app/sleep.h"

namespace velmora {

namespace {

volatile std::sig_atomic_t isRequested = 0;

void request() {
    isRequested = 1;
    endSleep();
}

void note(int signal) {
    request();
    // Whoever asks twice doesn't want to wait.
    std::signal(signal, SIG_DFL);
}

}  // namespace

void noteEndRequests() {
    // Before the sleep, which they end.
    openToCloseWishes();
    prepareSleep();
    std::signal(SIGTERM, note);
    std::signal(SIGINT, note);
#ifdef SIGBREAK
    std::signal(SIGBREAK, note);
#endif
#ifdef SIGHUP
    // A terminal that is closed. Who starts the program to outlive its terminal has it ignored.
    if (std::signal(SIGHUP, note) == SIG_IGN) std::signal(SIGHUP, SIG_IGN);
#endif
    // After the signals: what is set last is asked first.
    noteConsoleEnd(request);
}

bool isEndRequested() {
    if (takeCloseWish()) isRequested = 1;
    return isRequested != 0;
}

}  // namespace velmora
