// Other programs of this folder on this machine: a mutex tells who watches it, and a pipe takes the
// command lines of later starts.
#pragma once

#include <string>
#include <thread>

#include "platform/other_starts.h"
#include "platform/windows/system/unique_handle.h"

namespace velmora::windows {

class WindowsOtherStarts final : public OtherStarts {
  public:
    /// `folder` is the program's own.
    explicit WindowsOtherStarts(const std::string& folder);
    ~WindowsOtherStarts() override { stopListening(); }
    WindowsOtherStarts(const WindowsOtherStarts&) = delete;
    WindowsOtherStarts& operator=(const WindowsOtherStarts&) = delete;

    bool holdFolder() override;
    bool listen(Taken taken) override;
    bool handOver(const std::string& command) override;
    void release() override;

  private:
    void stopListening();
    void takeStarts(const Taken& taken);

    std::wstring mutexName_;
    std::wstring pipeName_;
    UniqueHandle watched_;
    UniqueHandle pipe_;
    UniqueHandle end_;  // set once the listening is to end
    std::thread listener_;
};

}  // namespace velmora::windows
