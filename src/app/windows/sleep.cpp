#include "app/sleep.h"

#include <chrono>
#include <thread>

namespace velmora {

void prepareSleep() {}

void sleepUnlessEnded(std::int64_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void endSleep() {}

// A wish for the end is looked for in between.
std::int64_t longestSleep() {
    return 1000;
}

}  // namespace velmora
