// The pie: its segments, its wedges and its legend.
#include "inspect/pie/cls_pie.h"

#include <gtest/gtest.h>

#include "controls/form.h"

namespace velmora::tests {
namespace {

using Kind = DrawnShape::Kind;

struct PieTest : testing::Test {
    Form form{"frmIndDri"};
    DrawnPicture picture{form, "picPie"};
    clsPie pie;
    Regional regional;

    bool draw(bool legend = true) {
        picture.Cls();
        return pie.DrawPie(picture, legend, "36.5% Used", "Total(1,000)", regional);
    }
    std::vector<DrawnShape> all(Kind kind) {
        std::vector<DrawnShape> found;
        for (const DrawnShape& shape : picture.shapes()) {
            if (shape.kind == kind) found.push_back(shape);
        }
        return found;
    }
};

TEST_F(PieTest, ClearLeavesOneEmptyElementAndACountOfMinusOne) {
    EXPECT_EQ(pie.count(), -1);
    EXPECT_EQ(pie.segments(), std::vector<clsPie::Segment>(1));
    for (int i = 0; i < 5; ++i) pie.AddSegment(i, "x", 1);
    EXPECT_EQ(pie.count(), 4);
    EXPECT_EQ(pie.segments().size(), 5U);
    pie.Clear();
    EXPECT_EQ(pie.count(), -1);
    EXPECT_EQ(pie.segments(), std::vector<clsPie::Segment>(1));
}

TEST_F(PieTest, SegmentsKeepTheirValues) {
    pie.AddSegment(3, "Free", 0xFF0000);
    pie.AddSegment(1, "Used", 255);
    EXPECT_EQ(pie.segments(),
              (std::vector<clsPie::Segment>{{3, 0xFF0000, "Free"}, {1, 255, "Used"}}));
}

TEST_F(PieTest, ASingleSegmentIsAFullCircle) {
    pie.AddSegment(7, "Media Full", 255);
    EXPECT_TRUE(draw());
    const auto wedges = all(Kind::wedge);
    ASSERT_EQ(wedges.size(), 1U);
    EXPECT_EQ(wedges[0].colour, 255U);
    EXPECT_EQ(wedges[0].left, 0);
    EXPECT_EQ(wedges[0].top, 20);
    EXPECT_EQ(wedges[0].right, 100);
    EXPECT_EQ(wedges[0].bottom, 120);
    EXPECT_EQ(wedges[0].endX, 50);
    EXPECT_EQ(wedges[0].endY, 20);
}

TEST_F(PieTest, EachWedgeLiesOverTheOnesBeforeItAndIsSmaller) {
    pie.AddSegment(1, "a", 1);
    pie.AddSegment(2, "b", 2);
    pie.AddSegment(1, "c", 3);
    EXPECT_TRUE(draw());
    const auto wedges = all(Kind::wedge);
    ASSERT_EQ(wedges.size(), 3U);
    // 100 %, 75 % (at nine o'clock), 25 % (at three o'clock).
    EXPECT_EQ(wedges[0].colour, 1U);
    EXPECT_EQ(wedges[1].colour, 2U);
    EXPECT_NEAR(wedges[1].endX, 0, 1e-9);
    EXPECT_NEAR(wedges[1].endY, 70, 1e-9);
    EXPECT_EQ(wedges[2].colour, 3U);
    EXPECT_NEAR(wedges[2].endX, 100, 1e-9);
    EXPECT_NEAR(wedges[2].endY, 70, 1e-9);
}

TEST_F(PieTest, HalfOfItEndsAtTheFoot) {
    pie.AddSegment(5, "a", 1);
    pie.AddSegment(5, "b", 2);
    draw();
    EXPECT_NEAR(all(Kind::wedge)[1].endX, 50, 1e-9);
    EXPECT_NEAR(all(Kind::wedge)[1].endY, 120, 1e-9);
}

TEST_F(PieTest, TheLegendHasARectangleAndATextASegment) {
    pie.AddSegment(1234567, "Free", 0xFF0000);
    pie.AddSegment(89, "Used", 255);
    draw();
    const auto boxes = all(Kind::rectangle);
    ASSERT_EQ(boxes.size(), 2U);
    for (int i = 0; i < 2; ++i) {
        const DrawnShape& box = boxes[static_cast<std::size_t>(i)];
        EXPECT_EQ(box.left, 110);
        EXPECT_EQ(box.right, 140);
        EXPECT_EQ(box.top, i * 15 + 53);
        EXPECT_EQ(box.bottom, i * 15 + 63);
    }
    EXPECT_EQ(boxes[0].colour, 0xFF0000U);
    EXPECT_EQ(boxes[1].colour, 255U);
    const auto texts = all(Kind::text);
    ASSERT_EQ(texts.size(), 4U);
    EXPECT_EQ(texts[0].text, "Free(1,234,567)");
    EXPECT_EQ(texts[1].text, "Used(89)");
    for (const std::size_t i : {0, 1}) EXPECT_GT(texts[i].left, boxes[i].right);
    draw(false);
    EXPECT_TRUE(all(Kind::rectangle).empty());
    EXPECT_EQ(all(Kind::text).size(), 2U);
}

TEST_F(PieTest, TheTwoTextsHaveTheirPlaces) {
    pie.AddSegment(1, "a", 1);
    draw(false);
    const auto texts = all(Kind::text);
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[0].text, "36.5% Used");
    EXPECT_EQ(texts[0].left, 22);
    EXPECT_EQ(texts[0].top, 0);
    EXPECT_EQ(texts[1].text, "Total(1,000)");
    EXPECT_EQ(texts[1].left, 110);
    EXPECT_EQ(texts[1].top, 80);
}

TEST_F(PieTest, EachLegendComesBeforeItsWedgeAndTheTextsAtTheEnd) {
    const auto kinds = [this] {
        std::vector<Kind> all;
        for (const DrawnShape& shape : picture.shapes()) all.push_back(shape.kind);
        return all;
    };
    pie.AddSegment(1, "a", 1);
    pie.AddSegment(2, "b", 2);
    pie.AddSegment(1, "c", 3);
    draw();
    EXPECT_EQ(kinds(), (std::vector<Kind>{Kind::rectangle, Kind::text, Kind::wedge,  //
                                          Kind::rectangle, Kind::text, Kind::wedge,  //
                                          Kind::rectangle, Kind::text, Kind::wedge,  //
                                          Kind::text, Kind::text}));
    EXPECT_EQ(picture.shapes()[9].text, "36.5% Used");
    draw(false);
    EXPECT_EQ(kinds(),
              (std::vector<Kind>{Kind::wedge, Kind::wedge, Kind::wedge, Kind::text, Kind::text}));
}

TEST_F(PieTest, ValuesWithoutASumEndTheDrawing) {
    pie.AddSegment(0, "a", 1);
    pie.AddSegment(0, "b", 2);
    EXPECT_FALSE(draw());
    EXPECT_EQ(all(Kind::wedge).size(), 1U);
    EXPECT_EQ(all(Kind::text).size(), 1U);  // the legend of the first
}

TEST_F(PieTest, ThePictureIsDescribedInWords) {
    pie.AddSegment(3, "Free", 0xFF0000);
    pie.AddSegment(1, "Used", 255);
    draw();
    EXPECT_EQ(picture.Title(), "36.5% Used");
    EXPECT_EQ(picture.Second(), "Total(1,000)");
    EXPECT_EQ(*picture.table(), (Control::Table{{{"strName", std::string("Free")},
                                                 {"dblPercentage", std::string("3")},
                                                 {"lngColour", std::int64_t{0xFF0000}}},
                                                {{"strName", std::string("Used")},
                                                 {"dblPercentage", std::string("1")},
                                                 {"lngColour", std::int64_t{255}}}}));
}

}  // namespace
}  // namespace velmora::tests
