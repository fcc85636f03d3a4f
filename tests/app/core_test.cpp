#include "app/core.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/errors.h"
#include "fake/fake_machine.h"
#include "fake/fake_surface.h"
#include "persist/scramble.h"
#include "rows/alert_row.h"
#include "rows/listed_file.h"
#include "rows/watch_row.h"

namespace velmora {
namespace {

struct CoreTest : testing::Test {
    CoreTest() {
        machine.drives["C:"] = {50e9, 100e9};
        machine.files[settingsPath] = line("txtTime=60\r\n");
    }

    static std::string line(const std::string& plain) { return prcEn(plain) + "\r\n"; }

    const std::string settingsPath = "C:\\Program Files\\Velmora\\set.dat";

    fake::FakeMachine machine;
    fake::FakeSurface surface;
    fake::FakeHost& host = surface.host;
    Forms forms;
    Core core{forms, machine.platform(), surface.all()};
};

TEST_F(CoreTest, SettingsWithoutAnIntervalEndTheStart) {
    for (const std::string& content : {std::string(), line("chkLog=1")}) {
        machine.files[settingsPath] = content;
        Forms fresh;
        Core other{fresh, machine.platform(), surface.all()};
        EXPECT_EQ(errorOf([&] { other.load(); }), 13);
        EXPECT_EQ(machine.files[settingsPath], content);
    }
}

TEST_F(CoreTest, TheOlderSwitchOfUpdatesOnlyEverSwitchesThemOn) {
    machine.files[settingsPath] += line("chkUpdate=1") + line("updateauto=0\r\n");
    core.load();
    EXPECT_EQ(forms.form1.chkUpdate.Value(), 0);
    EXPECT_TRUE(forms.globals.bAutoUpdate);
}

TEST_F(CoreTest, SettingsAreSavedByTheButtonAndAtTheEndOfAChecksWhenTicked) {
    core.load();
    forms.form1.txtSpace.setText("777");
    forms.form1.Command8.userClick();
    EXPECT_NE(machine.files[settingsPath].find(line("minspace=777\r\n")), std::string::npos);

    forms.form1.txtSpace.setText("778");
    forms.form1.DTPInterval.setMinute(0);
    forms.form1.Timer1.Tick();
    EXPECT_EQ(machine.files[settingsPath].find(line("minspace=778\r\n")), std::string::npos);
    forms.form1.chkSaveSet.setValue(1);
    forms.form1.Timer1.Tick();
    EXPECT_NE(machine.files[settingsPath].find(line("minspace=778\r\n")), std::string::npos);
}

TEST_F(CoreTest, AnEmptyMinimumInTheSettingsIsAskedAboutAndBecomesOne) {
    machine.files[settingsPath] += line("minspace=\r\n");
    core.load();
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, "Please input only numbers.");
    EXPECT_EQ(forms.form1.txtSpace.Text(), "1");
}

TEST_F(CoreTest, DoesNothingBeforeItIsLoaded) {
    EXPECT_EQ(machine.log.count(), 0);
    EXPECT_FALSE(forms.form1.Visible());
    EXPECT_EQ(forms.form1.ListView1.ColumnCount(), 0);
}

TEST_F(CoreTest, ListsTheDrivesWhenItIsLoaded) {
    core.load();
    EXPECT_TRUE(forms.form1.Visible());
    ASSERT_EQ(forms.form1.ListView1.Count(), 1);
    EXPECT_EQ(forms.form1.ListView1.ListItems(1).Text(), "C:\\");
}

TEST_F(CoreTest, ConnectsEverySubsystemToItsFields) {
    core.load();
    const Form1& form1 = forms.form1;
    for (const bool connected :
         {form1.lblDP[watch_button::add].Click.connected(), form1.ListView1.DblClick.connected(),
          form1.txtSpace.Change.connected(), form1.Timer1.Tick.connected(),
          form1.UpDown3.Change.connected(), form1.mnuExit.Click.connected()}) {
        EXPECT_TRUE(connected);
    }
}

TEST_F(CoreTest, ConnectsEveryButtonOfActionsAndAlerts) {
    core.load();
    Form1& form1 = forms.form1;
    DlgAlert& dlgAlert = forms.dlgAlert;
    const auto expectConnected = [](auto& buttons) {
        for (const auto& each : buttons) {
            EXPECT_TRUE(each.Click.connected()) << each.Name() << " " << each.Index();
        }
    };
    expectConnected(form1.lblSF);
    expectConnected(form1.Label5);
    expectConnected(form1.lblAl);
    expectConnected(form1.cmdAudio);
    expectConnected(form1.cmdPlay);
    expectConnected(dlgAlert.lblAl);
    expectConnected(dlgAlert.lblAct);
    for (const CommandButton* button :
         {&form1.cmdPAdd, &form1.cmdMove, &form1.cmdMoveAll, &form1.cmdDelete, &form1.cmdDeleteAll,
          &form1.cmdFolder, &form1.cmdSnd}) {
        EXPECT_TRUE(button->Click.connected()) << button->Name();
    }
    EXPECT_TRUE(form1.mnuFileAttr.Click.connected());
}

TEST_F(CoreTest, ConnectsTheListsOfFilesAndPrograms) {
    core.load();
    const Form1& form1 = forms.form1;
    for (const ListView* list : {&form1.LVFile, &form1.LVProg}) {
        EXPECT_TRUE(list->Drop.connected()) << list->Name();
        EXPECT_TRUE(list->ColumnClick.connected()) << list->Name();
    }
    for (const ComboBox* box : {&form1.cboFile, &form1.cboProg}) {
        EXPECT_TRUE(box->Drop.connected()) << box->Name();
    }
}

TEST_F(CoreTest, StoredTicksAreTakenWithoutAQuestion) {
    for (const char* index : {"1", "2", "4", "8"}) {
        machine.files[settingsPath] += line(std::string("lstAct=") + index);
    }
    core.load();
    EXPECT_TRUE(host.boxes.empty());
    for (int i = 0; i < forms.form1.lstAct.ListCount(); ++i) {
        const bool stored =
            i == act::move || i == act::remove || i == act::autoMove || i == act::mail;
        EXPECT_EQ(forms.form1.lstAct.Selected(i), stored) << i;
    }
    EXPECT_FALSE(forms.frmNotify.Visible());
}

TEST_F(CoreTest, TheRulesOfTheActionsHoldAfterTheStart) {
    machine.files[settingsPath] += line("lstAct=1");
    core.load();
    ListBox& actions = forms.form1.lstAct;
    actions.userTick(act::remove, true);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, "The 'Move Specified files' option will be de-selected");
    EXPECT_TRUE(actions.Selected(act::remove));
    EXPECT_FALSE(actions.Selected(act::move));
}

