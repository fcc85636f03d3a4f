// Other programs of this folder on this host: the folder itself is locked by who watches it, and a
// socket without a file takes the command lines of later starts.
#pragma once

#include <string>
#include <thread>

#include "platform/linux/system/unique_fd.h"
#include "platform/other_starts.h"

namespace velmora::linuxhost {

class LinuxOtherStarts final : public OtherStarts {
  public:
    /// `folder` is the program's own, as a path of the host.
    explicit LinuxOtherStarts(std::string folder) : folder_(std::move(folder)) {}
    ~LinuxOtherStarts() override { stopListening(); }
    LinuxOtherStarts(const LinuxOtherStarts&) = delete;
    LinuxOtherStarts& operator=(const LinuxOtherStarts&) = delete;

    bool holdFolder() override;
    bool listen(Taken taken) override;
    bool handOver(const std::string& command) override;
    void release() override;

  private:
    void stopListening();
    void takeStarts(const Taken& taken) const;

    std::string folder_;
    UniqueFd watched_;
    UniqueFd socket_;
    UniqueFd end_;  // readable once the listening is to end
    std::thread listener_;
};

}  // namespace velmora::linuxhost
