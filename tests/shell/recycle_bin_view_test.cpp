// The view on the recycle bin and the scheduled tasks.
#include "shell/recycle_bin_view.h"

#include <gtest/gtest.h>

#include "shell/surface_rig.h"

namespace velmora::tests {
namespace {

struct RecycleBinViewTest : testing::Test, SurfaceRig {
    RecycleBinView view{forms.icon1, machine.platform().shell32};
};

TEST_F(RecycleBinViewTest, ItsButtonsHaveTheirCaptions) {
    EXPECT_EQ(forms.icon1.Command1.Caption(), "Recycle Bin");
    EXPECT_EQ(forms.icon1.Command2.Caption(), "Schedule Tasks");
}

TEST_F(RecycleBinViewTest, TheSystemsShellShowsTheRecycleBin) {
    forms.icon1.Command1.userClick();
    ASSERT_EQ(machine.executed.size(), 1u);
    EXPECT_EQ(machine.executed[0].owner, "Icon1");
    EXPECT_EQ(machine.executed[0].verb, "open");
    EXPECT_EQ(machine.executed[0].file, "Explorer");
    EXPECT_EQ(machine.executed[0].parameters, "::{645FF040-5081-101B-9F08-00AA002F954E}");
    EXPECT_EQ(machine.executed[0].directory, "");
    EXPECT_EQ(machine.executed[0].showCommand, 1);
}

TEST_F(RecycleBinViewTest, TheSystemsShellShowsTheScheduledTasks) {
    forms.icon1.Command2.userClick();
    ASSERT_EQ(machine.executed.size(), 1u);
    EXPECT_EQ(machine.executed[0].file, "Explorer");
    EXPECT_EQ(machine.executed[0].parameters,
              "::{20D04FE0-3AEA-1069-A2D8-08002B30309D}\\"
              "::{21EC2020-3AEA-1069-A2DD-08002B30309D}\\"
              "::{D6277990-4C6A-11CF-8D87-00AA0060F5BF}");
    EXPECT_EQ(machine.executed[0].showCommand, 1);
}

TEST_F(RecycleBinViewTest, ARefusalIsIgnored) {
    machine.executes = false;
    EXPECT_NO_THROW(view.RecycleBin());
    machine.log.failCall(1, 2);
    EXPECT_NO_THROW(view.ScheduledTasks());
    EXPECT_TRUE(host.boxes.empty());
}

}  // namespace
}  // namespace velmora::tests
