#include "platform/windows/drives/drive_questions.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "base/text.h"

namespace velmora::windows {

// What one drive's thread shares with the asker. The thread holds a reference of its own, so that
// a stuck one never sees it go.
class DriveQuestions::Worker {
  public:
    static std::shared_ptr<Worker> start() {
        const auto worker = std::make_shared<Worker>();
        std::thread([worker] { worker->serve(); }).detach();
        return worker;
    }

    bool run(std::function<void()> task, std::chrono::milliseconds deadline) {
        std::unique_lock lock(mutex_);
        if (busy_) return false;
        task_ = std::move(task);
        busy_ = true;
        changed_.notify_all();
        return changed_.wait_for(lock, deadline, [this] { return !busy_; });
    }

    void finish(std::function<void()> order, std::chrono::milliseconds deadline) {
        {
            const std::lock_guard lock(mutex_);
            if (busy_) {
                orders_.push_back(std::move(order));
                return;
            }
        }
        run(std::move(order), deadline);
    }

    void close() {
        const std::lock_guard lock(mutex_);
        closing_ = true;
        changed_.notify_all();
    }

  private:
    void serve() {
        std::unique_lock lock(mutex_);
        while (true) {
            changed_.wait(lock, [this] { return busy_ || closing_; });
            if (!busy_) return;
            carryOut(std::exchange(task_, nullptr), lock);
            while (!orders_.empty()) {
                auto order = std::move(orders_.front());
                orders_.pop_front();
                carryOut(std::move(order), lock);
            }
            busy_ = false;
            changed_.notify_all();
        }
    }

    // Without the lock, which is held before and after.
    static void carryOut(std::function<void()> task, std::unique_lock<std::mutex>& lock) {
        lock.unlock();
        try {
            task();
        } catch (...) {
            // The answer stays empty, which is what the asker needs to know.
        }
        task = nullptr;  // what it holds is freed before the asker is notified
        lock.lock();
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::function<void()> task_;
    std::deque<std::function<void()>> orders_;
    bool busy_ = false;
    bool closing_ = false;
};

DriveQuestions::DriveQuestions(std::chrono::milliseconds deadline) : deadline_(deadline) {}

DriveQuestions::~DriveQuestions() {
    for (const auto& [drive, worker] : workers_) worker->close();
}

std::shared_ptr<DriveQuestions::Worker> DriveQuestions::workerOf(const std::string& drive) {
    auto& worker = workers_[lowerCase(drive)];
    try {
        if (!worker) worker = Worker::start();
    } catch (const std::system_error&) {
        // There is none then.
    }
    return worker;
}

bool DriveQuestions::run(const std::string& drive, std::function<void()> task) {
    const auto worker = workerOf(drive);
    return worker && worker->run(std::move(task), deadline_);
}

void DriveQuestions::finish(const std::string& drive, std::function<void()> order) {
    if (const auto worker = workerOf(drive)) worker->finish(std::move(order), deadline_);
}

}  // namespace velmora::windows
