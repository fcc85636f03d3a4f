// Start and end of the program.
#include "monitor/check_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

TEST(LifeCycle, TheWatchListHasFiveColumnsTheMiddleOnesToTheRight) {
    Rig rig;
    rig.load();
    Texts headers;
    std::vector<bool> right;
    for (int i = 1; i <= rig.list.ColumnCount(); ++i) {
        headers.push_back(rig.list.ColumnHeaders(i).Text);
        right.push_back(rig.list.ColumnHeaders(i).alignment == Alignment::right);
    }
    // At the end of the start the choice of KB has changed the fourth header.
    EXPECT_EQ(headers, (Texts{"Drive Path", "Free Space", "Total Size", "Trigger S(KB)",
                              "Time Last Checked"}));
    EXPECT_EQ(right, (std::vector<bool>{false, true, true, true, false}));
}

TEST(LifeCycle, TheFirstTickShowsTheCountdownAndLeavesTheTimerOn) {
    Rig rig;
    rig.drive("C:", 5, 10);
    rig.load();
    EXPECT_EQ(rig.panel(1), "Ready. Check in: 60 (sec.)");
    EXPECT_TRUE(rig.form1.Timer1.Enabled());
    EXPECT_EQ(rig.form1.Timer1.Interval(), 5000);
    EXPECT_EQ(rig.forms.globals.lngTimesChecked, 0);
}

TEST(LifeCycle, TheFirstTickComesBeforeTheDrivesAreListed) {
    Rig rig;
    rig.drive("C:", 5, 10);
    rig.setInterval(0, 0, 0);
    rig.lifeCycle.Form_Load();
    EXPECT_EQ(rig.forms.globals.lngTimesChecked, 1);
    EXPECT_EQ(rig.panel(2), "Checked: 15:09:26 03/14");
    EXPECT_EQ(rig.list.Count(), 1);
}

TEST(LifeCycle, TheWindowIsShownInItsSizeWithTheDrivesOfTheMachine) {
    Rig rig;
    rig.drive("C:", 5, 10);
    rig.drive("D:", 6, 10);
    EXPECT_FALSE(rig.form1.Visible());
    rig.load();
    EXPECT_TRUE(rig.form1.Visible());
    EXPECT_EQ(rig.form1.Height(), 9100);
    EXPECT_EQ(rig.form1.Width(), 8030);
    ASSERT_EQ(rig.list.Count(), 2);
    EXPECT_EQ(rig.list.ListItems(2).Text(), "D:\\");
}

TEST(LifeCycle, TheLogLiesInTheProgramsFolder) {
    Rig rig;
    rig.load();
    EXPECT_EQ(rig.form1.lblLog.Caption(), "C:\\Program Files\\Velmora\\log.dat");
}

TEST(LifeCycle, TheUnitIsKilobytesAtTheStart) {
    Rig rig;
    rig.load();
    EXPECT_TRUE(rig.form1.OpDriv[0].Value());
    EXPECT_FALSE(rig.form1.Slider1.Visible());
}

TEST(LifeCycle, LeavingIsAskedForAndCancelLeavesEverythingRunning) {
    Rig rig;
    rig.load();
    rig.host.answers = {BoxAnswer::cancel};
    rig.form1.mnuExit.Click();
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text, "Exit the program?");
    EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::question);
    EXPECT_EQ(rig.host.boxes[0].buttons, BoxButtons::okCancel);
    EXPECT_EQ(rig.calls, (Texts{"drop", "restore"}));
    EXPECT_TRUE(rig.notifyArea.sent.empty());
    EXPECT_TRUE(rig.form1.Visible());
    EXPECT_TRUE(rig.form1.Timer1.Enabled());
}

TEST(LifeCycle, OkRemovesTheTrayIconHidesTheWindowAndEndsTheProgram) {
    for (const bool byMenu : {true, false}) {
        Rig rig;
        rig.load();
        rig.host.answers = {BoxAnswer::ok};
        const auto leave = [&] { byMenu ? rig.form1.mnuExit.Click() : rig.form1.Command6.Click(); };
        try {
            leave();
            FAIL() << "the program goes on";
        } catch (const ProgramEnd& end) {
            EXPECT_EQ(end.status, 0);
        }
        ASSERT_EQ(rig.notifyArea.sent.size(), 1u);
        EXPECT_EQ(rig.notifyArea.sent[0].first, NotifyMessage::remove);
        EXPECT_EQ(rig.notifyArea.sent[0].second.window, "sysWorkSystray");
        EXPECT_FALSE(rig.form1.Visible());
        EXPECT_EQ(rig.calls, Texts{"drop"});
    }
}

TEST(LifeCycle, TheEndButtonSaysWhatItDoes) {
    Rig rig;
    EXPECT_EQ(rig.form1.Command6.ToolTipText(), "End Program");
}

