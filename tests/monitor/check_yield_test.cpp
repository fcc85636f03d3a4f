// Other handlers run at the yields of a check. After any change of the list, at any yield, the tick
// ends properly and the next check works.
#include <functional>

#include "monitor/check_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

constexpr int disturbedRows = 3;
constexpr int actions = 12;
constexpr int yieldsPerRow = 1 + actions;
constexpr int yieldsInAll = disturbedRows * yieldsPerRow;
constexpr int yieldOfLastRow = 1 + (disturbedRows - 1) * yieldsPerRow;

// Three short rows, out of order, with two actions; `act` runs at yield `n`.
struct DisturbedCheck : CheckRig {
    DisturbedCheck(int n, const std::function<void(DisturbedCheck&)>& act) {
        for (const char* path : {"D:\\", "C:\\", "E:\\"}) watch(path, 5);
        form1.lstAct.setSelected(act::alert, true);
        form1.lstAct.setSelected(act::progressDialog, true);
        host.onYield = [this, n, act](int yield) {
            if (yield == n) act(*this);
        };
        setInterval(0, 0, 5);
        tick();
        host.onYield = nullptr;
    }
    int errors() {
        int count = 0;
        for (const std::string& text : alertTexts()) count += text.compare(0, 7, "Error: ") == 0;
        return count;
    }
    void expectFinished() {
        expectRest();
        EXPECT_TRUE(host.boxes.empty());
        EXPECT_EQ(errors(), 0);
        EXPECT_EQ(timesChecked(), 1);
        expectNextCheckToWork();
    }
    void expectEndedQuietly() {
        expectRest();
        EXPECT_TRUE(host.boxes.empty());
        EXPECT_EQ(errors(), 1);
        EXPECT_EQ(alertTexts().front(), "Error: Index out of bounds");
        EXPECT_EQ(timesChecked(), 0);
        expectNextCheckToWork();
    }
    void expectNextCheckToWork() {
        const int before = timesChecked();
        check();
        EXPECT_EQ(timesChecked(), before + 1);
        EXPECT_TRUE(host.boxes.empty());
        for (int i = 1; i <= list.Count(); ++i) {
            EXPECT_EQ(at(i).stateIcon(), at(i).watched() ? "alert" : "");
        }
        expectRest();
    }
};

TEST(CheckYield, AnUndisturbedCheckYieldsBeforeEveryRowAndEveryAction) {
    DisturbedCheck rig(0, {});
    // The rate goes over all rows twice after the pass and once at the closing.
    EXPECT_EQ(rig.host.yields, yieldsInAll + 3 * disturbedRows);
    rig.expectFinished();
}

TEST(CheckYield, ClearingTheListEndsThePassQuietly) {
    for (int n = 1; n <= yieldsInAll; ++n) {
        SCOPED_TRACE(n);
        DisturbedCheck rig(n, [](auto& running) { running.list.Clear(); });
        rig.expectEndedQuietly();
    }
}

TEST(CheckYield, RemovingTheLastRowEndsThePassQuietly) {
    for (int n = 1; n <= yieldsInAll; ++n) {
        SCOPED_TRACE(n);
        DisturbedCheck rig(n, [](auto& running) { running.list.Remove(running.list.Count()); });
        rig.expectEndedQuietly();
    }
}

TEST(CheckYield, RemovingTheFirstRowEndsThePassQuietly) {
    for (int n = 1; n <= yieldsInAll; ++n) {
        SCOPED_TRACE(n);
        DisturbedCheck rig(n, [](auto& running) { running.list.Remove(1); });
        rig.expectEndedQuietly();
        EXPECT_EQ(rig.list.ListItems(1).Text(), "C:\\");
    }
}

TEST(CheckYield, TheRowAfterARemovedOneIsSkipped) {
    // The first row is removed at the yield of the second: the third is second now, and C: is
    // missed.
    DisturbedCheck rig(1 + yieldsPerRow, [](auto& running) { running.list.Remove(1); });
    EXPECT_EQ(rig.at(1).lastChecked(), "");
    EXPECT_EQ(rig.at(2).lastChecked(), "03/14 15:09:26");
}

TEST(CheckYield, AnAddedRowWaitsForTheNextCheck) {
    for (int n = 1; n <= yieldsInAll; ++n) {
        SCOPED_TRACE(n);
        DisturbedCheck rig(n, [](auto& running) { running.watch("F:\\", 5); });
        EXPECT_EQ(rig.at(4).lastChecked(), "");
        EXPECT_EQ(rig.at(3).stateIcon(), "alert");
        rig.expectFinished();
    }
}

TEST(CheckYield, ARowAddedAtTheLastRowKeepsTheListDisabledUntilTheEnd) {
    bool enabled = true;
    DisturbedCheck rig(yieldOfLastRow, [&](auto& running) {
        running.watch("F:\\", 5);
        running.onAction = [&](int, Shortage&) { enabled = running.list.Enabled(); };
    });
    EXPECT_FALSE(enabled);
    EXPECT_TRUE(rig.list.Enabled());
}

