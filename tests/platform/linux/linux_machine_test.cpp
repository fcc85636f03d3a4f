// The machine that the programs open.
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/platform.h"

namespace velmora::linuxhost {
namespace {

TEST(LinuxMachine, TellsItsFolderByAKeyWithoutALetter) {
    const auto program = std::filesystem::read_symlink("/proc/self/exe");
    EXPECT_EQ(openMachine()->platform().app.FolderKey, program.parent_path().string() + '/');
}

}  // namespace
}  // namespace velmora::linuxhost
