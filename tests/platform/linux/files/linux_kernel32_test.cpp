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

}  // namespace
}  // namespace velmora::linuxhost
