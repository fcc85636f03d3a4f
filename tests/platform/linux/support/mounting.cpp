#include "platform/linux/support/mounting.h"

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>

namespace velmora::linuxhost {

namespace {

std::string ownMountNamespace() {
    if (geteuid() != 0) return "mounting needs root";
    if (unshare(CLONE_NEWNS) != 0)
        return std::string("no mount namespace of one's own: ") + std::strerror(errno);
    if (mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        return std::string("mounts stay shared: ") + std::strerror(errno);
    return {};
}

bool runs(const std::string& command) {
    return std::system((command + " >/dev/null 2>&1").c_str()) == 0;
}

}  // namespace

std::string whyNoMounting() {
    static const std::string reason = ownMountNamespace();
    return reason;
}

bool TestMount::mountTmpfs(const std::string& options) {
    isMounted_ = mount("tmpfs", path().c_str(), "tmpfs", 0, options.c_str()) == 0;
    return isMounted_;
}

bool TestMount::mountNewDisk(const TestFolder& imageFolder, int megabytes) {
    const std::string image = imageFolder / "disk.img";
    isMounted_ = runs("truncate -s " + std::to_string(megabytes) + "M " + image) &&
                 runs("PATH=$PATH:/usr/sbin:/sbin mkfs.ext4 -q -F " + image) &&
                 runs("mount -o loop " + image + ' ' + path());
    return isMounted_;
}

void TestMount::unmount() {
    if (isMounted_) umount2(path().c_str(), MNT_DETACH);
    isMounted_ = false;
}

void MountingTest::SetUp() {
    if (const std::string reason = whyNoMounting(); !reason.empty()) {
        std::cout << "skipped: " << reason << '\n';
        GTEST_SKIP() << reason;
    }
    // The table that the machine watches is that of the namespace which it was opened in.
    machine_ = openMachine();
    drivesBefore_ = logicalDrives();
}

std::set<std::string> MountingTest::logicalDrives() {
    std::string buffer(200, '#');
    const auto used = machine_->platform().kernel32.GetLogicalDriveStringsA(200, buffer);
    std::set<std::string> drives;
    for (std::size_t at = 0; at < used; at += 4) drives.insert(buffer.substr(at, 2));
    return drives;
}

std::string MountingTest::newDrive() {
    for (const std::string& drive : logicalDrives()) {
        if (drivesBefore_.count(drive) == 0) return drive;
    }
    return {};
}

double MountingTest::dfReports(const std::string& field, const std::string& mountPoint) {
    const std::string command = "df -B1 --output=" + field + ' ' + mountPoint + " | tail -1";
    FILE* output = popen(command.c_str(), "r");
    if (output == nullptr) return -1;
    std::array<char, 100> line{};
    const bool hasLine = std::fgets(line.data(), static_cast<int>(line.size()), output) != nullptr;
    pclose(output);
    return hasLine ? std::strtod(line.data(), nullptr) : -1;
}

}  // namespace velmora::linuxhost
