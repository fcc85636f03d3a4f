// A device that is open for reading, in a process of its own.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/linux/drives/asked_process.h"
#include "platform/linux/volumes/device_messages.h"

namespace velmora::linuxhost {

class OpenDevice {
  public:
    OpenDevice(std::string path, std::chrono::milliseconds deadline);
    ~OpenDevice() { process_.end(); }

    /// The file's path, as it was given.
    const std::string& path() const { return path_; }
    /// Why the last of the calls below failed, in words; empty when it didn't.
    const std::string& failure() const { return failure_; }
    /// The id of its process, or -1.
    pid_t process() const { return process_.id(); }

    /// Whether it could be opened. One that misses the deadline at this call or a later one is
    /// given up: from then on each call fails at no cost.
    bool open();
    /// The bytes from a position on; fewer at the end of the device. Nothing on failure.
    std::optional<std::string> read(std::uint64_t position, std::uint32_t bytes);
    /// What file system lies on it; nothing on failure.
    std::optional<FileSystemNames> probe();
    /// Opens it and tells that, both within one deadline.
    std::optional<FileSystemNames> openAndProbe();

  private:
    using Clock = std::chrono::steady_clock;
    bool ask(const DeviceRequest& request, Clock::time_point end);
    bool openBy(Clock::time_point end);
    std::optional<FileSystemNames> probeBy(Clock::time_point end);
    bool fail(const std::string& why);

    std::string path_;
    std::chrono::milliseconds deadline_;
    std::string failure_;
    bool isGivenUp_ = false;
    DeviceReply reply_;
    AskedProcess process_{"velmora-device", runDeviceProcess};
};

}  // namespace velmora::linuxhost
