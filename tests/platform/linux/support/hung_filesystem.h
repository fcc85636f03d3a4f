// A filesystem that doesn't answer, for one test.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "platform/linux/support/test_folder.h"

#ifndef VELMORA_HUNG_FS
#define VELMORA_HUNG_FS ""
#endif

namespace velmora::linuxhost {

/// Empty when such a filesystem can be had by who may mount.
inline std::string whyNoHungFilesystem() {
    const bool isThere = !std::string(VELMORA_HUNG_FS).empty();
    return isThere && std::filesystem::exists("/dev/fuse") ? "" : "no libfuse3 or no /dev/fuse";
}

/// The server program, on a folder of its own. Everything ends with this object.
class HungFilesystem {
  public:
    HungFilesystem() : HungFilesystem(nullptr) {}
    /// With "disk" it answers all but reading of its file "disk".
    explicit HungFilesystem(const char* mode) {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) return;
        const std::string log = logs_ / "log";
        server_ = fork();
        if (server_ == 0) {
            // It ends even when the test crashes, and it holds no pipe of the test's.
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
            dup2(nowhere, STDOUT_FILENO);
            dup2(nowhere, STDERR_FILENO);
            // A duplicate survives the exec.
            const std::string control = std::to_string(dup(ends[0]));
            execl(VELMORA_HUNG_FS, "hung_fs", folder_.path().c_str(), control.c_str(), log.c_str(),
                  mode, nullptr);
            _exit(127);
        }
        close(ends[0]);
        control_ = ends[1];
    }
    ~HungFilesystem() {
        if (control_ >= 0) close(control_);
        umount2(folder_.path().c_str(), MNT_DETACH);
        if (server_ > 0) {
            kill(server_, SIGKILL);
            waitpid(server_, nullptr, 0);
        }
    }
    HungFilesystem(const HungFilesystem&) = delete;
    HungFilesystem& operator=(const HungFilesystem&) = delete;

    const std::string& path() const { return folder_.path(); }
    void endServer() const { kill(server_, SIGKILL); }
    void answerFromNowOn() const { EXPECT_EQ(write(control_, "!", 1), 1); }
    /// How often it was asked for its space.
    std::size_t questions() const { return contentsOf(logs_ / "log").size(); }

  private:
    TestFolder folder_;
    TestFolder logs_;
    pid_t server_ = -1;
    int control_ = -1;
};

}  // namespace velmora::linuxhost
