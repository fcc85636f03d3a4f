#include "rows/size_text.h"

#include <gtest/gtest.h>

#include "base/regionals.h"

namespace velmora {
namespace {

TEST(KilobyteText, DividesBytesBy1024AndRoundsTiesAway) {
    const struct {
        double bytes;
        const char* text;
    } cases[] = {{0, "0 KB"},    {511, "0 KB"},  {512, "1 KB"},
                 {1023, "1 KB"}, {1024, "1 KB"}, {1535, "1 KB"},
                 {1536, "2 KB"}, {2560, "3 KB"}, {1048576, "1024 KB"}};
    for (const auto& c : cases) {
        EXPECT_EQ(kilobyteText(c.bytes, Grouping::none, unitedStates), c.text) << c.bytes;
    }
    EXPECT_EQ(kilobytes(1536), 2);
    EXPECT_EQ(kilobytes(1535), 1);
}

TEST(KilobyteText, GroupsDigitsAsTheCallerSays) {
    const double bytes = 1234567.0 * 1024;
    EXPECT_EQ(kilobyteText(bytes, Grouping::none, unitedStates), "1234567 KB");
    EXPECT_EQ(kilobyteText(bytes, Grouping::regional, unitedStates), "1,234,567 KB");
    EXPECT_EQ(kilobyteText(bytes, Grouping::regional, germany), "1.234.567 KB");
}

TEST(KilobyteText, TheShortWayGivesWhatTheLongOneDoes) {
    const Regional narrowBlanks{.digitGroup = "\u202F"};
    const Regional noMark{.digitGroup = ""};
    for (const double bytes :
         {0.0, 1.0, 511.0, 512.0, 1023.0, 1024.0 * 999, 1024.0 * 1000, 1024.0 * 999'999 + 511,
          1024.0 * 999'999 + 512, 1024.0 * 1e6, 1024.0 * 99'999'999'999 - 513,
          1024.0 * 99'999'999'999 + 512, 1024.0 * 1e11, 1024.0 * 123'456'789'012'345, -1536.0,
          1536.5, 511.99999999999994}) {
        for (const Regional& region : {unitedStates, germany, narrowBlanks, noMark}) {
            for (const Grouping grouping : {Grouping::regional, Grouping::none}) {
                EXPECT_EQ(KilobyteText(bytes, grouping, region).text(),
                          FormatNumber(bytes / 1024, 0, grouping, region) + " KB")
                    << bytes;
            }
        }
    }
}

TEST(FolderSizeText, HasUpToTwoDecimals) {
    EXPECT_EQ(folderSizeText(1536, unitedStates), "1.5 KB");
    EXPECT_EQ(folderSizeText(1536, germany), "1,5 KB");
    EXPECT_EQ(folderSizeText(1024 * 1234.567, unitedStates), "1234.57 KB");
}

TEST(SizeUnit, IsCutAtAnyPlace) {
    EXPECT_EQ(withUnit("12"), "12 KB");
    EXPECT_EQ(withoutUnit("1,234 KB"), "1,234");
    EXPECT_EQ(withoutUnit("1 KB2 KB"), "12");
    EXPECT_EQ(withoutUnit("12KB"), "12KB");
    EXPECT_EQ(withoutUnit("12 kb"), "12 kb");
    EXPECT_EQ(withoutUnit(""), "");
}

TEST(SizeUnit, AloneAtTheEndLeavesAPartOfTheText) {
    const std::string size = "1,234 KB";
    std::string room;
    EXPECT_EQ(withoutUnit(size, room), "1,234");
    EXPECT_EQ(withoutUnit(size, room).data(), size.data());
    EXPECT_EQ(withoutUnit("12KB", room), "12KB");
    EXPECT_EQ(room, "");
    EXPECT_EQ(withoutUnit("1 KB2 KB", room), "12");
    EXPECT_EQ(withoutUnit("1 KB ", room), "1 ");
}

TEST(ReadKilobytes, TakesDigitGroupsAndTheUnitOrNeither) {
    for (const char* size : {"1,234 KB", "1234 KB", "1,234", "1234", " 1,234 KB "}) {
        EXPECT_EQ(readKilobytes(size, unitedStates), 1234) << size;
    }
    EXPECT_EQ(readKilobytes("1.234 KB", germany), 1234);
    for (const char* size : {"", " KB", "N/A", "N/A, drive not ready", "1 MB"}) {
        EXPECT_EQ(readKilobytes(size, unitedStates), std::nullopt) << size;
    }
}

TEST(NotAvailable, IsFoundInCapitalsAndNot) {
    for (const char* text : {"N/A", "n/a", "N/a, drive", "drive: n/A"}) {
        EXPECT_TRUE(holdsNotAvailable(text)) << text;
    }
    for (const char* text : {"", "NA", "not ready", "12 KB", "n/x", "x/a", "1/2"}) {
        EXPECT_FALSE(holdsNotAvailable(text)) << text;
    }
}

TEST(NotAvailable, IsFoundBehindAnotherSlashButNotBeyondTheText) {
    EXPECT_TRUE(holdsNotAvailable("1/2 n/a"));
    EXPECT_TRUE(holdsNotAvailable("/ n/a"));
    const std::string_view text = "n/a";
    EXPECT_FALSE(holdsNotAvailable(text.substr(1)));
    EXPECT_FALSE(holdsNotAvailable(text.substr(0, 2)));
}

}  // namespace
}  // namespace velmora
