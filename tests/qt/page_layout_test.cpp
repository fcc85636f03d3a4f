// Which parts of a printout lie on which page.
#include "qt/print/page_layout.h"

#include <gtest/gtest.h>

namespace velmora::tests {
namespace {

using qt::PageContent;
using qt::PageParts;

// A page of 1000, of which 100 or 50 are its head and 30 its foot.
PageParts partsOf(std::size_t rows, double rowHeight = 20) {
    return {.room = 1000,
            .firstHead = 100,
            .laterHead = 50,
            .foot = 30,
            .pictureLeast = 200,
            .pictureBest = 500,
            .tableHead = 20,
            .rows = std::vector<double>(rows, rowHeight)};
}

std::vector<PageContent> pagesOf(const PageParts& parts) {
    return layPages(parts, {pictureRoom(parts)});
}

TEST(PageLayout, OneRowStandsBelowAPictureOfItsBestHeight) {
    const std::vector<PageContent> expected{
        {.piece = PageContent::Piece{0, 100}, .rows = PageContent::Rows{0, 1, 618}}};
    EXPECT_EQ(pictureRoom(partsOf(1)), 500);
    EXPECT_EQ(pagesOf(partsOf(1)), expected);
}

TEST(PageLayout, APictureGivesRoomToATableThatFitsThen) {
    // 1000 - 30 - 100 for both; the table takes 18 + 20 + 20 * 20.
    EXPECT_EQ(pictureRoom(partsOf(20)), 432);
    const std::vector<PageContent> expected{
        {.piece = PageContent::Piece{0, 100}, .rows = PageContent::Rows{0, 20, 550}}};
    EXPECT_EQ(pagesOf(partsOf(20)), expected);
}

TEST(PageLayout, APictureIsNeverLessThanItsLeastForTheTable) {
    // With 31 rows 212 would be left for the picture, with 32 only 192.
    EXPECT_EQ(pictureRoom(partsOf(31)), 212);
    EXPECT_EQ(pagesOf(partsOf(31)).size(), 1U);
    EXPECT_EQ(pictureRoom(partsOf(32)), 500);
    EXPECT_EQ(pagesOf(partsOf(32)).size(), 2U);
}

TEST(PageLayout, TwoHundredRowsGoOnOnFurtherPages) {
    // (970 - 618 - 20) / 20 rows below the picture, (970 - 50 - 20) / 20 on the others.
    const std::vector<PageContent> expected{
        {.piece = PageContent::Piece{0, 100}, .rows = PageContent::Rows{0, 16, 618}},
        {.rows = PageContent::Rows{16, 45, 50}},
        {.rows = PageContent::Rows{61, 45, 50}},
        {.rows = PageContent::Rows{106, 45, 50}},
        {.rows = PageContent::Rows{151, 45, 50}},
        {.rows = PageContent::Rows{196, 4, 50}}};
    EXPECT_EQ(pagesOf(partsOf(200)), expected);
}

TEST(PageLayout, ATableBeginsBelowThePictureWhenThreeRowsFitThere) {
    PageParts parts = partsOf(100);
    // 970 - 100 - 18 - 20 - 3 * 20: then the third row ends where the foot begins.
    parts.pictureBest = 772;
    std::vector<PageContent> pages = pagesOf(parts);
    EXPECT_EQ(pages.at(0).rows, (PageContent::Rows{0, 3, 890}));
    parts.pictureBest = 773;
    pages = pagesOf(parts);
    EXPECT_EQ(pages.at(0).rows, std::nullopt);
    EXPECT_EQ(pages.at(1).rows, (PageContent::Rows{0, 45, 50}));
}

TEST(PageLayout, ATableOfTwoRowsAsksForRoomForTwo) {
    PageParts parts = partsOf(2, 40);
    parts.pictureLeast = parts.pictureBest = 752;  // 970 - 100 - 18 - 20 - 2 * 40
    EXPECT_EQ(pagesOf(parts).size(), 1U);
    parts.pictureLeast = parts.pictureBest = 753;
    EXPECT_EQ(pagesOf(parts).size(), 2U);
}

TEST(PageLayout, EachPieceOfAPictureHasAPage) {
    const std::vector<PageContent> expected{
        {.piece = PageContent::Piece{0, 100}},
        {.piece = PageContent::Piece{1, 50}},
        {.piece = PageContent::Piece{2, 50}, .rows = PageContent::Rows{0, 5, 368}}};
    EXPECT_EQ(layPages(partsOf(5), {870, 870, 300}), expected);
}

TEST(PageLayout, ARowThatIsHigherThanAPageHasOneOfItsOwn) {
    PageParts parts = partsOf(3);
    parts.rows[1] = 5000;
    const std::vector<PageContent> pages = pagesOf(parts);
    ASSERT_EQ(pages.size(), 4U);
    EXPECT_EQ(pages[1].rows, (PageContent::Rows{0, 1, 50}));
    EXPECT_EQ(pages[2].rows, (PageContent::Rows{1, 1, 50}));
    EXPECT_EQ(pages[3].rows, (PageContent::Rows{2, 1, 50}));
}

TEST(PageLayout, WithoutRowsThereIsThePictureAlone) {
    const std::vector<PageContent> expected{{.piece = PageContent::Piece{0, 100}}};
    EXPECT_EQ(pictureRoom(partsOf(0)), 500);
    EXPECT_EQ(pagesOf(partsOf(0)), expected);
}

TEST(PageLayout, APictureIsNoHigherThanThePage) {
    PageParts parts = partsOf(0);
    parts.pictureLeast = parts.pictureBest = 4000;
    EXPECT_EQ(pictureRoom(parts), 870);
    parts = partsOf(1);
    parts.pictureLeast = parts.pictureBest = 4000;
    EXPECT_EQ(pictureRoom(parts), 870);
}

}  // namespace
}  // namespace velmora::tests
