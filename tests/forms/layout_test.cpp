// Sizes that windows and lists begin with, in twips.
#include <gtest/gtest.h>

#include <vector>

#include "forms/forms.h"

namespace velmora {
namespace {

std::vector<int> widthsOf(const ListView& list) {
    std::vector<int> widths;
    for (int i = 1; i <= list.ColumnCount(); ++i) widths.push_back(list.ColumnHeaders(i).Width);
    return widths;
}

TEST(Layout, TheListsBeginWithTheirColumnsWidths) {
    const Forms forms;
    const std::vector<int> files{2400, 1500, 3000, 2100, 2100, 2100, 1200};
    const std::vector<int> programs{1900, 1000, 2400, 1000};
    EXPECT_EQ(widthsOf(forms.form1.LVAlert), (std::vector<int>{1000, 1800, 5000, 1000}));
    EXPECT_EQ(widthsOf(forms.form1.LVFile), files);
    EXPECT_EQ(widthsOf(forms.form1.LVProg), programs);
    EXPECT_EQ(widthsOf(forms.frmWizard.LVFile), files);
    EXPECT_EQ(widthsOf(forms.frmWizard.LVProg), programs);
}

TEST(Layout, OnlySizesOfFilesStandAtTheRight) {
    const Forms forms;
    for (int i = 1; i <= forms.form1.LVFile.ColumnCount(); ++i) {
        EXPECT_EQ(forms.form1.LVFile.ColumnHeaders(i).alignment,
                  i == 2 ? Alignment::right : Alignment::left);
    }
}

TEST(Layout, TheWatchListHasAMarginInItsFrame) {
    const Forms forms;
    EXPECT_EQ(forms.form1.Frame8.bounds(), (Bounds{0, 600, 8030, 2700}));
    EXPECT_EQ(forms.form1.ListView1.bounds(), (Bounds{120, 240, 7880, 2100}));
}

TEST(Layout, ThePagesOfTheMainWindowLieOverEachOther) {
    const Forms forms;
    EXPECT_EQ(forms.form1.lblTabCap.bounds(), (Bounds{1320, 2900, 6210, 255}));
    for (const Frame& page : forms.form1.frmSp) {
        EXPECT_EQ(page.bounds(), (Bounds{1320, 3240, 6615, 4935}));
    }
    EXPECT_EQ(forms.form1.LVAlert.bounds(), (Bounds{100, 300, 6415, 2200}));
}

// One chart lies where the other does: only one is seen.
TEST(Layout, TheChartsOfADriveShareOnePlace) {
    const Forms forms;
    EXPECT_EQ(forms.dlgDriveInfo.Width(), 10200);
    EXPECT_EQ(forms.dlgDriveInfo.Height(), 8400);
    for (const Chart& chart : forms.dlgDriveInfo.MSChart1) {
        EXPECT_EQ(chart.bounds().Left, 240);
        EXPECT_EQ(chart.bounds().Top, 1500);
    }
    EXPECT_EQ(forms.dlgDriveInfo.lvInfo.ColumnCount(), 2);
}

}  // namespace
}  // namespace velmora
