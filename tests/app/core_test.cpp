#include "app/core.h"

#include <gtest/gtest.h>

#include "fake/fake_host.h"
#include "fake/fake_machine.h"

namespace velmora {
namespace {

struct CoreTest : testing::Test {
    CoreTest() { machine.drives["C:"] = {50e9, 100e9}; }

    fake::FakeMachine machine;
    fake::FakeHost host;
    fake::FakeNotifyArea notifyArea;
    Forms forms;
    Core core{forms, machine.platform(), host, notifyArea};
};

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
         {form1.lblDP[0].Click.connected(), form1.ListView1.DblClick.connected(),
          form1.txtSpace.Change.connected(), form1.Timer1.Tick.connected(),
          form1.UpDown3.Change.connected(), form1.mnuExit.Click.connected()}) {
        EXPECT_TRUE(connected);
    }
}

TEST_F(CoreTest, TellsItsListenersOfEachAlert) {
    core.load();
    std::vector<std::string> texts;
    core.alerts().Raised.connect([&](const ListItem& row) { texts.push_back(row.SubItems(2)); });
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
