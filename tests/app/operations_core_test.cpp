// Operations by hand and the alert dialog in the whole program, beside checks that really run.
#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "rows/listed_file.h"
#include "wired_rig.h"

namespace velmora::tests {
namespace {

struct OperationsCoreTest : testing::Test, WiredRig {
    OperationsCoreTest() {
        machine.drives["D:"] = {50e9, 100e9};
        form1.StatusBar1.PanelChanged.connect([this](int index) {
            if (index == 2) secondPanel.push_back(form1.StatusBar1.Panels(2).Text);
        });
    }

    void listFile(const std::string& path) {
        machine.files[path] = "content";
        form1.LVFile.userDrop({path});
    }
    void check() {
        form1.DTPInterval.setMinute(0);
        form1.Timer1.Tick();
        form1.DTPInterval.setMinute(1);
    }
    /// Ticks until a check has begun.
    void tickUntilCheck() {
        host.yields = 0;
        for (int tick = 0; tick < 60 && host.yields == 0; ++tick) form1.Timer1.Tick();
        ASSERT_GT(host.yields, 0);
    }
    void expectCheckEnded() {
        EXPECT_FALSE(forms.globals.bChecking);
        EXPECT_TRUE(form1.ListView1.Enabled());
        EXPECT_TRUE(form1.Timer1.Enabled());
    }
    bool secondPanelShowed(const std::string& text) const {
        return std::find(secondPanel.begin(), secondPanel.end(), text) != secondPanel.end();
    }
    std::string logFile() const {
        const auto log = machine.files.find(programFolder + "\\log.dat");
        return log == machine.files.end() ? "none" : log->second;
    }

    fake::FakeHost& host = surface.host;
    Form1& form1 = forms.form1;
    DlgAlert& dialog = forms.dlgAlert;
    /// All texts of the second panel in their order.
    std::vector<std::string> secondPanel;
};

TEST_F(OperationsCoreTest, ADeletionByHandRunsATickThatWaits) {
    core.load();
    check();  // the countdown begins again
    listFile("C:\\old.txt");
    form1.LVFile.userSelect({1});
    form1.cmdDelete.userClick();
    EXPECT_EQ(form1.StatusBar1.Panels(1).Text, "Ready. Check in: 60 (sec.)");
    EXPECT_EQ(machine.files.count("C:\\old.txt"), 0u);
    EXPECT_EQ(form1.LVFile.Count(), 0);
    EXPECT_TRUE(dialog.Visible());
    EXPECT_TRUE(host.boxes.empty());
    expectCheckEnded();
}

TEST_F(OperationsCoreTest, ADeletionWhileACheckYieldsEndsTheCheckAndTouchesNothingElse) {
    core.load();
    listFile("C:\\old.txt");
    listFile("C:\\kept.txt");
    form1.LVFile.userSelect({1});
    const auto before = machine.files;
    host.onYield = [this](int yield) {
        if (yield == 1) form1.cmdDelete.userClick();
    };
    tickUntilCheck();
    // The tick after the deletion waits, and what every tick does at its end stops the check.
    EXPECT_EQ(forms.globals.lngTimesChecked, 1);
    EXPECT_FALSE(secondPanelShowed("Checking: D:\\"));
    ASSERT_GE(secondPanel.size(), 2u);
    EXPECT_EQ(secondPanel[secondPanel.size() - 2], "Ready (e1): ");
    EXPECT_EQ(secondPanel.back().substr(0, 9), "Checked: ");
    expectCheckEnded();
    auto expected = before;
    expected.erase("C:\\old.txt");
    EXPECT_EQ(machine.files, expected);
    ASSERT_EQ(form1.LVFile.Count(), 1);
    EXPECT_EQ(ConstListedFile(form1.LVFile.ListItems(1)).path(), "C:\\kept.txt");
}

TEST_F(OperationsCoreTest, ADeletionWhileACheckYieldsCanHaveACheckInIt) {
    core.load();
    listFile("C:\\old.txt");
    form1.LVFile.userSelect({1});
    host.onYield = [this](int yield) {
        if (yield == 1) form1.cmdDelete.userClick();
    };
    check();
    EXPECT_EQ(machine.files.count("C:\\old.txt"), 0u);
    EXPECT_EQ(forms.globals.lngTimesChecked, 2);
    EXPECT_TRUE(secondPanelShowed("Ready (e1): "));
    expectCheckEnded();
}

TEST_F(OperationsCoreTest, TheCleanerGetsTheDriveThatACheckFoundShort) {
    machine.drives["D:"].freeBytes = 1024 * 1024;
    core.load();
    ASSERT_EQ(form1.ListView1.ListItems(1).Text(), "C:\\");
    ASSERT_EQ(form1.ListView1.ListItems(2).Text(), "D:\\");
    form1.txtSpace.setText("4096");
    for (const int row : {1, 2}) form1.ListView1.ListItems(row).setChecked(true);
    check();
    dialog.lblAct[0].userClick();
    EXPECT_EQ(machine.files[programFolder + "\\clen.dat"], "D:\\\r\n");
    ASSERT_EQ(machine.executed.size(), 1u);
    EXPECT_EQ(machine.executed[0].file, programFolder + "\\sorbane.exe");
}

TEST_F(OperationsCoreTest, TheDialogsCountdownHidesItAndWritesTheJournalASecondTime) {
    TimerQueue queue([this] { return machine.tick; });
    addTimers(forms, queue);
    core.load();
    form1.chkAutoSave.userClick();
    listFile("C:\\old.txt");
    form1.LVFile.userSelect({1});
    form1.cmdDelete.userClick();  // fills the journal and shows the dialog
    const std::string journal = "03/14/26 15:09:26- Deleted File: C:\\old.txt\r\n . \r\n";
    ASSERT_EQ(form1.txtAlert.Text(), journal);
    EXPECT_EQ(logFile(), "none");
    check();
    EXPECT_EQ(logFile(), journal + "\r\n");

    form1.Timer1.setEnabled(false);
    ASSERT_TRUE(dialog.Visible());
    dialog.chkAutoHide.userClick();
    for (int tick = 1; tick <= 10; ++tick) {
        EXPECT_TRUE(dialog.Visible());
        machine.advance(9000);
        queue.fireDue();
    }
    EXPECT_FALSE(dialog.Visible());
    EXPECT_EQ(logFile(), journal + "\r\n" + journal + "\r\n");
    EXPECT_EQ(dialog.Caption(), "Alert Dialog");
    machine.advance(9000);
    queue.fireDue();
    EXPECT_EQ(logFile(), journal + "\r\n" + journal + "\r\n");
}

}  // namespace
}  // namespace velmora::tests
