#include "platform/windows/drives/drive_questions.h"

#include <condition_variable>
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
            auto task = std::exchange(task_, nullptr);
            lock.unlock();
            try {
                task();
            } catch (...) {
                // The answer stays empty, which is what the asker needs to know.
            }
            task = nullptr;  // what it holds is freed before the asker is notified
            lock.lock();
            busy_ = false;
            changed_.notify_all();
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::function<void()> task_;
    bool busy_ = false;
    bool closing_ = false;
};

DriveQuestions::DriveQuestions(std::chrono::milliseconds deadline) : deadline_(deadline) {}

DriveQuestions::~DriveQuestions() {
    for (const auto& [drive, worker] : workers_) worker->close();
}

bool DriveQuestions::run(const std::string& drive, std::function<void()> task) {
    auto& worker = workers_[lowerCase(drive)];
    try {
        if (!worker) worker = Worker::start();
    } catch (const std::system_error&) {
        return false;
    }
    return worker->run(std::move(task), deadline_);
}

}  // namespace velmora::windows