TEST(LifeCycle, NothingIsSavedOnLeaving) {
    Rig rig;
    rig.load();
    rig.form1.chkSaveSet.setValue(1);
    rig.form1.chkAutoSave.setValue(1);
    rig.host.answers = {BoxAnswer::ok};
    EXPECT_THROW(rig.form1.mnuExit.Click(), ProgramEnd);
    EXPECT_EQ(rig.machine.log.calls(), Texts{});
}

TEST(LifeCycle, ClosingTheWindowOnlyHidesIt) {
    Rig rig;
    rig.load();
    rig.lifeCycle.Form_Unload();
    EXPECT_FALSE(rig.form1.Visible());
    EXPECT_TRUE(rig.host.boxes.empty());
    rig.check();
    EXPECT_EQ(rig.forms.globals.lngTimesChecked, 1);
}

TEST(LifeCycle, TheIconGoesBeforeTheWindowIsHidden) {
    struct Area : NotifyArea {
        explicit Area(Form1& window) : form1(window) {}
        bool Shell_NotifyIconA(NotifyMessage, const NotifyIconData&) override {
            wasVisible = form1.Visible();
            return false;  // a missing icon doesn't keep the program from ending
        }
        bool available() const override { return true; }
        Form1& form1;
        bool wasVisible = false;
    };
    Rig rig;
    Area area(rig.form1);
    LifeCycle lifeCycle{rig.forms,
                        rig.platform,
                        rig.host,
                        {.checkCycle = rig.checkCycle,
                         .watchList = rig.watchList,
                         .watchControl = rig.watchControl,
                         .events = rig.events,
                         .commandLine = rig.commandLine,
                         .settings = rig.settings,
                         .updateCheck = rig.updateCheck,
                         .stayOnTop = rig.onTop,
                         .notifyArea = area}};
    lifeCycle.Form_Load();
    rig.host.answers = {BoxAnswer::ok};
    EXPECT_THROW(lifeCycle.mnuExit_Click(), ProgramEnd);
    EXPECT_TRUE(area.wasVisible);
    EXPECT_FALSE(rig.form1.Visible());
}

TEST(LifeCycle, TheQuestionIsShownInFrontOfTheWindow) {
    Rig rig;
    rig.load();
    rig.host.onBox = [&](const Box&) { rig.calls.push_back("question"); };
    rig.lifeCycle.mnuExit_Click();
    EXPECT_EQ(rig.calls, (Texts{"drop", "question", "restore"}));
}

TEST(LifeCycle, AFailedQuestionPutsTheWindowInFrontAgain) {
    Rig rig;
    rig.load();
    rig.host.onBox = [&](const Box&) { throw RuntimeError(error::outOfMemory); };
    EXPECT_THROW(rig.lifeCycle.mnuExit_Click(), RuntimeError);
    EXPECT_EQ(rig.calls, (Texts{"drop", "restore"}));
    EXPECT_TRUE(rig.form1.Visible());
}

TEST(LifeCycle, TheTimersKeepRunningAfterTheWindowIsClosed) {
    Rig rig;
    rig.load();
    rig.lifeCycle.Form_Unload();
    EXPECT_FALSE(rig.form1.Visible());
    for (const Timer* timer : {&rig.form1.Timer1, &rig.form1.tmrStat, &rig.form1.TimerCust}) {
        EXPECT_TRUE(timer->Enabled());
    }
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_TRUE(rig.notifyArea.sent.empty());
    EXPECT_TRUE(rig.calls.empty());
}

TEST(LifeCycle, CommentsGoToTheMakerByMail) {
    Rig rig;
    rig.form1.mnuComments.Click();
    ASSERT_EQ(rig.machine.executed.size(), 1u);
    EXPECT_EQ(rig.machine.executed[0].verb, "open");
    EXPECT_EQ(rig.machine.executed[0].file, "mailto:support@velmora.example?subject=comments");
    EXPECT_EQ(rig.machine.executed[0].owner, "Form1");
}

TEST(LifeCycle, AMachineWithoutAMailProgramSaysNothing) {
    Rig rig;
    rig.machine.executes = false;
    rig.lifeCycle.prcComment();
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(LifeCycle, LeavingInTheMiddleOfACheckEndsTheProgramAtOnce) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.watch("D:\\", 5);
    rig.host.answers = {BoxAnswer::ok};
    rig.host.onYield = [&](int n) {
        if (n == 3) rig.form1.mnuExit.Click();
    };
    EXPECT_THROW(rig.check(), ProgramEnd);
    EXPECT_EQ(rig.at(2).lastChecked(), "");
    EXPECT_EQ(rig.timesChecked(), 0);
}

}  // namespace
}  // namespace velmora::tests
