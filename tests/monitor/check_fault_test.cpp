// The handler that catches every error of a tick.
#include <new>
#include <stdexcept>

#include "monitor/check_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

const std::string high = std::string("High | ") + stampDateTime + " | ";

// A check, due at this tick, whose only row fails in an action.
struct FailingCheck : CheckRig {
    explicit FailingCheck(int number) {
        watch("C:\\", 5);
        failWith(number);
        setInterval(0, 0, 5);
    }
};

TEST(CheckFault, ExhaustedMemoryIsReportedInABox) {
    FailingCheck rig(7);
    rig.tick();
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text,
              "Not enough memory for the task, quit program(s) or free up Memory");
    EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::critical);
    EXPECT_EQ(rig.alert(1), high + "Error: Out of memory");
    EXPECT_EQ(rig.timesChecked(), 0);
    rig.expectRest();
}

TEST(CheckFault, TheAlertIsInTheListAndTheRowsAreEnabledWhenTheBoxOpens) {
    FailingCheck rig(7);
    std::string first;
    bool isEnabled = false;
    rig.host.onBox = [&](const Box&) {
        first = rig.alertTexts().front();
        isEnabled = rig.form1.ListView1.Enabled();
    };
    rig.tick();
    EXPECT_EQ(first, "Error: Out of memory");
    EXPECT_TRUE(isEnabled) << "the list of rows";
}

TEST(CheckFault, AMissingRowAndAnInvalidCallEndTheTickWithoutABox) {
    for (const int number : {35600, 5}) {
        FailingCheck rig(number);
        rig.tick();
        EXPECT_TRUE(rig.host.boxes.empty()) << number;
        EXPECT_EQ(rig.alert(1), high + "Error: " + errorDescription(number));
        EXPECT_EQ(rig.timesChecked(), 0);
        // No second attempt: nothing counts down.
        EXPECT_EQ(rig.checkCycle.lngElapsedMs(), 0);
        EXPECT_EQ(rig.panel(1), "Checking Events for: Alert on Space Shortage");
        rig.expectRest();
    }
}

TEST(CheckFault, AfterAnyOtherErrorTheTickStartsAgainAndWaits) {
    for (const int number : {6, 9, 13, 53, 70, 71, 76, 424, 12345}) {
        FailingCheck rig(number);
        rig.tick();
        EXPECT_TRUE(rig.host.boxes.empty()) << number;
        EXPECT_EQ(rig.alert(1), high + "Error: " + errorDescription(number));
        EXPECT_EQ(rig.alertCount(), 2);
        EXPECT_EQ(rig.timesChecked(), 0);
        EXPECT_EQ(rig.panel(1), "Ready. Check in: 5 (sec.)");
        EXPECT_EQ(rig.checkCycle.lngElapsedMs(), 5000);
        rig.expectRest();
    }
}

TEST(CheckFault, AnInvalidCallAtAPathWithoutADriveEndsThePassThere) {
    CheckRig rig;
    rig.row("films");
    rig.watch("C:\\", 5000);
    rig.check();
    EXPECT_EQ(rig.alertTexts(), Texts{"Error: Invalid procedure call or argument"});
    EXPECT_EQ(rig.at(2).lastChecked(), "");
    EXPECT_EQ(rig.timesChecked(), 0);
    rig.expectRest();
}

TEST(CheckFault, TheAlertOfTheErrorIsHighAndBelongsToNoRow) {
    FailingCheck rig(13);
    rig.form1.lstAct.setSelected(act::alert, false);
    rig.form1.lstAct.setSelected(act::move, true);
    rig.tick();
    EXPECT_TRUE(rig.forms.sysWorkSystray.tmrSystray.Enabled());
    EXPECT_EQ(rig.forms.globals.lngHighRatedAlerts, 2);
    // The row's stamp is the shortage's, and the same error is reported again.
    EXPECT_EQ(ConstWatchRow(rig.list.ListItems(1)).firstAlert(),
              " - ALERT: Space Shortage < 1000 KB Drive: C:[5 KB]");
    rig.tick();
    EXPECT_EQ(rig.alertTexts(), (Texts{"Error: Type mismatch", "Error: Type mismatch",
                                       " - ALERT: Space Shortage < 1000 KB Drive: C:[5 KB]"}));
}

