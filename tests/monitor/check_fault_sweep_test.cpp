// One whole check in which the n-th call of the machine fails, for every n and for several errors.
#include "monitor/check_rig.h"

namespace velmora::tests {
namespace {

// A ready row, a short one, one that isn't ready, one that isn't watched and another short one.
// Alerts go to the log file, which the closing writes as well.
struct SweptCheck : CheckRig {
    SweptCheck() {
        watch("C:\\", 5000);
        watch("D:\\films", 5);
        watch("E:\\", 5);
        machine.drives["E:"].ready = false;
        row("F:\\", false);
        watch("\\\\server\\data", 7);
        form1.lstAct.setSelected(act::alert, true);
        form1.lstAct.setSelected(act::progressDialog, true);
        form1.chkAutoSave.setValue(1);
        form1.chkSaveSet.setValue(1);
        machine.files[form1.lblLog.Caption()] = "";
        setInterval(0, 0, 5);
    }
    const std::string& logged() { return machine.files[form1.lblLog.Caption()]; }
};

int questionsOfACheck() {
    SweptCheck rig;
    rig.tick();
    EXPECT_EQ(rig.timesChecked(), 1);
    EXPECT_EQ(rig.alertCount(), 2);
    return rig.machine.log.count();
}

void expectReport(SweptCheck& rig, int number) {
    const std::string text = "Error: " + errorDescription(number);
    ASSERT_GE(rig.alertCount(), 1);
    EXPECT_EQ(rig.alert(1), std::string("High | ") + stampDateTime + " | " + text);
    // The machine fails once only, so the report reaches the file too.
    EXPECT_NE(rig.logged().find(std::string(stampDateTime) + " | High | " + text + "\r\n"),
              std::string::npos);
    ASSERT_EQ(rig.host.boxes.size(), number == error::outOfMemory ? 1u : 0u);
    if (number == error::outOfMemory) {
        EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::critical);
    }
}

void expectNextCheckToWork(SweptCheck& rig, int counted) {
    rig.host.boxes.clear();
    rig.check();
    EXPECT_EQ(rig.timesChecked(), counted + 1);
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    EXPECT_EQ(rig.at(2).stateIcon(), "alert");
    EXPECT_EQ(rig.at(3).stateIcon(), "");
    EXPECT_EQ(rig.at(5).stateIcon(), "alert");
    rig.expectRest();
}

class CheckFaultSweep : public testing::TestWithParam<int> {};

TEST_P(CheckFaultSweep, EveryQuestionMayFailAndTheNextCheckWorks) {
    const int number = GetParam();
    const int questions = questionsOfACheck();
    ASSERT_GE(questions, 20);
    for (int n = 1; n <= questions; ++n) {
        SweptCheck rig;
        rig.machine.log.failCall(n, number);
        rig.tick();
        const std::string failed = rig.machine.log.calls()[static_cast<std::size_t>(n - 1)];
        SCOPED_TRACE(std::to_string(n) + " " + failed);
        const bool readiness = failed.compare(0, 8, "IsReady ") == 0;
        const bool closing = n >= questions - 1;  // the settings and the journal are saved last
        rig.expectRest();
        if (readiness) {
            EXPECT_TRUE(rig.host.boxes.empty());
            EXPECT_EQ(rig.timesChecked(), 1);
        } else {
            expectReport(rig, number);
            EXPECT_EQ(rig.timesChecked(), closing ? 1 : 0);
            const bool waits = number != 5 && number != 7;
            EXPECT_EQ(rig.checkCycle.lngElapsedMs() > 0, waits);
        }
        expectNextCheckToWork(rig, rig.timesChecked());
    }
}

INSTANTIATE_TEST_SUITE_P(Errors, CheckFaultSweep, testing::Values(5, 7, 13, 53, 70, 76),
                         [](const auto& error) { return "Error" + std::to_string(error.param); });

}  // namespace
}  // namespace velmora::tests
