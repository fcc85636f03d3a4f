// A thread that owns components, which may keep a call waiting for as long as they like: the caller
// waits for it no longer than the deadline.
//
// All components live and die on the thread. A thread that has missed a deadline is left to itself:
// it gives back what it owns once its pending call returns. A question may therefore run at any
// later time: it must own everything that it touches.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

#include "base/runtime_error.h"
#include "platform/windows/inventory/components.h"

namespace velmora::windows {

class ComponentThread {
  public:
    /// Error 440 when no thread can be had.
    explicit ComponentThread(std::chrono::milliseconds deadline);
    /// Waits until the components are given back, no longer than the deadline and not at all after
    /// a miss.
    ~ComponentThread();
    ComponentThread(const ComponentThread&) = delete;
    ComponentThread& operator=(const ComponentThread&) = delete;

    /// The answer to a question that is put on the thread. Error 440 when it has none, misses the
    /// deadline or throws, and at once when an earlier one has missed the deadline.
    template <typename Answer>
    Answer ask(std::function<std::optional<Answer>(Components&)> question) {
        const auto answer = std::make_shared<std::optional<Answer>>();
        const bool inTime = run([answer, question = std::move(question)](Components& components) {
            *answer = question(components);
        });
        if (!inTime || !*answer) throw RuntimeError(error::automation);
        return std::move(**answer);
    }
    /// Has a component given back before the next question, and doesn't wait for it.
    void discard(ComponentId component);

  private:
    class Worker;

    bool run(std::function<void(Components&)> task);

    std::chrono::milliseconds deadline_;
    std::shared_ptr<Worker> worker_;
    std::thread thread_;
    bool isLost_ = false;
};

}  // namespace velmora::windows