TEST_F(CoreTest, AStoredTickOfTheCustomFileIsTakenWithoutAQuestion) {
    machine.files[settingsPath] += line("NotlstContent=6\r\n");
    core.load();
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_TRUE(forms.frmNotify.lstNotContent.Selected(6));
}

TEST_F(CoreTest, TheCustomFileIsAskedForAfterTheStart) {
    core.load();
    forms.frmNotify.lstNotContent.userTick(6, true);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, "A text base file must be specified.  Select a file now?");
    EXPECT_FALSE(forms.frmNotify.lstNotContent.Selected(6));
}

TEST_F(CoreTest, AStoredProxyEnablesItsFields) {
    machine.files[settingsPath] += line("notchkProxy=1\r\n");
    core.load();
    EXPECT_TRUE(forms.frmNotify.txtProxy.Enabled());
    EXPECT_TRUE(forms.frmNotify.txtPort.Enabled());
}

TEST_F(CoreTest, TheScheduleOfTheMailRuns) {
    core.load();
    ASSERT_TRUE(forms.frmNotify.tmrEmail.Tick.connected());
    forms.frmNotify.lstNotContent.setSelected(5, true);
    forms.frmNotify.lstNotTime.setSelected(2, true);
    machine.log.clear();
    forms.frmNotify.tmrEmail.Tick();
    EXPECT_EQ(machine.log.calls(), std::vector<std::string>{"GlobalMemoryStatus 32"});
}

TEST_F(CoreTest, OkOfTheMailSettingsSetsTheGauges) {
    core.load();
    forms.form1.ListView1.userSelect({1});
    forms.form1.ListView1.userDoubleClickOn(1, 1);
    ASSERT_TRUE(forms.frmIndDri.Visible());
    forms.frmIndDri.VMeter2.setValue(0);
    forms.frmNotify.cmdOK.userClick();
    EXPECT_EQ(forms.frmIndDri.VMeter2.Value(), 25);
    forms.frmIndDri.Hide();
    forms.frmIndDri.VMeter2.setValue(0);
    forms.frmNotify.cmdOK.userClick();
    EXPECT_EQ(forms.frmIndDri.VMeter2.Value(), 0);
}

