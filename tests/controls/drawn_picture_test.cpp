#include "controls/drawn_picture.h"

#include <gtest/gtest.h>

#include "controls/control_properties.h"
#include "controls/form.h"

namespace velmora::tests {
namespace {

using Kind = DrawnShape::Kind;

struct DrawnPictureTest : testing::Test {
    Form form{"frmIndDri"};
    DrawnPicture picture{form, "picPie"};
};

TEST_F(DrawnPictureTest, KeepsWhatIsDrawnInItsOrderAndColours) {
    picture.selectBrush(0xFF);
    picture.Pie(1, 2, 3, 4, 5, 6);
    picture.selectBrush(0xFF00);
    picture.Rectangle(7, 8, 9, 10);
    picture.TextOut(11, 12, "Free");
    ASSERT_EQ(picture.shapes().size(), 3U);
    EXPECT_EQ(picture.shapes()[0], (DrawnShape{Kind::wedge, 1, 2, 3, 4, 5, 6, 0xFF, ""}));
    EXPECT_EQ(picture.shapes()[1], (DrawnShape{Kind::rectangle, 7, 8, 9, 10, 0, 0, 0xFF00, ""}));
    EXPECT_EQ(picture.shapes()[2], (DrawnShape{Kind::text, 11, 12, 0, 0, 0, 0, 0, "Free"}));
}

TEST_F(DrawnPictureTest, APaintingBeginsWithAnEmptyPicture) {
    EXPECT_EQ(get(picture, picture.mainProperty()), "0");
    Count changes(picture.Changed);
    picture.Rectangle(0, 0, 1, 1);
    EXPECT_EQ(changes, 1);
    picture.Cls();
    EXPECT_EQ(changes, 2);
    EXPECT_TRUE(picture.shapes().empty());
    EXPECT_EQ(picture.paintings(), 1);
    EXPECT_EQ(get(picture, "Paintings"), "1");
}

TEST_F(DrawnPictureTest, SaysInWordsWhatIsDrawn) {
    Count changes(picture.Changed);
    picture.describe("C:\\", "75% used", {{{"strName", std::string("Free")}}});
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(get(picture, "Title"), "C:\\");
    EXPECT_EQ(get(picture, "Second"), "75% used");
    ASSERT_EQ(picture.table()->size(), 1U);
    EXPECT_EQ(textOf(picture.table()->front().front().second), "Free");
    for (const char* name : {"Title", "Second", "Paintings"}) {
        EXPECT_TRUE(readOnly(picture, name)) << name;
    }
}

}  // namespace
}  // namespace velmora::tests
