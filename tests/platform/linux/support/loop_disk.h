// Images of disks on loop devices.
#pragma once

#include <string>

#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {

/// Runs a command quietly, with the folders of system programs in its path. Whether it succeeded.
bool runQuietly(const std::string& command);

/// Empty when all of these programs, separated by blanks, are installed, and devices and mounts can
/// be had; otherwise the reason why not.
std::string whyNoLoopDisk(const std::string& programs);

/// A loop device, and the folder that it is mounted on. All ends with this object.
class LoopDisk {
  public:
    /// An image of so many bytes, made by a command that gets its path at the end.
    LoopDisk(const std::string& maker, const std::string& size);
    /// A device over a file that is there.
    explicit LoopDisk(const std::string& file) { attach("-r " + file); }
    ~LoopDisk();
    LoopDisk(const LoopDisk&) = delete;
    LoopDisk& operator=(const LoopDisk&) = delete;

    /// Attaches the image, with options of losetup in front of its path. Whether it went well.
    bool attach(const std::string& optionsAndFile);
    bool attach() { return attach(image()); }
    /// Mounts by a command that gets the device and the folder at its end.
    bool mount(const std::string& command);
    void unmount();

    /// The device's path, empty when there is none.
    const std::string& device() const { return device_; }
    const std::string& path() const { return mountPoint_.path(); }
    std::string image() const { return imageFolder_ / "image"; }

  private:
    TestFolder imageFolder_;
    TestFolder mountPoint_;
    std::string device_;
    bool isMounted_ = false;
};

/// Mounts a FAT system, which the kernel may not know.
inline std::string fatMounter(const LoopDisk& disk) {
    return "fusefat -o rw+,fsname=" + disk.device();
}

}  // namespace velmora::linuxhost
