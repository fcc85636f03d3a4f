// Filesystems that tests mount, in a mount namespace of the test program's own: no other process
// sees them, and those that are left end with the last process in it.
#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>
#include <unistd.h>

#include <memory>
#include <set>
#include <string>

#include "platform/linux/support/test_folder.h"
#include "platform/platform.h"

namespace velmora::linuxhost {

/// The user's number, as trash folders of drives are named by it.
inline std::string uid() {
    return std::to_string(getuid());
}

/// Empty when this process may mount, and then mounts are its own; otherwise the reason why not.
std::string whyNoMounting();

/// A mount point that is unmounted with this object, at once even when it is in use.
class TestMount {
  public:
    TestMount() = default;
    ~TestMount() { unmount(); }
    TestMount(const TestMount&) = delete;
    TestMount& operator=(const TestMount&) = delete;

    const std::string& path() const { return folder_.path(); }
    /// Mounts a tmpfs with the options. Whether it went well.
    bool mountTmpfs(const std::string& options);
    /// Makes an image of some megabytes in `imageFolder` with ext4 in it and mounts it.
    bool mountNewDisk(const TestFolder& imageFolder, int megabytes);
    void unmount();

  private:
    TestFolder folder_;
    bool isMounted_ = false;
};

/// A test with a machine and mounts; skipped where nothing can be mounted.
class MountingTest : public testing::Test {
  protected:
    void SetUp() override;

    FileSystemObject& fso() { return machine_->platform().fso; }
    std::set<std::string> logicalDrives();
    /// "X:" of a drive that has come since the test began; empty when there is none.
    std::string newDrive();
    /// Bytes that df gives for the field ("avail", "size").
    static double dfReports(const std::string& field, const std::string& mountPoint);

    std::unique_ptr<Machine> machine_ = openMachine();
    std::set<std::string> drivesBefore_;
};

}  // namespace velmora::linuxhost
