// The watch on one screen.
#include <gtest/gtest.h>

#include "console/session.h"
#include "monitor/watch_summary.h"
#include "rows/watch_columns.h"
#include "rows/watch_row.h"

namespace velmora::tests {
namespace {

struct StatusReportTest : testing::Test, Session {
    StatusReportTest() {
        addWatchColumns(form1.ListView1);
        form1.txtSpace.setText("50000");
        form1.StatusBar1.setPanelText(1, "Ready. Check in: 42 (sec.)");
    }
    void watch(const std::string& path, const std::string& free, const std::string& total) {
        WatchRow row(form1.ListView1.Add(path));
        row.setFreeSpace(free);
        row.setTotalSize(total);
    }
    std::string line(std::size_t index) {
        std::istringstream lines(run("status"));
        std::string text;
        for (std::size_t i = 0; i <= index; ++i) std::getline(lines, text);
        return text;
    }
};

TEST_F(StatusReportTest, TheNextCheckIsBelowTheState) {
    EXPECT_EQ(line(1), "Ready. Check in: 42 (sec.)");
    EXPECT_FALSE(line(0).empty());
}

TEST_F(StatusReportTest, WordsStandToTheLeftAndFiguresToTheRight) {
    watch("C:\\", "600 KB", "1,000 KB");
    watch("D:\\data", "2,000,000 KB", "4,000,000 KB");
    EXPECT_EQ(line(2), "Path     State          Free Space   Total Space    Used    Minimum");
    EXPECT_EQ(line(3), "C:\\      not watched        600 KB      1,000 KB  40.0 %  50,000 KB");
    EXPECT_EQ(line(4), "D:\\data  not watched  2,000,000 KB  4,000,000 KB  50.0 %  50,000 KB");
}

TEST_F(StatusReportTest, WithoutRowsThereIsNoTable) {
    EXPECT_EQ(line(2), "");
}

TEST_F(StatusReportTest, NoLineEndsInBlanks) {
    form1.txtSpace.setText("no number");
    watch("C:\\", "N/A", "");
    EXPECT_TRUE(line(3).ends_with("N/A")) << line(3);
}

TEST_F(StatusReportTest, AProgramGetsAnObjectForEachRow) {
    watch("C:\\", "600 KB", "1,000 KB");
    run("json on");
    form1.StatusBar1.setPanelText(1, "Ready. Check in: 5 (sec.)");
    const std::string summary = summaryOf(forms, Regional{}).text;
    EXPECT_EQ(run("status"),
              R"({"ok":{"Summary":")" + summary +
                  R"x(","Activity":"Ready. Check in: 5 (sec.)",)x"
                  R"("Rows":[{"Path":"C:\\","State":"not watched","Free Space":"600 KB",)"
                  R"("Total Space":"1,000 KB","Used":"40.0 %","Minimum":"50,000 KB"}]}})"
                  "\n");
}

}  // namespace
}  // namespace velmora::tests
