#include "platform/windows/inventory/component_thread.h"

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <vector>

#include "platform/windows/system/com_apartment.h"

namespace velmora::windows {

// What the thread shares with the asker. The thread holds a reference of its own, so that a stuck
// one never sees it go.
class ComponentThread::Worker {
  public:
    using Task = std::function<void(Components&)>;

    bool run(Task task, std::chrono::milliseconds deadline) {
        std::unique_lock lock(mutex_);
        task_ = std::move(task);
        isBusy_ = true;
        changed_.notify_all();
        return changed_.wait_for(lock, deadline, [this] { return !isBusy_; });
    }
    void discard(ComponentId component) {
        const std::lock_guard lock(mutex_);
        discarded_.push_back(component);
    }
    void close() {
        const std::lock_guard lock(mutex_);
        isClosing_ = true;
        changed_.notify_all();
    }
    bool hasEnded(std::chrono::milliseconds deadline) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, deadline, [this] { return hasEnded_; });
    }

    void serve() {
        serveInApartment();
        const std::lock_guard lock(mutex_);
        hasEnded_ = true;
        changed_.notify_all();
    }

  private:
    void serveInApartment() {
        // Of this thread's own: the system's records come from components of one thread, which any
        // other kind would reach by a detour through a thread between.
        const ComApartment com;
        Components components;
        std::unique_lock lock(mutex_);
        while (true) {
            changed_.wait(lock, [this] { return isBusy_ || isClosing_; });
            if (!isBusy_) return;
            Task task = std::exchange(task_, nullptr);
            const auto discarded = std::exchange(discarded_, {});
            lock.unlock();
            for (const ComponentId each : discarded) components.remove(each);
            try {
                task(components);
            } catch (...) {
                // The answer stays empty, which is what the asker needs to know.
            }
            task = nullptr;  // what it holds is freed before the asker is notified
            lock.lock();
            isBusy_ = false;
            changed_.notify_all();
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    Task task_;
    std::vector<ComponentId> discarded_;
    bool isBusy_ = false;
    bool isClosing_ = false;
    bool hasEnded_ = false;
};

ComponentThread::ComponentThread(std::chrono::milliseconds deadline)
    : deadline_(deadline), worker_(std::make_shared<Worker>()) {
    try {
        thread_ = std::thread([worker = worker_] { worker->serve(); });
    } catch (const std::system_error&) {
        throw RuntimeError(error::automation);
    }
}

ComponentThread::~ComponentThread() {
    worker_->close();
    if (!isLost_ && worker_->hasEnded(deadline_)) {
        thread_.join();
    } else {
        thread_.detach();
    }
}

void ComponentThread::discard(ComponentId component) {
    worker_->discard(component);
}

bool ComponentThread::run(std::function<void(Components&)> task) {
    if (isLost_) return false;
    isLost_ = !worker_->run(std::move(task), deadline_);
    return !isLost_;
}

}  // namespace velmora::windows