// The choice of individual values fills all rows, which must come before the row's own value.
TEST_F(CoreTest, ApplyingAMinimumFillsTheOtherRowsWithTheCommonOne) {
    machine.drives["D:"] = {50e9, 100e9};
    machine.drives["E:"] = {50e9, 100e9};
    core.load();
    Form1& form1 = forms.form1;
    form1.txtSpace.setText("7");
    form1.ListView1.userSelect({2});
    form1.ListView1.userDoubleClickOn(2, 1);
    FrmIndDri& view = forms.frmIndDri;
    ASSERT_TRUE(view.Visible());
    view.Option1[1].userClick();
    view.Text1.setText("300");
    host.boxes.clear();
    host.answers = {BoxAnswer::yes};
    view.Command3.userClick();
    const auto trigger = [&form1](int row) {
        return ConstWatchRow(form1.ListView1.ListItems(row)).trigger();
    };
    EXPECT_EQ(trigger(1), "7");
    EXPECT_EQ(trigger(2), "300");
    EXPECT_EQ(trigger(3), "7");
    EXPECT_TRUE(form1.chkDrive.ticked());
    EXPECT_FALSE(form1.txtSpace.Enabled());
}

TEST_F(CoreTest, AShortageSendsTheMail) {
    machine.files[settingsPath] += line("minspace=60000000\r\n");
    core.load();
    Form1& form1 = forms.form1;
    FrmNotify& notify = forms.frmNotify;
    notify.txtMailServer.setText("mail.example.org");
    notify.txtYourEmail.setText("me@example.org");
    notify.cboNotEmail.AddItem("you@example.org");
    // A server that has every code at once.
    machine.winsock.onConnect = [this] { machine.winsock.received = "220\r\n"; };
    machine.winsock.onSend = [this](const std::string&) {
        machine.winsock.received = "250 354\r\n";
    };
    form1.ListView1.ListItems(1).setChecked(true);
    form1.lstAct.setSelected(act::mail, true);
    form1.DTPInterval.setMinute(0);
    form1.Timer1.Tick();
    EXPECT_EQ(notify.StatusTxt.Text(), "Ready - Emails sent: 1");
    EXPECT_NE(machine.winsock.wire().find("rcpt to:you@example.org\r\n"), std::string::npos);
    std::vector<std::string> texts;
    for (int i = 1; i <= form1.LVAlert.Count(); ++i) {
        texts.push_back(ConstAlertRow(form1.LVAlert.ListItems(i)).text());
    }
    const auto sent =
        std::find(texts.begin(), texts.end(), "Notfication Message Send to: you@example.org");
    const auto reported = std::find(texts.begin(), texts.end(), "Notification Email Sent.");
    ASSERT_NE(sent, texts.end());
    EXPECT_EQ(reported + 1, sent);  // the newest stands on top
}

TEST_F(CoreTest, APauseOnAShortageReachesTheWatch) {
    machine.files[settingsPath] += line("minspace=60000000\r\n");  // of which 48828125 KB are free
    core.load();
    Form1& form1 = forms.form1;
    form1.ListView1.ListItems(1).setChecked(true);
    form1.lstAct.setSelected(act::pause, true);
    form1.cmdPause.setCaption("Pause Watch");
    bool paused = false;
    form1.StatusBar1.PanelChanged.connect([&](int index) {
        paused = paused || (index == 2 && form1.StatusBar1.Panels(2).Text == "Watch Paused.");
    });
    form1.DTPInterval.setMinute(0);
    form1.Timer1.Tick();
    EXPECT_TRUE(paused);
    EXPECT_EQ(form1.Caption(), "Velmora - Watching Paused.");
    ASSERT_GE(form1.LVAlert.Count(), 1);
    EXPECT_EQ(ConstAlertRow(form1.LVAlert.ListItems(1)).text(),
              "Program paused by user option to pause on alert event.");
}

TEST_F(CoreTest, AMissingSettingsFileReachesTheCallerOfLoad) {
    machine.files.erase(settingsPath);
    EXPECT_EQ(errorOf([this] { core.load(); }), error::fileNotFound);
    EXPECT_EQ(forms.form1.ListView1.Count(), 1);
    EXPECT_EQ(forms.form1.lblLog.Caption(), "");
    EXPECT_EQ(surface.notifyArea.sent.size(), 1u);
    EXPECT_TRUE(machine.shortcuts.empty());
}

TEST_F(CoreTest, AValueOfTheSettingsThatIsNoNumberReachesTheCallerOfLoad) {
    machine.files[settingsPath] = prcEn("chkLog=often") + "\r\n";
    EXPECT_EQ(errorOf([this] { core.load(); }), error::typeMismatch);
    EXPECT_EQ(forms.form1.lblLog.Caption(), "");
    EXPECT_TRUE(machine.shortcuts.empty());
}

TEST_F(CoreTest, TheSettingsActOnTheirHandlersDuringTheStart) {
    machine.files[settingsPath] += line("chkStartUp=1") + line("custtime=1") + line("chkLog=0");
    core.load();
    EXPECT_EQ(machine.runKey().values["Velmora"].data, "C:\\Program Files\\Velmora\\velmora");
    EXPECT_TRUE(forms.form1.DTTime1[0].Enabled());
    EXPECT_FALSE(forms.form1.txtAlert.Visible());
}

