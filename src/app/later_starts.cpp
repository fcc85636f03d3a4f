#include "app/later_starts.h"

#include <utility>

namespace velmora {

bool LaterStarts::offer(const std::string& start) {
    std::unique_lock lock(mutex_);
    if (isClosed_) return false;
    waiting_ = start;
    lock.unlock();
    wake_();
    lock.lock();
    changed_.wait_for(lock, patience_, [this] { return !waiting_ || isClosed_; });
    const bool isTaken = !waiting_;
    waiting_.reset();
    return isTaken;
}

void LaterStarts::open(std::function<void(const std::string&)> take) {
    take_ = std::move(take);
    takeWaiting();
}

void LaterStarts::takeWaiting() {
    if (!take_) return;
    std::unique_lock lock(mutex_);
    if (!waiting_ || isClosed_) return;
    const std::string start = *std::exchange(waiting_, std::nullopt);
    lock.unlock();
    // What it leads to, a question perhaps, can take any time.
    changed_.notify_all();
    take_(start);
}

void LaterStarts::close() {
    const std::scoped_lock lock(mutex_);
    isClosed_ = true;
    changed_.notify_all();
}

}  // namespace velmora
