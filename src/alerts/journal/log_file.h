// The log file as the alerts and the journal write it. In a program that keeps running, a full disk
// or a folder that can't be written stops neither a check nor its actions: alert lines wait, and
// are written in their order when there is room again.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <utility>

#include "controls/event.h"
#include "platform/platform.h"

namespace velmora {

namespace rating {
inline constexpr const char* high = "High";
inline constexpr const char* medium = "Medium";
}  // namespace rating

/// What the alert list is to say about the log file.
struct LogTrouble {
    const char* rating;
    std::string text;
};

class LogFile {
  public:
    explicit LogFile(Platform& platform) : platform_(platform) {}
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    /// The most alert lines that wait; beyond it the oldest is lost.
    static constexpr std::size_t mostWaiting = 1000;

    /// Appends an alert's line. Errors of the file go to the caller; in a program that keeps
    /// running the line waits instead.
    void appendLine(const std::string& path, std::string_view line);
    /// Appends a part of the journal behind the lines that wait. False when it couldn't be written:
    /// it doesn't wait, its writer keeps it. Errors as above.
    bool appendBlock(const std::string& path, std::string_view text);
    /// Writes the lines that wait, as many as there is room for; true when none is left.
    bool writeWaiting();
    /// The lines that wait were about a file that is gone now.
    void forgetWaiting();

    std::size_t waiting() const { return waiting_.size(); }

    /// The file can't be written: once, until it could be again. And then, how many lines were
    /// lost, if any.
    Event<const LogTrouble&> Trouble;

  private:
    bool append(const std::string& path, std::string_view text);
    void keep(const std::string& path, std::string_view line);
    void tellOnce();
    void tellLost();

    Platform& platform_;
    std::deque<std::pair<std::string, std::string>> waiting_;  // path and line, oldest first
    std::size_t lost_ = 0;
    std::string failure_;  // the last one, with its file
    bool isTold_ = false;
    bool isBlockOwed_ = false;
};

}  // namespace velmora