TEST(CheckFault, AnErrorsOwnDescriptionIsReported) {
    FailingCheck rig(0);
    rig.onAction = [](int, Shortage&) { throw RuntimeError(1000, "No such \"thing\"\r\n"); };
    rig.tick();
    EXPECT_EQ(rig.alert(1), high + "Error: No such \"thing\"\r\n");
}

TEST(CheckFault, MemoryThatIsReallyExhaustedIsErrorSeven) {
    FailingCheck rig(0);
    rig.onAction = [](int, Shortage&) { throw std::bad_alloc(); };
    rig.tick();
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::critical);
    EXPECT_EQ(rig.alert(1), high + "Error: Out of memory");
    rig.expectRest();
}

TEST(CheckFault, AnExceptionOfAnotherTypeEndsTheTickToo) {
    FailingCheck rig(0);
    rig.onAction = [](int, Shortage&) { throw std::logic_error("broken"); };
    rig.tick();
    EXPECT_EQ(rig.alert(1), high + "Error: broken");
    EXPECT_TRUE(rig.host.boxes.empty());
    rig.expectRest();
}

TEST(CheckFault, TheEndOfTheProgramIsNoError) {
    FailingCheck rig(0);
    rig.onAction = [](int, Shortage&) { throw ProgramEnd{0}; };
    EXPECT_THROW(rig.tick(), ProgramEnd);
    EXPECT_EQ(rig.alertCount(), 1);
}

TEST(CheckFault, AnIntervalOfZeroTriesThreeTimesAndGivesUp) {
    FailingCheck rig(13);
    rig.setInterval(0, 0, 0);
    rig.tick();
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text, "Please check your settings for errors");
    EXPECT_EQ(rig.host.boxes[0].title, "Velmora");
    EXPECT_EQ(rig.count("action 0"), 3);
    EXPECT_EQ(rig.alert(1), high + "Program Run Time Error: ");
    for (int i = 2; i <= 4; ++i) EXPECT_EQ(rig.alert(i), high + "Error: Type mismatch");
    EXPECT_EQ(rig.alertCount(), 5);
    EXPECT_EQ(rig.timesChecked(), 0);
    rig.expectRest();
}

TEST(CheckFault, TheErrorLimitsBoxComesBeforeItsAlert) {
    FailingCheck rig(13);
    rig.setInterval(0, 0, 0);
    std::string first;
    rig.host.onBox = [&](const Box&) { first = rig.alertTexts().front(); };
    rig.tick();
    EXPECT_EQ(first, "Error: Type mismatch");
}

TEST(CheckFault, TwoErrorsDoNotReachTheLimitWhenTheThirdAttemptSucceeds) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.form1.lstAct.setSelected(act::alert, true);
    int runs = 0;
    rig.onAction = [&](int, Shortage&) {
        if (++runs <= 2) throw RuntimeError(13);
    };
    rig.check();
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.timesChecked(), 1);
    EXPECT_EQ(rig.alertCount(), 3);
}

TEST(CheckFault, ErrorsAreCountedFromZeroInEveryTick) {
    FailingCheck rig(13);
    for (int i = 0; i < 8; ++i) rig.tick();
    EXPECT_TRUE(rig.host.boxes.empty());
    rig.onAction = nullptr;
    rig.check();
    EXPECT_EQ(rig.timesChecked(), 1);
}

TEST(CheckFault, ErrorSevenAfterOthersIsReportedAtOnce) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.form1.lstAct.setSelected(act::alert, true);
    int runs = 0;
    rig.onAction = [&](int, Shortage&) { throw RuntimeError(++runs == 1 ? 13 : 7); };
    rig.check();
    EXPECT_EQ(runs, 2);
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::critical);
}

