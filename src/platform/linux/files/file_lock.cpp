#include "platform/linux/files/file_lock.h"

#include <sys/file.h>

#include <cerrno>
#include <chrono>
#include <thread>

namespace velmora::linuxhost {

namespace {

using namespace std::chrono_literals;

// As long as a drive may take to answer.
constexpr auto longestLockWait = 2s;
constexpr auto betweenTries = 2ms;

}  // namespace

int lockFile(int file, LockKind kind) {
    const int operation = (kind == LockKind::shared ? LOCK_SH : LOCK_EX) | LOCK_NB;
    const auto end = std::chrono::steady_clock::now() + longestLockWait;
    while (flock(file, operation) != 0) {
        if (errno == EINTR) continue;
        if (errno != EWOULDBLOCK) return 0;
        if (std::chrono::steady_clock::now() >= end) return EACCES;
        std::this_thread::sleep_for(betweenTries);
    }
    return 0;
}

}  // namespace velmora::linuxhost
