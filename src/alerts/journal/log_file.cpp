#include "alerts/journal/log_file.h"

#include "base/convert.h"
#include "base/runtime_error.h"

namespace velmora {

void LogFile::appendLine(const std::string& path, std::string_view line) {
    if (writeWaiting() && append(path, line)) {
        // While a part of the journal is owed, the trouble isn't over.
        isTold_ = isTold_ && isBlockOwed_;
        return;
    }
    keep(path, line);
    tellOnce();
}

bool LogFile::appendBlock(const std::string& path, std::string_view text) {
    isBlockOwed_ = !(writeWaiting() && append(path, text));
    if (isBlockOwed_) {
        tellOnce();
    } else {
        isTold_ = false;
    }
    return !isBlockOwed_;
}

bool LogFile::writeWaiting() {
    while (!waiting_.empty()) {
        if (!append(waiting_.front().first, waiting_.front().second)) return false;
        waiting_.pop_front();
    }
    tellLost();
    return true;
}

void LogFile::forgetWaiting() {
    waiting_.clear();
    lost_ = 0;
}

bool LogFile::append(const std::string& path, std::string_view text) {
    try {
        attempt("write to the log file", path, [&] { platform_.files.appendLine(path, text); });
    } catch (const RuntimeError& failure) {
        if (!platform_.app.Options.keepRunning) throw;
        failure_ = failure.description() + ": " + path;
        return false;
    }
    return true;
}

void LogFile::keep(const std::string& path, std::string_view line) {
    waiting_.emplace_back(path, line);
    if (waiting_.size() <= mostWaiting) return;
    waiting_.pop_front();
    ++lost_;
}

// The alert about it has a line of its own, which waits like any other.
void LogFile::tellOnce() {
    if (std::exchange(isTold_, true)) return;
    Trouble({.rating = rating::high,
             .text = "Log file can't be written: " + failure_ + ". Its lines wait until it can."});
}

void LogFile::tellLost() {
    const std::size_t lost = std::exchange(lost_, 0);
    if (lost == 0) return;
    Trouble({.rating = rating::medium,
             .text = "Log file is written again; lost lines: " +
                     toText(static_cast<std::int64_t>(lost))});
}

}  // namespace velmora
