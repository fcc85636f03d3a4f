#include "platform/linux/files/linux_kernel32.h"

#include <gtest/gtest.h>

#include "platform/linux/support/environment.h"

namespace velmora::linuxhost {
namespace {

TEST(LinuxKernel32, EnvironmentVariablesAreTheHosts) {
    const Environment variable("VELMORA_TESTS", "a=b, Größe");
    Volumes volumes;
    LinuxKernel32 kernel32(volumes);
    EXPECT_EQ(kernel32.GetEnvironmentVariableA("VELMORA_TESTS"), "a=b, Größe");
    EXPECT_EQ(kernel32.GetEnvironmentVariableA("velmora_tests"), "");
    EXPECT_EQ(kernel32.GetEnvironmentVariableA("VELMORA_TESTS=a"), "");
    EXPECT_EQ(kernel32.GetEnvironmentVariableA(std::string("VELMORA_TESTS\0x", 15)), "");
    const Environment empty("VELMORA_TESTS", "");
    EXPECT_EQ(kernel32.GetEnvironmentVariableA("VELMORA_TESTS"), "");
}

// Version 4.10 of the first platform: its processes come from snapshots, which this system can
// serve.
TEST(LinuxKernel32, TheVersionIsOneWithSnapshotsOfProcesses) {
    Volumes volumes;
    LinuxKernel32 kernel32(volumes);
    OsVersionInfo version{.dwOSVersionInfoSize = 148};
    ASSERT_EQ(kernel32.GetVersionExA(version), 1);
    EXPECT_EQ(version.dwMajorVersion, 4u);
    EXPECT_EQ(version.dwMinorVersion, 10u);
    EXPECT_EQ(version.dwPlatformId, 1u);
}

}  // namespace
}  // namespace velmora::linuxhost
