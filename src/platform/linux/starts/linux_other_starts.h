// Other programs of this folder on this host: the folder itself is locked by who watches it, and a
// socket without a file takes the command lines of later starts.
#pragma once

#include <chrono>
#include <string>
#include <thread>
#include <utility>

#include "platform/linux/system/unique_fd.h"
#include "platform/other_starts.h"

namespace velmora::linuxhost {

/// The display on which this process shows windows, by its environment; empty without one. A start
/// on another display is another user's, or one for other eyes.
std::string displayOfSession();

class LinuxOtherStarts final : public OtherStarts {
  public:
    /// `folder` is the program's own, as a path of the host. Command lines come from starts on the
    /// same display only. A start that stops halfway is waited for as long as `patience`.
    explicit LinuxOtherStarts(std::string folder, std::string display = displayOfSession(),
                              std::chrono::milliseconds patience = handOverPatience)
        : folder_(std::move(folder)), display_(std::move(display)), patience_(patience) {}
    ~LinuxOtherStarts() override { stopListening(); }
    LinuxOtherStarts(const LinuxOtherStarts&) = delete;
    LinuxOtherStarts& operator=(const LinuxOtherStarts&) = delete;

    bool holdFolder() override;
    bool listen(Taken taken) override;
    bool handOver(const std::string& command) override;
    void release() override;

  private:
    void stopListening();
    void takeStarts(const Taken& taken);
    void takeOne(int start, const Taken& taken) const;
    bool sendAway();

    std::string folder_;
    std::string display_;
    std::chrono::milliseconds patience_;
    UniqueFd watched_;
    UniqueFd socket_;
    UniqueFd end_;    // readable once the listening is to end
    UniqueFd spare_;  // given up where there is no other descriptor
    std::thread listener_;
};

}  // namespace velmora::linuxhost
