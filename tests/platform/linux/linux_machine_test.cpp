// The machine that the programs open.
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/platform.h"

namespace velmora::linuxhost {
namespace {

TEST(LinuxMachine, TellsItsFolderByAKeyWithoutALetter) {
    const auto program = std::filesystem::read_symlink("/proc/self/exe");
    const auto machine = openMachine();
    const Application& app = machine->platform().app;
    EXPECT_EQ(app.FolderKey, program.parent_path().string() + '/');
    EXPECT_EQ(app.DataPath, app.Path);
    EXPECT_FALSE(app.DataPath.empty());
}

}  // namespace
}  // namespace velmora::linuxhost