TEST(CheckYield, ARowUntickedBeforeItIsReachedIsLeftOut) {
    for (int n = 1; n <= yieldsInAll; ++n) {
        SCOPED_TRACE(n);
        DisturbedCheck rig(n, [](auto& running) { running.list.ListItems(3).setChecked(false); });
        const bool inTime = n <= yieldOfLastRow;
        EXPECT_EQ(rig.at(3).lastChecked(), inTime ? "" : "03/14 15:09:26");
        EXPECT_EQ(rig.count("prcRefreshRowIcon E:\\"), inTime ? 1 : 0);
        rig.expectFinished();
    }
}

TEST(CheckYield, ARowTickedBeforeItIsReachedIsMeasured) {
    for (int n = 1; n <= yieldOfLastRow; ++n) {
        SCOPED_TRACE(n);
        CheckRig rig;
        for (const char* path : {"D:\\", "C:\\"}) rig.watch(path, 5);
        rig.watch("E:\\", 5).setChecked(false);
        rig.host.onYield = [&](int yield) {
            if (yield == n) rig.list.ListItems(3).setChecked(true);
        };
        rig.check();
        EXPECT_EQ(rig.at(3).stateIcon(), "alert");
        EXPECT_EQ(rig.timesChecked(), 1);
    }
}

TEST(CheckYield, AfterASortTheCheckGoesOnInTheNewOrder) {
    for (int n = 1; n <= yieldsInAll; ++n) {
        SCOPED_TRACE(n);
        DisturbedCheck rig(n, [](auto& running) { running.list.sortBy(0, 1); });
        EXPECT_EQ(rig.list.ListItems(1).Text(), "E:\\");
        rig.expectFinished();
    }
}

TEST(CheckYield, SortingBetweenTwoRowsMeasuresOneTwiceAndMissesAnother) {
    // D: has been measured; in descending order D: is second and C: third.
    DisturbedCheck rig(1 + yieldsPerRow, [](auto& running) { running.list.sortBy(0, 1); });
    EXPECT_EQ(rig.machine.log.countOf("GetDriveName D:\\"), 2);
    EXPECT_EQ(rig.machine.log.countOf("GetDriveName C:\\"), 1);
    EXPECT_EQ(rig.machine.log.countOf("GetDriveName E:\\"), 0);
}

TEST(CheckYield, ACancelledCheckClosesAtTheNextRow) {
    for (int n = 1; n <= yieldsInAll; ++n) {
        SCOPED_TRACE(n);
        DisturbedCheck rig(n, [](auto& running) { running.forms.globals.bChecking = false; });
        const int measured = (n + yieldsPerRow - 2) / yieldsPerRow;  // rows begun before yield n
        EXPECT_EQ(rig.at(3).lastChecked(), measured < 3 ? "" : "03/14 15:09:26");
        EXPECT_EQ(rig.at(2).lastChecked(), measured < 2 ? "" : "03/14 15:09:26");
        EXPECT_EQ(rig.at(1).lastChecked(), measured < 1 ? "" : "03/14 15:09:26");
        rig.expectFinished();
    }
}

TEST(CheckYield, AnActionTickedAfterThePresentOneStillRuns) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.form1.lstAct.setSelected(act::remove, true);
    rig.onAction = [&](int action, Shortage&) {
        if (action != 2) return;
        rig.form1.lstAct.setSelected(act::move, true);
        rig.form1.lstAct.setSelected(act::sound, true);
    };
    rig.check();
    EXPECT_EQ(rig.count("action 1"), 0);
    EXPECT_EQ(rig.count("action 5"), 1);
}

TEST(CheckYield, ATriggerChangedDuringTheCheckCountsFromTheNextOneOn) {
    CheckRig rig;
    rig.watch("C:\\", 1500);
    rig.watch("D:\\", 1500);
    rig.host.onYield = [&](int n) {
        if (n == 2) rig.form1.txtSpace.setText("2000");
    };
    rig.check();
    EXPECT_EQ(rig.at(2).stateIcon(), "ok");
    rig.check();
    EXPECT_EQ(rig.at(2).stateIcon(), "alert");
}

TEST(CheckYield, TheProgressDialogsButtonStopsTheCheckBeforeTheNextRow) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.watch("D:\\", 5);
    rig.host.onYield = [&](int) {
        if (rig.alertCount() == 1) rig.forms.icon0.cmdCancel.userClick();
    };
    rig.check();
    EXPECT_EQ(rig.alertCount(), 1);
    EXPECT_EQ(rig.at(2).lastChecked(), "");
    rig.expectRest();
}

}  // namespace
}  // namespace velmora::tests