// A check with a short row while another program holds the log file.
struct LockedLog : CheckRig {
    LockedLog() {
        watch("C:\\", 5);
        watch("D:\\", 5000);
        form1.chkAutoSave.setValue(1);
        const std::string path = form1.lblLog.Caption();
        machine.files[path] = "";
        machine.lockedFiles[path] = error::permissionDenied;
    }
};

TEST(CheckFault, ALockedLogAbandonsTheCheckAndTheTickEnds) {
    LockedLog rig;
    rig.setInterval(0, 0, 5);
    rig.tick();
    EXPECT_EQ(rig.alertTexts(), (Texts{"Error: Permission denied",
                                       " - ALERT: Space Shortage < 1000 KB Drive: C:[5 KB]"}));
    EXPECT_EQ(rig.at(2).lastChecked(), "");
    EXPECT_EQ(rig.timesChecked(), 0);
    EXPECT_EQ(rig.panel(1), "Ready. Check in: 5 (sec.)");
    EXPECT_EQ(rig.form1.txtAlert.Text(), "");
    rig.expectRest();
}

TEST(CheckFault, ALockedLogWithAnIntervalOfZeroDoesNotLoopForEver) {
    LockedLog rig;
    rig.check();
    // The first go fails at the shortage's alert. It is a repeat at the second and the third, which
    // count and fail at saving the journal.
    EXPECT_EQ(rig.timesChecked(), 2);
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text, "Please check your settings for errors");
    rig.expectRest();
}

TEST(CheckFault, ALogThatIsLockedForOneAlertOnlyDelaysTheCheck) {
    LockedLog rig;
    rig.form1.LVAlert.RowInserted.connect([&](int) {
        if (rig.form1.LVAlert.Count() == 2) rig.machine.lockedFiles.clear();
    });
    rig.check();
    EXPECT_EQ(rig.timesChecked(), 1);
    EXPECT_TRUE(rig.host.boxes.empty());
    rig.expectRest();
}

TEST(CheckFault, ALockedLogAndARecurringErrorEndAtTheLimit) {
    LockedLog rig;
    rig.failWith(13);
    rig.check();
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text, "Please check your settings for errors");
    EXPECT_EQ(rig.alertTexts().front(), "Program Run Time Error: ");
    EXPECT_EQ(rig.machine.files[rig.form1.lblLog.Caption()], "");
    rig.expectRest();
}

TEST(CheckFault, AnAlertCountThatOverflowsDoesNotKeepTheTickFromEnding) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.forms.globals.lngAlertsRaised = 2147483647;
    rig.setInterval(0, 0, 5);
    rig.tick();
    EXPECT_EQ(rig.alertTexts(),
              (Texts{"Error: Overflow", " - ALERT: Space Shortage < 1000 KB Drive: C:[5 KB]"}));
    rig.expectRest();
}

TEST(CheckFault, ATickInTheMiddleOfACheckHasItsOwnErrorCountAndTrigger) {
    CheckRig rig;
    rig.watch("C:\\", 1500);
    rig.watch("D:\\", 1500);
    rig.host.onYield = [&](int n) {
        if (n != 2) return;
        rig.host.onYield = nullptr;
        rig.form1.txtSpace.setText("2000");
        rig.tick();
        rig.forms.globals.bChecking = true;
    };
    rig.check();
    // The outer check goes on with the trigger it read.
    EXPECT_EQ(rig.at(2).stateIcon(), "ok");
    EXPECT_EQ(rig.alertCount(), 2);
    EXPECT_EQ(rig.timesChecked(), 2);
}

TEST(CheckFault, TheTimeOfTheCheckIsKeptWhenAnActionFails) {
    FailingCheck rig(13);
    rig.setInterval(0, 0, 0);
    rig.tick();
    EXPECT_EQ(rig.at(1).lastChecked(), "03/14 15:09:26");
}

}  // namespace
}  // namespace velmora::tests
