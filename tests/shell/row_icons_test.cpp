// The system's icons in the rows of the watch list.
#include "shell/row_icons.h"

#include <gtest/gtest.h>

#include "shell/surface_rig.h"

namespace velmora::tests {
namespace {

struct RowIconsTest : testing::Test, SurfaceRig {
    RowIconsTest() { surface.shellIcons.iconOf = {{"C:\\", 8}, {"D:\\data", 3}}; }

    Texts& calls = surface.shellIcons.calls;
    SystemRowIcons icons{form1.picBuffer, surface.shellIcons};
};

TEST_F(RowIconsTest, ARowGetsTheSmallIconOfItsPath) {
    ListItem& row = form1.ListView1.Add("D:\\data");
    icons.prcRefreshRowIcon(row);
    EXPECT_EQ(calls, (Texts{"SHGetFileInfoA D:\\data 0 352 26117", "ImageList_Draw 77 3 0 0 1"}));
    EXPECT_EQ(form1.picBuffer.Picture(), "image 3");
    EXPECT_EQ(row.SmallIcon(), "image 3");
}

TEST_F(RowIconsTest, EachRowGetsItsOwn) {
    ListItem& first = form1.ListView1.Add("D:\\data");
    ListItem& second = form1.ListView1.Add("C:\\");
    icons.prcRefreshRowIcon(first);
    icons.prcRefreshRowIcon(second);
    EXPECT_EQ(first.SmallIcon(), "image 3");
    EXPECT_EQ(second.SmallIcon(), "image 8");
}

TEST_F(RowIconsTest, AnyFailedCallLeavesTheRowAndThePictureAsTheyAre) {
    ListItem& row = form1.ListView1.Add("D:\\data");
    row.setSmallIcon("drive");
    form1.picBuffer.setPicture("image 8");
    for (const int n : {1, 2}) {
        calls.clear();
        surface.shellIcons.failCall(n);
        EXPECT_NO_THROW(icons.prcRefreshRowIcon(row)) << n;
        EXPECT_EQ(static_cast<int>(calls.size()), n);
        EXPECT_EQ(row.SmallIcon(), "drive") << n;
        EXPECT_EQ(form1.picBuffer.Picture(), "image 8") << n;
    }
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(RowIconsTest, ALargeIconIsDrawnOnRequest) {
    EXPECT_TRUE(drawFileIcon(surface.shellIcons, "C:\\", IconSize::large, form1.picBuffer));
    EXPECT_EQ(calls[0], "SHGetFileInfoA C:\\ 0 352 26116");
    EXPECT_EQ(form1.picBuffer.Picture(), "image 8");
}

}  // namespace
}  // namespace velmora::tests
