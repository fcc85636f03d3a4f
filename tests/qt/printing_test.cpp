// The command that prints a chart: what it prints, and what the user is told when it doesn't.
#include <QComboBox>

#include "qt/window_test.h"
#include "rows/watch_row.h"

namespace velmora::tests {
namespace {

using qt::PrintEnd;

struct PrintingTest : WindowTest {
    PrintingTest() {
        machine.now = {.year = 2026, .month = 3, .day = 14, .hour = 15, .minute = 9, .second = 26};
    }
    void openDriveInfo() {
        start();
        program->forms().dlgDriveInfo.Show();
        settle();
    }
    void openHistory() {
        start();
        history().Show();
        settle();
    }
    FrmHistory& history() { return program->forms().frmHistory; }
    QAbstractButton* button(const char* name, const char* form) {
        return find<QAbstractButton>(QString::fromLatin1(name), form);
    }
    bool isPrinted(const char* text) {
        return std::ranges::any_of(tray.pages, [text](const QStringList& page) {
            return page.contains(QString::fromUtf8(text));
        });
    }
};

TEST_F(PrintingTest, TheBarsArePrintedWithTheirRowsAndTheDate) {
    openDriveInfo();
    click("MSChart1(0).Print", "dlgDriveInfo");
    EXPECT_EQ(tray.title, "Free Space By Drive(s)");
    ASSERT_EQ(tray.pages.size(), 1U);
    for (const char* text :
         {"Free Space By Drive(s)", "3/14/2026 3:09:26 PM",
          "Illustrates each system aware drive/paths' free and total memory size.", "C:\\", "D:\\",
          "E:\\", "Free Space (KB)"}) {
        EXPECT_TRUE(isPrinted(text)) << text;
    }
}

TEST_F(PrintingTest, TheUsualKeysPrintTheChartThatIsShown) {
    openDriveInfo();
    QWidget* window = program->window("dlgDriveInfo");
    QTest::keyClick(window, Qt::Key_P, Qt::ControlModifier);
    settle();
    EXPECT_EQ(tray.asked, 1);
    EXPECT_EQ(tray.title, "Free Space By Drive(s)");
    program->forms().dlgDriveInfo.Combo1.userChoose(drive_view::attributes);
    settle();
    QTest::keyClick(window, Qt::Key_P, Qt::ControlModifier);
    settle();
    EXPECT_EQ(tray.asked, 1);
}

TEST_F(PrintingTest, ThePieIsPrintedWithItsShares) {
    openDriveInfo();
    program->forms().dlgDriveInfo.Combo1.userChoose(drive_view::distribution);
    settle();
    click("MSChart1(1).Print", "dlgDriveInfo");
    EXPECT_EQ(tray.title, "Total Free Space Distribution");
    EXPECT_TRUE(isPrinted("Share"));
    EXPECT_TRUE(isPrinted("E:\\"));
}

TEST_F(PrintingTest, TheTableIsPrintedAlsoWhileItTakesTheChartsPlace) {
    openDriveInfo();
    click("MSChart1(0).ShowTable", "dlgDriveInfo");
    click("MSChart1(0).Print", "dlgDriveInfo");
    EXPECT_TRUE(isPrinted("Drive/Path"));
}

TEST_F(PrintingTest, TheHistoryIsPrintedWithItsPathAndItsExtremes) {
    openHistory();
    history().chtHistory.show(
        {{"C:\\", {{-7200, 4000}, {-3600, 1000}, {-60, 9000}, {0, 2000}}, 500}});
    history().lblEstimate.setCaption("full in about 14 hours");
    settle();
    click("chtHistory.Print", "frmHistory");
    EXPECT_EQ(tray.title, "Free Space History");
    ASSERT_EQ(tray.pages.size(), 1U);
    const QStringList& page = tray.pages[0];
    for (const char* text : {"C:\\", "full in about 14 hours", "3/14/2026 3:09:26 PM"}) {
        EXPECT_TRUE(isPrinted(text)) << text;
    }
    const auto row = [&](const char* name, const char* time, const char* value) {
        const qsizetype at = page.indexOf(QString::fromLatin1(name));
        EXPECT_EQ(page.value(at + 1).toStdString(), time) << name;
        EXPECT_EQ(page.value(at + 2).toStdString(), value) << name;
    };
    row("First measure", "3/14/2026 1:09:26 PM", "4,000");
    row("Greatest", "3/14/2026 3:08:26 PM", "9,000");
    row("Least", "3/14/2026 2:09:26 PM", "1,000");
    row("Last measure", "3/14/2026 3:09:26 PM", "2,000");
    EXPECT_EQ(page.value(page.lastIndexOf(QStringLiteral("Trigger")) + 1), "500");
}

TEST_F(PrintingTest, TheHistoryOfSeveralPathsHasARowForEach) {
    openHistory();
    history().cboPath.setText("All paths");
    history().chtHistory.show({{"C:\\", {{-7200, 4000}, {-60, 9000}, {0, 2000}}, 500},
                               {"D:\\", {{-60, 70}, {0, 80}}, std::nullopt}});
    settle();
    click("chtHistory.Print", "frmHistory");
    EXPECT_TRUE(isPrinted("All paths"));
    const QStringList page = tray.pages.at(0);
    const auto row = [&](const char* name) {
        return page.mid(page.lastIndexOf(QString::fromLatin1(name)), 5);
    };
    EXPECT_EQ(row("C:\\"), (QStringList{"C:\\", "9,000", "2,000", "2,000", "500"}));
    EXPECT_EQ(row("D:\\").mid(0, 4), (QStringList{"D:\\", "80", "70", "80"}));
}

TEST_F(PrintingTest, AHistoryThatIsPrintedLaterIsAsOldAsItSays) {
    start();
    checkAtEachTick();
    for (int i = 1; i <= form1().ListView1.Count(); ++i) form1().ListView1.userTick(i, true);
    tick();
    program->forms().dlgDriveInfo.Show();
    program->forms().dlgDriveInfo.cmdHistory.userClick();
    settle();
    ASSERT_EQ(history().cboPath.List(1), "C:\\");
    history().cboPath.userChoose(1);
    settle();
    const std::string checked = dateText(machine.now, machine.platform().regional);
    machine.advance(3'600'000);
    click("chtHistory.Print", "frmHistory");
    const std::string printed = dateText(machine.now, machine.platform().regional);
    ASSERT_NE(checked, printed);
    EXPECT_TRUE(isPrinted(printed.c_str()));
    EXPECT_TRUE(isPrinted(checked.c_str()));
}

TEST_F(PrintingTest, WhatIsPrintedIsWhatWasShownWhenItWasAsked) {
    openHistory();
    history().chtHistory.show({{"C:\\", {{-7200, 4000}, {0, 2000}}, std::nullopt}});
    settle();
    tray.whileAsked = [this] {
        history().chtHistory.show({{"D:\\", {{-7200, 70'000}, {0, 70'000}}, std::nullopt}});
        settle();
    };
    click("chtHistory.Print", "frmHistory");
    EXPECT_TRUE(isPrinted("C:\\"));
    // The marks of its axis.
    EXPECT_TRUE(isPrinted("4,000 KB"));
    EXPECT_FALSE(isPrinted("80,000 KB"));
}

TEST_F(PrintingTest, AnEmptyChartCannotBePrinted) {
    openDriveInfo();
    Chart& bars = program->forms().dlgDriveInfo.MSChart1[0];
    QAbstractButton* print = button("MSChart1(0).Print", "dlgDriveInfo");
    EXPECT_TRUE(print->isEnabled());
    bars.setRowCount(0);
    settle();
    EXPECT_FALSE(print->isEnabled());
    bars.setRowCount(1);
    settle();
    EXPECT_TRUE(print->isEnabled());
}

TEST_F(PrintingTest, AnEmptyHistoryCannotBePrinted) {
    openHistory();
    QAbstractButton* print = button("chtHistory.Print", "frmHistory");
    EXPECT_FALSE(print->isEnabled());
    history().chtHistory.show({{"C:\\", {{0, 1}}, std::nullopt}});
    settle();
    EXPECT_TRUE(print->isEnabled());
}

TEST_F(PrintingTest, CancellingSaysNothing) {
    openDriveInfo();
    tray.result = {.end = PrintEnd::cancelled};
    click("MSChart1(0).Print", "dlgDriveInfo");
    EXPECT_EQ(tray.asked, 1);
    EXPECT_TRUE(boxes.seen.empty());
    EXPECT_TRUE(program->forms().dlgDriveInfo.Visible());
}

TEST_F(PrintingTest, AMachineWithoutAPrinterSaysSo) {
    openDriveInfo();
    tray.result = {.end = PrintEnd::noPrinter};
    boxes.answers = {QMessageBox::Ok};
    click("MSChart1(0).Print", "dlgDriveInfo");
    EXPECT_EQ(boxes.lastText(), "Nothing was printed: there is no printer on this computer.");
    // The button does its work again.
    tray.result = {};
    click("MSChart1(0).Print", "dlgDriveInfo");
    EXPECT_EQ(tray.pages.size(), 1U);
}

TEST_F(PrintingTest, AJobThatFailsSaysWhereAndWhy) {
    openDriveInfo();
    boxes.answers = {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
    tray.result = {.end = PrintEnd::failed, .reason = "The disk is full", .page = 0};
    click("MSChart1(0).Print", "dlgDriveInfo");
    EXPECT_EQ(boxes.lastText(), "The chart wasn't printed: The disk is full.");
    tray.result.page = 1;
    click("MSChart1(0).Print", "dlgDriveInfo");
    EXPECT_EQ(boxes.lastText(), "The chart wasn't printed: The disk is full.");
    tray.result.page = 3;
    click("MSChart1(0).Print", "dlgDriveInfo");
    EXPECT_EQ(boxes.lastText(), "The chart wasn't printed from page 3 on: The disk is full.");
    EXPECT_EQ(boxes.seen.back().icon, QMessageBox::Critical);
}

TEST_F(PrintingTest, AProgramThatEndedMeanwhileShowsNoBox) {
    openDriveInfo();
    tray.result = {.end = PrintEnd::failed, .reason = "No paper"};
    tray.whileAsked = [this] { program->hand().does([] { throw ProgramEnd{7}; }); };
    click("MSChart1(0).Print", "dlgDriveInfo");
    EXPECT_EQ(ended, 7);
    EXPECT_TRUE(boxes.seen.empty());
}

TEST_F(PrintingTest, WithoutAWayToPrintersTheCommandIsNotThere) {
    makePrinters = [] { return nullptr; };
    openDriveInfo();
    EXPECT_FALSE(button("MSChart1(0).Print", "dlgDriveInfo")->isVisible());
    EXPECT_TRUE(button("MSChart1(0).Copy", "dlgDriveInfo")->isVisible());
    history().Show();
    settle();
    EXPECT_FALSE(button("chtHistory.Print", "frmHistory")->isVisible());
}

}  // namespace
}  // namespace velmora::tests
