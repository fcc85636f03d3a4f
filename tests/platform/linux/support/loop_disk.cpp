#include "platform/linux/support/loop_disk.h"

#include <sys/mount.h>

#include <array>
#include <cstdio>
#include <cstdlib>

#include "base/text.h"
#include "platform/linux/support/mounting.h"
#include "support/wait.h"

namespace velmora::linuxhost {

namespace {

const std::string systemPath = "PATH=$PATH:/usr/sbin:/sbin ";

std::string firstLineOf(const std::string& command) {
    FILE* output = popen((systemPath + command + " 2>/dev/null").c_str(), "r");
    if (output == nullptr) return {};
    std::array<char, 200> line{};
    const bool hasLine = std::fgets(line.data(), static_cast<int>(line.size()), output) != nullptr;
    pclose(output);
    std::string text = hasLine ? line.data() : "";
    while (text.ends_with('\n')) text.pop_back();
    return text;
}

}  // namespace

bool runQuietly(const std::string& command) {
    return std::system((systemPath + command + " >/dev/null 2>&1").c_str()) == 0;
}

std::string whyNoLoopDisk(const std::string& programs) {
    if (const std::string reason = whyNoMounting(); !reason.empty()) return reason;
    for (const std::string& program : split(programs, " ")) {
        if (!runQuietly("command -v " + program)) return program + " is missing";
    }
    return runQuietly("losetup -f") ? "" : "no loop devices";
}

LoopDisk::LoopDisk(const std::string& maker, const std::string& size) {
    if (!runQuietly("truncate -s " + size + ' ' + image())) return;
    if (runQuietly(maker + ' ' + image())) attach();
}

LoopDisk::~LoopDisk() {
    unmount();
    // The server of a mount holds the device a moment longer.
    if (!device_.empty()) runQuietly("losetup -d " + device_);
}

bool LoopDisk::attach(const std::string& optionsAndFile) {
    if (!device_.empty() && !runQuietly("losetup -d " + device_)) return false;
    device_ = firstLineOf("losetup -f --show " + optionsAndFile);
    return !device_.empty();
}

bool LoopDisk::mount(const std::string& command) {
    isMounted_ = runQuietly(command + ' ' + device_ + ' ' + path());
    return isMounted_;
}

void LoopDisk::unmount() {
    if (isMounted_) umount2(path().c_str(), MNT_DETACH);
    isMounted_ = false;
}

}  // namespace velmora::linuxhost
