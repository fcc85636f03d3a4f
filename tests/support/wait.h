// Waiting in tests, always for a condition and never for a fixed time.
#pragma once

#include <chrono>
#include <thread>

namespace velmora {

/// Whether the condition became true before the deadline. Yields between the attempts.
template <typename Condition>
bool waitUntil(Condition&& condition,
               std::chrono::milliseconds deadline = std::chrono::seconds(10)) {
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end) return false;
        std::this_thread::yield();
    }
    return true;
}

}  // namespace velmora
