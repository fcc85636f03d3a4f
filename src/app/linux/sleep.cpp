#include "app/sleep.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace velmora {

namespace {

// Readable once the sleep is to end; lasts as long as the program.
volatile std::sig_atomic_t ending = -1;

// A poll's own time limit stands still while the machine sleeps.
int makeTimer() {
    return timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK);
}

bool start(int timer, std::int64_t milliseconds) {
    itimerspec time{};
    time.it_value.tv_sec = static_cast<time_t>(milliseconds / 1000);
    time.it_value.tv_nsec = static_cast<long>(milliseconds % 1000 * 1'000'000);
    return timer >= 0 && timerfd_settime(timer, 0, &time, nullptr) == 0;
}

}  // namespace

void prepareSleep() {
    if (ending < 0) ending = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
}

void sleepUnlessEnded(std::int64_t milliseconds) {
    if (milliseconds <= 0) return;
    static const int timer = makeTimer();
    std::array<pollfd, 2> awaited{{{timer, POLLIN, 0}, {ending, POLLIN, 0}}};
    const int limit = start(timer, milliseconds) ? -1 : static_cast<int>(milliseconds);
    poll(awaited.data(), awaited.size(), limit);
    std::uint64_t ends = 0;
    // Nothing to read is the usual case.
    if (ending >= 0 && read(ending, &ends, sizeof ends) < 0) return;
}

void endSleep() {
    const int before = errno;
    const std::uint64_t one = 1;
    // Full means that it is readable.
    if (ending >= 0 && write(ending, &one, sizeof one) < 0) errno = before;
}

std::int64_t longestSleep() {
    return ending < 0 ? 1000 : 3'600'000;
}

}  // namespace velmora