TEST_F(CoreTest, ADoubleClickOnARowShowsItOnTheGauges) {
    core.load();
    forms.form1.ListView1.userDoubleClickOn(1, 1);
    EXPECT_EQ(forms.frmIndDri.ListView1.Count(), 0);  // no row is selected
    forms.form1.ListView1.userSelect({1});
    forms.form1.ListView1.userDoubleClickOn(1, 1);
    EXPECT_EQ(forms.frmIndDri.ListView1.Count(), 4);
    EXPECT_EQ(forms.frmIndDri.VMeter2.Value(), 25);  // half of the drive is free
}

TEST_F(CoreTest, StatisticsAndAnimationFollowACheck) {
    machine.files["C:\\Program Files\\Velmora\\spin.avi"] = "clip";
    core.load();
    forms.form1.DTPInterval.setMinute(0);
    forms.form1.Timer1.Tick();
    EXPECT_EQ(forms.form1.lblTimesMonitor.Caption(), "1");
    EXPECT_EQ(forms.form1.Animation1.File(), "C:\\Program Files\\Velmora\\spin.avi");
}

TEST_F(CoreTest, FilesOfTheCommandLineJoinTheSpecifiedOnes) {
    machine.platform().app.Command = "\"C:\\one\" \"C:\\two\"";
    core.load();
    ASSERT_EQ(forms.form1.LVFile.Count(), 2);
    EXPECT_EQ(ConstListedFile(forms.form1.LVFile.ListItems(2)).path(), "C:\\two");
}

TEST_F(CoreTest, AfterARestartTheListsAreEmptyAndTheFilesBoxHoldsItsEntries) {
    core.load();
    forms.form1.LVFile.Add("a");
    forms.form1.LVProg.Add("b");
    forms.form1.cboFile.AddItem("C:\\entry");
    forms.form1.cboProg.AddItem("C:\\tool.exe");
    forms.form1.Command8.userClick();
    Forms nextForms;
    Core next{nextForms, machine.platform(), surface.all()};
    next.load();
    EXPECT_EQ(nextForms.form1.LVFile.Count(), 0);
    EXPECT_EQ(nextForms.form1.LVProg.Count(), 0);
    EXPECT_EQ(nextForms.form1.cboProg.ListCount(), 0);
    ASSERT_EQ(nextForms.form1.cboFile.ListCount(), 1);
    // The reader keeps the line end of what it reads.
    EXPECT_EQ(nextForms.form1.cboFile.List(0), "C:\\entry\r\n");
}

TEST_F(CoreTest, ASecondStartFindsItsShortcut) {
    core.load();
    Forms nextForms;
    Core next{nextForms, machine.platform(), surface.all()};
    next.load();
    EXPECT_EQ(machine.shortcuts.size(), 1u);
}

TEST_F(CoreTest, ReportsEachAlertToItsListeners) {
    core.load();
    std::vector<std::string> texts;
    core.alerts().Raised.connect(
        [&](const ListItem& row) { texts.push_back(ConstAlertRow(row).text()); });
    core.alerts().prcAlertInfo("now", rating::medium, "one", {}, nullptr);
    core.alerts().prcAlertInfo("now", rating::high, "two", {}, nullptr);
    EXPECT_EQ(texts, (std::vector<std::string>{"one", "two"}));
}

TEST_F(CoreTest, PutsTheTimersOfAllFormsIntoTheQueue) {
    TimerQueue queue([this] { return machine.tick; });
    addTimers(forms, queue);
    std::string order;
    forms.form1.Timer1.Tick.connect([&] { order += "watch "; });
    forms.frmIndDri.Timer1.Tick.connect([&] { order += "drive "; });
    forms.sysWorkSystray.tmrSystray.Tick.connect([&] { order += "tray "; });
    forms.form1.tmrStat.Tick.connect([&] { order += "statistics "; });
    forms.frmIndDri.Timer1.setEnabled(true);
    forms.sysWorkSystray.tmrSystray.setEnabled(true);
    machine.advance(10'000);
    EXPECT_EQ(queue.fireDue(), 4);
    EXPECT_EQ(order, "tray watch statistics drive ");  // due after 1, 5, 6 and 10 s
    forms.form1.TimerCust.Tick.connect([&] { order += "custom "; });
    forms.frmNotify.tmrEmail.Tick.connect([&] { order += "mail "; });
    order.clear();
    machine.advance(50'000);
    EXPECT_EQ(queue.fireDue(), 6);
    EXPECT_EQ(order.substr(order.size() - 12), "custom mail ");  // after a minute
}

}  // namespace
}  // namespace velmora
